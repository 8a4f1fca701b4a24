#pragma once

#include "document/clsNode.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace tamarind::document {

/// One change of a document that can be taken back. It points into the document, which must outlive it.
struct Edit {
    enum class Kind {
        Name,
        Characters,
        AttributeName,
        AttributeValue,
        AttributeAdded,
        AttributeRemoved,
        NodeAdded,
        NodeRemoved,
        AllRemoved, ///< every node
    };
    Kind kind = Kind::Name;
    clsNode* node = nullptr;                ///< the changed, added or removed one
    clsNode* parent = nullptr;              ///< of an added or removed node
    std::size_t index = 0;                  ///< from 1: of an attribute, or of a node in its parent
    std::string before = {};                ///< a text; of a removed attribute its name
    std::string after = {};                 ///< a text; of a removed or added attribute its value
    std::string name = {};                  ///< of an added or removed attribute
    bool marksModified = false;             ///< whether such a change sets the modified flag
    NodeKey keyCounter = 0;                 ///< before an AllRemoved, after a NodeAdded
    std::unique_ptr<Document> removed = {}; ///< by AllRemoved, while it is not taken back
};

/// Edits that belong together: taken back and repeated in one step.
using EditStep = std::vector<Edit>;

/// What was done to a document, for undo and redo.
class EditHistory {
public:
    /// An edit that was just made. Typing on in the same text goes into the step of the typing before.
    void Add(Edit edit);
    /// Several at once.
    void Add(EditStep step);
    /// What is typed from now on is a step of its own.
    void EndTyping() { isTyping_ = false; }
    void Clear();

    [[nodiscard]] bool CanUndo() const { return !done_.empty(); }
    [[nodiscard]] bool CanRedo() const { return !undone_.empty(); }

    /// The step to take back, handed over to the steps to repeat; null when there is none. Valid until the next change
    /// of the history. TakeRedo likewise.
    [[nodiscard]] EditStep* TakeUndo();
    [[nodiscard]] EditStep* TakeRedo();

private:
    [[nodiscard]] bool Continues(const Edit& edit) const;

    std::deque<EditStep> done_;
    std::deque<EditStep> undone_;
    bool isTyping_ = false; ///< the last step is typing that goes on
};

} // namespace tamarind::document
