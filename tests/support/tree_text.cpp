#include "support/tree_text.h"

namespace tamarind::tests {

std::string TreeText(const document::clsNode& top) {
    std::string tree;
    std::size_t open = 0;
    document::Walk walk(top);
    while (const document::clsNode* const node = walk.Next()) {
        for (; open >= walk.Level(); --open) {
            tree += ")";
        }
        tree.append(std::to_string(node->Key)).append(":").append(node->NodeName);
        if (node->NodeAttributes.Count() > 0) {
            tree += "[";
            for (std::size_t index = 1; index <= node->NodeAttributes.Count(); ++index) {
                const document::clsNodeAttribute& attribute = node->NodeAttributes.Item(index);
                tree += index > 1 ? "," : "";
                tree.append(attribute.AttribName).append("=").append(attribute.AttribValue);
            }
            tree += "]";
        }
        if (!node->NodeCharacters.empty()) {
            tree.append("{").append(node->NodeCharacters).append("}");
        }
        tree += "(";
        ++open;
    }
    return tree + std::string(open, ')');
}

} // namespace tamarind::tests
