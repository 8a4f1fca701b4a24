#pragma once

#include "session/editor_context.h"

#include <string>

/// The commands of the tree page. Every edit reaches the node model at once; the file changes only when it is saved.
namespace tamarind::editors {

/// Makes the node with that key the selected one; none when there is no such node.
void FindNodeByKey(document::OpenDocument& open, document::NodeKey key);

/// No node is selected; the attribute area is off.
void ShowNoNode(session::EditorContext& context);
void ClickRow(session::EditorContext& context, document::NodeKey key);
void ClickAttribute(session::EditorContext& context);
void EditAttributeValue(session::EditorContext& context, const std::string& value);
void EditCharacters(session::EditorContext& context, const std::string& text);

/// Whether a new attribute's name is acceptable; if not, the person was told.
bool CheckNewAttributeName(platform::UserInterface& ui, const std::string& name);
void AddAttribute(session::EditorContext& context);
void RemoveAttribute(session::EditorContext& context);
void RenameAttribute(session::EditorContext& context);

/// How the "Nodes" menu pops up.
struct NodePopUp {
    bool isShown = true;
    std::string newCaption;
    bool canRenameAndDelete = true;
};
[[nodiscard]] NodePopUp PrepareNodePopUp(const document::OpenDocument& open);

void NewNode(session::EditorContext& context);
void RenameNode(session::EditorContext& context);
/// The end of a row's label editing: false when the new name is refused, and the person was told.
bool FinishLabelEdit(session::EditorContext& context, const std::string& name);
void DeleteNode(session::EditorContext& context);
void CopySelectedNode(session::EditorContext& context);
void PasteNode(session::EditorContext& context);

} // namespace tamarind::editors
