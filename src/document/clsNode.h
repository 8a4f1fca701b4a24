#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// One XML document in memory. All of it, texts included, lives in its Document: a node is valid as long as that is,
/// also after it was taken out of its parent, and dropping the Document drops everything at once, however deep.
namespace tamarind::document {

class Document;
class clsNode;

/// The number in a key such as "nod17"; 0 is "no key".
using NodeKey = std::uint32_t;

/// "nod" and the number.
[[nodiscard]] std::string KeyText(NodeKey key);
/// The number of a key text, letter case ignored; 0 when it is no key.
[[nodiscard]] NodeKey ParseKey(std::string_view text);

/// One attribute. Texts are UTF-8, entities resolved; change them through the Document.
class clsNodeAttribute {
public:
    std::string_view AttribName;
    std::string_view AttribValue;
};

/// The attributes of one element in document order; positions count from 1.
class clsNodeAttributes {
public:
    [[nodiscard]] std::size_t Count() const { return count_; }
    /// Throws InvalidProcedureCall outside 1 to Count().
    [[nodiscard]] clsNodeAttribute& Item(std::size_t index);
    [[nodiscard]] const clsNodeAttribute& Item(std::size_t index) const;
    /// Later ones move down by one. Throws InvalidProcedureCall outside 1 to Count().
    void Remove(std::size_t index);

    [[nodiscard]] const clsNodeAttribute* begin() const { return items_; }
    [[nodiscard]] const clsNodeAttribute* end() const { return items_ + count_; }

private:
    friend class Document;
    clsNodeAttribute* items_ = nullptr;
    std::uint32_t count_ = 0;
    std::uint32_t capacity_ = 0;
};

/// The child elements of one element in document order, found by position from 1 or by key.
class clsNodes {
public:
    [[nodiscard]] std::size_t Count() const { return count_; }
    /// Throws InvalidProcedureCall outside 1 to Count().
    [[nodiscard]] clsNode& Item(std::size_t index) const;
    /// Throws InvalidProcedureCall when no child has that key.
    [[nodiscard]] clsNode& Item(std::string_view key) const;
    void Remove(std::size_t index);
    void Remove(std::string_view key);

    /// Position from 1; 0 when no child has that key.
    [[nodiscard]] std::size_t PositionOf(NodeKey key) const;

    [[nodiscard]] clsNode* const* begin() const { return items_; }
    [[nodiscard]] clsNode* const* end() const { return items_ + count_; }

private:
    friend class Document;
    /// Index from 0; Count() when there is none.
    [[nodiscard]] std::size_t IndexOf(NodeKey key) const;
    /// Moves the last one to the place `index` from 0.
    void MoveLastTo(std::size_t index);
    void RemoveAt(std::size_t index);

    clsNode** items_ = nullptr;
    std::uint32_t count_ = 0;
    std::uint32_t capacity_ : 31 = 0;
    /// Every key is above the one before, so that a key can be found by halving.
    std::uint32_t ascending_ : 1 = 1;
};

/// One element, or the document node (no name, no attributes, no text, one child: the top element).
class clsNode {
public:
    clsNodes ChildNodes;
    clsNode* ParentNode = nullptr;
    clsNodeAttributes NodeAttributes;
    std::string_view NodeCharacters; ///< UTF-8; of an element with children the last text before its end tag
    std::string_view NodeName;       ///< local name, without prefix
    NodeKey Key = 0;

    /// "nod" and the number of the element in document order of start tags, from 1.
    [[nodiscard]] std::string NodeKeyText() const { return KeyText(Key); }

private:
    friend class Document;
    friend clsNode& CopyNode(const clsNode& source, Document& target, clsNode& parent, NodeKey& keyCounter);
    std::uint32_t level_ = 0; ///< the document node's is 0
};

class Document {
public:
    Document();
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;

    /// The document node.
    [[nodiscard]] clsNode& Root() { return *root_; }
    [[nodiscard]] const clsNode& Root() const { return *root_; }
    /// Item 1 of the document node's children. Throws InvalidProcedureCall when there is none.
    [[nodiscard]] clsNode& Top() const;
    [[nodiscard]] bool IsEmpty() const { return root_->ChildNodes.Count() == 0; }
    /// The deepest level that an element was ever added at; the top element's is 1.
    [[nodiscard]] std::size_t DeepestLevelEver() const { return deepestLevel_; }

    /// Appends a child element. Throws DuplicateKey when the parent holds that key already.
    clsNode& AddNode(clsNode& parent, std::string_view name, std::string_view characters, NodeKey key);
    /// Puts a node of this document that was taken out of its parent back under `parent`, at the position `index` from
    /// 1 to its number of children and 1. Throws DuplicateKey; InvalidProcedureCall for any other position.
    void PutBack(clsNode& parent, clsNode& node, std::size_t index);
    /// An attribute at a position from 1 to their number and 1. Throws InvalidProcedureCall for any other.
    void InsertAttribute(clsNode& node, std::size_t index, std::string_view name, std::string_view value);
    /// Appends an attribute.
    clsNodeAttribute& AddAttribute(clsNode& node, std::string_view name, std::string_view value);
    /// Gives a node room for that many attributes in one step.
    void ReserveAttributes(clsNode& node, std::size_t count);

    // After one of these the node's or attribute's former text is gone.
    void SetName(clsNode& node, std::string_view name);
    void SetCharacters(clsNode& node, std::string_view characters);
    void SetAttributeName(clsNodeAttribute& attribute, std::string_view name);
    void SetAttributeValue(clsNodeAttribute& attribute, std::string_view value);

private:
    friend class clsXMLParse;
    friend clsNode& CopyNode(const clsNode& source, Document& target, clsNode& parent, NodeKey& keyCounter);
    struct Storage;

    /// A node of its own, in no parent's children.
    clsNode& NewNode(std::string_view name, std::string_view characters, NodeKey key);
    /// Throws DuplicateKey.
    void Append(clsNode& parent, clsNode& child);
    /// Replaces a text that only loading has set so far.
    void LoadCharacters(clsNode& node, std::string_view characters);

    std::unique_ptr<Storage> storage_;
    clsNode* root_ = nullptr;
    std::uint32_t deepestLevel_ = 0;
};

/// Deep copy of `source` as the last child of `parent` in `target`: names, texts, attributes, children in order. Every
/// copied node's key is `keyCounter` after that was increased by 1, in document order. `parent` may lie inside
/// `source`.
clsNode& CopyNode(const clsNode& source, Document& target, clsNode& parent, NodeKey& keyCounter);

/// Visits an element and all below it in document order, without recursion. The tree must not change meanwhile.
class Walk {
public:
    explicit Walk(const clsNode& top);
    /// The next element, the top first; null after the last.
    [[nodiscard]] const clsNode* Next();
    /// Of the element that Next() gave last; the top's is 1.
    [[nodiscard]] std::size_t Level() const { return level_; }

private:
    struct Step {
        const clsNode* node;
        std::size_t nextChild;
    };
    const clsNode* top_;
    std::vector<Step> path_;
    std::size_t level_ = 0;
};

/// The node with that key anywhere below the document node; null when there is none.
[[nodiscard]] clsNode* FindChildByKey(const clsNode& documentNode, NodeKey key);

/// Number of elements in the subtree of `top`, itself included.
[[nodiscard]] std::size_t CountElements(const clsNode& top);

} // namespace tamarind::document
