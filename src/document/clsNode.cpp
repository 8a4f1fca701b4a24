#include "document/clsNode.h"

#include "document/arena.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <new>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace tamarind::document {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

void CheckIndex(std::size_t index, std::size_t count) {
    if (index < 1 || index > count) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
}

/// Moves the entries of an array to a larger room and leaves the old room to others.
template <typename Entry>
Entry* Grown(ArrayPool& pool, Entry* items, std::size_t count, std::size_t oldCapacity, std::size_t newCapacity) {
    static_assert(std::is_trivially_copyable_v<Entry>);
    auto* const grown = static_cast<Entry*>(pool.Take(newCapacity * sizeof(Entry)));
    std::uninitialized_copy_n(items, count, grown);
    if (items != nullptr) {
        pool.GiveBack(items, oldCapacity * sizeof(Entry));
    }
    return grown;
}

} // namespace

std::string KeyText(NodeKey key) { return "nod" + std::to_string(key); }

NodeKey ParseKey(std::string_view keyText) {
    const bool hasPrefix = keyText.size() > 3 && text::EqualNoCase(keyText.substr(0, 3), "nod");
    if (!hasPrefix || keyText[3] == '0') { // a key text has no leading zeros
        return 0;
    }
    NodeKey key = 0;
    const char* const end = keyText.data() + keyText.size();
    const auto [stop, error] = std::from_chars(keyText.data() + 3, end, key);
    return stop == end && error == std::errc{} ? key : 0;
}

clsNodeAttribute& clsNodeAttributes::Item(std::size_t index) {
    CheckIndex(index, count_);
    return items_[index - 1];
}

const clsNodeAttribute& clsNodeAttributes::Item(std::size_t index) const {
    CheckIndex(index, count_);
    return items_[index - 1];
}

void clsNodeAttributes::Remove(std::size_t index) {
    CheckIndex(index, count_);
    std::copy(items_ + index, items_ + count_, items_ + index - 1);
    --count_;
}

clsNode& clsNodes::Item(std::size_t index) const {
    CheckIndex(index, count_);
    return *items_[index - 1];
}

clsNode& clsNodes::Item(std::string_view key) const {
    const std::size_t index = IndexOf(ParseKey(key));
    CheckIndex(index + 1, count_);
    return *items_[index];
}

void clsNodes::Remove(std::size_t index) {
    CheckIndex(index, count_);
    RemoveAt(index - 1);
}

void clsNodes::Remove(std::string_view key) {
    const std::size_t index = IndexOf(ParseKey(key));
    CheckIndex(index + 1, count_);
    RemoveAt(index);
}

std::size_t clsNodes::IndexOf(NodeKey key) const {
    if (key == 0) {
        return count_;
    }
    if (!ascending_) {
        const auto found = std::find_if(begin(), end(), [key](const clsNode* node) { return node->Key == key; });
        return static_cast<std::size_t>(found - begin());
    }
    if (count_ == 0 || items_[count_ - 1]->Key < key) {
        return count_;
    }
    const auto found =
        std::lower_bound(begin(), end(), key, [](const clsNode* node, NodeKey wanted) { return node->Key < wanted; });
    return (*found)->Key == key ? static_cast<std::size_t>(found - begin()) : count_;
}

std::size_t clsNodes::PositionOf(NodeKey key) const {
    const std::size_t index = IndexOf(key);
    return index == count_ ? 0 : index + 1;
}

void clsNodes::MoveLastTo(std::size_t index) { std::rotate(items_ + index, items_ + count_ - 1, items_ + count_); }

void clsNodes::RemoveAt(std::size_t index) {
    std::copy(items_ + index + 1, items_ + count_, items_ + index);
    --count_;
}

/// Names and texts lie apart from the nodes: they need no alignment, and a walk over the nodes passes none of them.
struct Document::Storage {
    Arena nodes;
    Arena texts;
    ArrayPool arrays{nodes};
    NameTable names{texts};
    /// Texts that were changed after loading, by their place, so that the next change frees the last one.
    std::unordered_map<const char*, std::unique_ptr<char[]>> changed;

    void Change(std::string_view& slot, std::string_view text) {
        std::unique_ptr<char[]> copy;
        if (!text.empty()) {
            copy = std::make_unique_for_overwrite<char[]>(text.size());
            std::memcpy(copy.get(), text.data(), text.size());
        }
        const std::string_view changedText(copy.get(), text.size());
        if (copy) {
            changed.emplace(copy.get(), std::move(copy));
        }
        if (!slot.empty()) {
            changed.erase(slot.data());
        }
        slot = changedText;
    }
};

static_assert(std::is_trivially_destructible_v<clsNode>, "the arena destroys nothing");

Document::Document() : storage_(std::make_unique<Storage>()), root_(&NewNode({}, {}, 0)) {}
Document::~Document() = default;

Document::Document(Document&& other) noexcept
    : storage_(std::move(other.storage_)), root_(std::exchange(other.root_, nullptr)),
      deepestLevel_(other.deepestLevel_) {}

Document& Document::operator=(Document&& other) noexcept {
    storage_ = std::move(other.storage_);
    root_ = std::exchange(other.root_, nullptr);
    deepestLevel_ = other.deepestLevel_;
    return *this;
}

clsNode& Document::Top() const { return root_->ChildNodes.Item(1); }

clsNode& Document::AddNode(clsNode& parent, std::string_view name, std::string_view characters, NodeKey key) {
    clsNode& node = NewNode(name, characters, key);
    Append(parent, node);
    return node;
}

clsNode& Document::NewNode(std::string_view name, std::string_view characters, NodeKey key) {
    auto* const node = new (storage_->nodes.Allocate(sizeof(clsNode), alignof(clsNode))) clsNode;
    node->NodeName = storage_->names.Intern(name);
    node->NodeCharacters = storage_->texts.Copy(characters);
    node->Key = key;
    return *node;
}

void Document::Append(clsNode& parent, clsNode& child) {
    clsNodes& children = parent.ChildNodes;
    if (children.IndexOf(child.Key) < children.count_) {
        throw RuntimeError(ErrorNumber::DuplicateKey);
    }
    if (children.count_ == children.capacity_) {
        const std::size_t capacity = std::max<std::size_t>(1, std::size_t{children.capacity_} * 2);
        children.items_ = Grown(storage_->arrays, children.items_, children.count_, children.capacity_, capacity);
        children.capacity_ = static_cast<std::uint32_t>(capacity) & 0x7FFFFFFFu;
    }
    if (children.count_ > 0 && children.items_[children.count_ - 1]->Key >= child.Key) {
        children.ascending_ = 0;
    }
    children.items_[children.count_++] = &child;
    child.ParentNode = &parent;
    child.level_ = parent.level_ + 1;
    deepestLevel_ = std::max(deepestLevel_, child.level_);
}

void Document::PutBack(clsNode& parent, clsNode& node, std::size_t index) {
    clsNodes& children = parent.ChildNodes;
    CheckIndex(index, children.Count() + 1);
    const bool wasAscending = children.ascending_ != 0;
    Append(parent, node);
    children.MoveLastTo(index - 1);
    const bool fits = (index == 1 || children.items_[index - 2]->Key < node.Key) &&
                      (index == children.count_ || children.items_[index]->Key > node.Key);
    children.ascending_ = wasAscending && fits ? 1 : 0;
}

void Document::LoadCharacters(clsNode& node, std::string_view characters) {
    std::string_view& slot = node.NodeCharacters;
    if (characters.size() > slot.size()) {
        slot = storage_->texts.Copy(characters);
        return;
    }
    // The blanks between child elements replace one another again and again: they share one place.
    char* const place = const_cast<char*>(slot.data());
    std::memmove(place, characters.data(), characters.size());
    slot = {place, characters.size()};
}

clsNodeAttribute& Document::AddAttribute(clsNode& node, std::string_view name, std::string_view value) {
    clsNodeAttributes& attributes = node.NodeAttributes;
    const clsNodeAttribute added{storage_->names.Intern(name), storage_->texts.Copy(value)};
    if (attributes.count_ == attributes.capacity_) {
        ReserveAttributes(node, std::max<std::size_t>(1, std::size_t{attributes.capacity_} * 2));
    }
    auto* const place = new (attributes.items_ + attributes.count_) clsNodeAttribute(added);
    ++attributes.count_;
    return *place;
}

void Document::InsertAttribute(clsNode& node, std::size_t index, std::string_view name, std::string_view value) {
    clsNodeAttributes& attributes = node.NodeAttributes;
    CheckIndex(index, attributes.Count() + 1);
    AddAttribute(node, name, value);
    std::rotate(attributes.items_ + index - 1, attributes.items_ + attributes.count_ - 1,
                attributes.items_ + attributes.count_);
}

void Document::ReserveAttributes(clsNode& node, std::size_t count) {
    clsNodeAttributes& attributes = node.NodeAttributes;
    if (count > attributes.capacity_) {
        attributes.items_ = Grown(storage_->arrays, attributes.items_, attributes.count_, attributes.capacity_, count);
        attributes.capacity_ = static_cast<std::uint32_t>(count);
    }
}

void Document::SetName(clsNode& node, std::string_view name) { storage_->Change(node.NodeName, name); }

void Document::SetCharacters(clsNode& node, std::string_view characters) {
    storage_->Change(node.NodeCharacters, characters);
}

void Document::SetAttributeName(clsNodeAttribute& attribute, std::string_view name) {
    storage_->Change(attribute.AttribName, name);
}

void Document::SetAttributeValue(clsNodeAttribute& attribute, std::string_view value) {
    storage_->Change(attribute.AttribValue, value);
}

} // namespace tamarind::document
