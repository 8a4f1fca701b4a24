#include "document/clsNode.h"

#include <algorithm>
#include <utility>

namespace tamarind::document {

namespace {

/// In a document as it was loaded each element's key, and all keys below it, lie below the next sibling's: one child a
/// level leads to the key. Null when it is not found that way.
clsNode* DescendToKey(const clsNode& top, NodeKey key) {
    const clsNode* node = &top;
    while (node->ChildNodes.Count() > 0) {
        clsNode* const* const above =
            std::upper_bound(node->ChildNodes.begin(), node->ChildNodes.end(), key,
                             [](NodeKey wanted, const clsNode* child) { return wanted < child->Key; });
        if (above == node->ChildNodes.begin()) {
            return nullptr;
        }
        clsNode* const child = *(above - 1);
        if (child->Key == key) {
            return child;
        }
        node = child;
    }
    return nullptr;
}

} // namespace

Walk::Walk(const clsNode& top) : top_(&top) {}

const clsNode* Walk::Next() {
    if (top_ != nullptr) {
        path_.push_back({top_, 0});
        level_ = 1;
        return std::exchange(top_, nullptr);
    }
    while (!path_.empty()) {
        Step& step = path_.back();
        const clsNodes& children = step.node->ChildNodes;
        if (step.nextChild < children.Count()) {
            const clsNode* const child = children.begin()[step.nextChild++];
            level_ = path_.size() + 1;
            if (child->ChildNodes.Count() > 0) {
                path_.push_back({child, 0});
            }
            return child;
        }
        path_.pop_back();
    }
    return nullptr;
}

clsNode& CopyNode(const clsNode& source, Document& target, clsNode& parent, NodeKey& keyCounter) {
    // The copy stays outside the tree until it is whole: `parent` may be one of the nodes copied.
    std::vector<clsNode*> path;
    Walk walk(source);
    while (const clsNode* const node = walk.Next()) {
        clsNode& copy = target.NewNode(node->NodeName, node->NodeCharacters, ++keyCounter);
        target.ReserveAttributes(copy, node->NodeAttributes.Count());
        for (const clsNodeAttribute& attribute : node->NodeAttributes) {
            target.AddAttribute(copy, attribute.AttribName, attribute.AttribValue);
        }
        path.resize(walk.Level() - 1);
        if (path.empty()) {
            copy.level_ = parent.level_ + 1;
        } else {
            target.Append(*path.back(), copy);
        }
        path.push_back(&copy);
    }
    target.Append(parent, *path.front());
    return *path.front();
}

clsNode* FindChildByKey(const clsNode& documentNode, NodeKey key) {
    if (key == 0) {
        return nullptr;
    }
    if (clsNode* const found = DescendToKey(documentNode, key)) {
        return found;
    }
    std::vector<const clsNode*> open{&documentNode};
    while (!open.empty()) {
        const clsNode* const node = open.back();
        open.pop_back();
        for (clsNode* const child : node->ChildNodes) {
            if (child->Key == key) {
                return child;
            }
            if (child->ChildNodes.Count() > 0) {
                open.push_back(child);
            }
        }
    }
    return nullptr;
}

std::size_t CountElements(const clsNode& top) {
    std::size_t count = 0;
    Walk walk(top);
    while (walk.Next() != nullptr) {
        ++count;
    }
    return count;
}

} // namespace tamarind::document
