#pragma once

#include "document/clsNode.h"
#include "document/edit_history.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tamarind::document {

/// Where the search over the rows goes on.
struct SearchState {
    std::string text;          ///< of the search before
    std::size_t startRow = 1;  ///< from 1; the row after the one found last
    std::uint64_t changes = 0; ///< OpenDocument::changes at that time
};

/// The tree editor's document with all that belongs to it while it is open.
struct OpenDocument {
    Document document;
    std::string path;         ///< the file that loading reads and saving writes
    bool isModified = false;  ///< shown as a "*" at the end of the window's caption
    bool isOpen = false;      ///< loaded or saved; decides whether Save is offered
    bool hasFileName = false; ///< decides between Save and Save As when the window closes
    bool canSaveAs = false;
    bool canCopy = false;
    bool canPaste = false;
    NodeKey KeyCounter = 0;          ///< number of the key given last; 0 while the tree is empty
    clsNode* SelectedNode = nullptr; ///< of the row clicked last; null when none
    Document clipboard;              ///< empty, or one copied element
    EditHistory history;
    std::uint64_t changes = 0; ///< how often it was changed
    SearchState search;
};

} // namespace tamarind::document
