#pragma once

#include "document/clsNode.h"

#include <string>

namespace tamarind::document {

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
};

} // namespace tamarind::document
