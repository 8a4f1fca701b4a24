#include "editors/tree_undo.h"

#include "editors/document_commands.h"
#include "editors/tree_editor.h"

#include <algorithm>
#include <utility>

namespace tamarind::editors {

using document::clsNode;
using document::Edit;
using document::EditStep;
using session::EditorContext;

namespace {

enum class Direction { Back, Forward };

void TakeOut(EditorContext& context, const Edit& edit) {
    auto& open = context.document;
    if (edit.parent == &open.document.Root()) {
        context.view.ClearTree();
    } else {
        context.view.RemoveRow(*edit.node);
    }
    edit.parent->ChildNodes.Remove(edit.index);
    // An empty tree offers a primary node again.
    if (open.document.IsEmpty()) open.KeyCounter = 0;
}

void PutIn(EditorContext& context, const Edit& edit) {
    auto& open = context.document;
    open.document.PutBack(*edit.parent, *edit.node, edit.index);
    open.KeyCounter = std::max(open.KeyCounter, edit.keyCounter);
    context.view.AddRow(*edit.node);
}

/// Exchanges the whole document for the one that was there before.
void Exchange(EditorContext& context, Edit& edit) {
    auto& open = context.document;
    context.view.ClearTree();
    std::swap(open.document, *edit.removed);
    std::swap(open.KeyCounter, edit.keyCounter);
    if (!open.document.IsEmpty()) context.view.ShowTree(open.document);
}

void Rename(EditorContext& context, const Edit& edit, const std::string& name) {
    context.document.document.SetName(*edit.node, name);
    context.view.ShowRowName(*edit.node);
}

void Apply(EditorContext& context, Edit& edit, Direction direction) {
    auto& document = context.document.document;
    const bool isBack = direction == Direction::Back;
    const std::string& text = isBack ? edit.before : edit.after;
    switch (edit.kind) {
    case Edit::Kind::Name: Rename(context, edit, text); break;
    case Edit::Kind::Characters: document.SetCharacters(*edit.node, text); break;
    case Edit::Kind::AttributeName: document.SetAttributeName(edit.node->NodeAttributes.Item(edit.index), text); break;
    case Edit::Kind::AttributeValue:
        document.SetAttributeValue(edit.node->NodeAttributes.Item(edit.index), text);
        break;
    case Edit::Kind::AttributeAdded:
    case Edit::Kind::AttributeRemoved:
        if ((edit.kind == Edit::Kind::AttributeAdded) == isBack) {
            edit.node->NodeAttributes.Remove(edit.index);
        } else {
            document.InsertAttribute(*edit.node, edit.index, edit.name, edit.after);
        }
        break;
    case Edit::Kind::NodeAdded:
    case Edit::Kind::NodeRemoved:
        if ((edit.kind == Edit::Kind::NodeAdded) == isBack) {
            TakeOut(context, edit);
        } else {
            PutIn(context, edit);
        }
        break;
    case Edit::Kind::AllRemoved: Exchange(context, edit); break;
    }
}

/// Shows where something has changed.
void Show(EditorContext& context, const Edit& edit) {
    auto& open = context.document;
    const bool isThere =
        edit.node != nullptr && document::FindChildByKey(open.document.Root(), edit.node->Key) == edit.node;
    const clsNode* const shown = isThere ? edit.node : edit.parent;
    if (shown == nullptr || shown->ParentNode == nullptr || open.document.IsEmpty()) {
        ShowNoNode(context);
        return;
    }
    context.view.SelectRow(*shown);
    ClickRow(context, shown->Key);
    const bool isAttribute = edit.kind == Edit::Kind::AttributeName || edit.kind == Edit::Kind::AttributeValue;
    if (!isAttribute) return;
    context.view.SelectAttribute(static_cast<int>(edit.index) - 1);
    ClickAttribute(context);
}

void Apply(EditorContext& context, EditStep& step, Direction direction) {
    if (direction == Direction::Back) std::reverse(step.begin(), step.end());
    for (Edit& edit : step)
        Apply(context, edit, direction);
    ++context.document.changes;
    const bool marks = std::any_of(step.begin(), step.end(), [](const Edit& edit) { return edit.marksModified; });
    Show(context, step.back());
    if (direction == Direction::Back) std::reverse(step.begin(), step.end());
    if (marks) SetModified(context, true);
    context.view.UpdateCommands();
}

} // namespace

bool CanUndo(const EditorContext& context) { return context.document.history.CanUndo(); }

bool CanRedo(const EditorContext& context) { return context.document.history.CanRedo(); }

void UndoEdit(EditorContext& context) {
    if (EditStep* const step = context.document.history.TakeUndo()) Apply(context, *step, Direction::Back);
}

void RedoEdit(EditorContext& context) {
    if (EditStep* const step = context.document.history.TakeRedo()) Apply(context, *step, Direction::Forward);
}

} // namespace tamarind::editors
