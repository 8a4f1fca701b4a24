#include "editors/tree_editor.h"

#include "editors/document_commands.h"
#include "text/search.h"

#include <memory>
#include <utility>
#include <vector>

namespace tamarind::editors {

using document::clsNode;
using document::Edit;
using document::NodeKey;
using document::OpenDocument;
using platform::Answer;
using platform::Buttons;
using platform::Icon;
using platform::UserInterface;
using session::EditorContext;

namespace {

constexpr NodeKey kTopKey = 1;
constexpr const char* kNewPrimaryNode = "&New Primary Node";
constexpr const char* kNewChildNode = "&New Child Node";

bool HasBlank(const std::string& name) { return name.find(' ') != std::string::npos; }

void ShowRefusal(UserInterface& ui, const std::string& text, const std::string& title) {
    ui.Show({.text = text, .icon = Icon::Exclamation, .title = title});
}

bool Confirm(UserInterface& ui, const std::string& text, const std::string& title) {
    return ui.Show({.text = text, .icon = Icon::Question, .title = title, .buttons = Buttons::YesNo}) == Answer::Yes;
}

/// The selected attribute, null when none is.
document::clsNodeAttribute* ChosenAttribute(EditorContext& context) {
    const int index = context.view.SelectedAttribute();
    if (index < 0 || context.document.SelectedNode == nullptr) return nullptr;
    return &context.document.SelectedNode->NodeAttributes.Item(static_cast<std::size_t>(index) + 1);
}

/// For undo.
void Remember(EditorContext& context, Edit edit) {
    ++context.document.changes;
    context.document.history.Add(std::move(edit));
}

void RememberAddedNode(EditorContext& context, clsNode& node, bool marksModified) {
    Remember(context, {.kind = Edit::Kind::NodeAdded,
                       .node = &node,
                       .parent = node.ParentNode,
                       .index = node.ParentNode->ChildNodes.Count(),
                       .marksModified = marksModified,
                       .keyCounter = context.document.KeyCounter});
}

std::size_t ChosenPosition(EditorContext& context) {
    return static_cast<std::size_t>(context.view.SelectedAttribute()) + 1;
}

void DeleteTop(EditorContext& context) {
    if (!Confirm(context.ui, "Deleting this node will remove all entries. Are you \r\nsure you want to do this?",
                 "Confirm Primary node deletion.")) {
        return;
    }
    auto& open = context.document;
    context.view.ClearTree();
    Edit edit{.kind = Edit::Kind::AllRemoved, .marksModified = true, .keyCounter = open.KeyCounter};
    edit.removed = std::make_unique<document::Document>(std::move(open.document));
    open.document = document::Document();
    open.KeyCounter = 0;
    Remember(context, std::move(edit));
    ShowNoNode(context);
    SetModified(context, true);
}

} // namespace

void ShowNoNode(EditorContext& context) {
    context.document.SelectedNode = nullptr;
    context.document.canCopy = false;
    context.view.EnableAttributeArea(false);
}

void FindNodeByKey(OpenDocument& open, NodeKey key) {
    open.SelectedNode = document::FindChildByKey(open.document.Root(), key);
}

void ClickRow(EditorContext& context, NodeKey key) {
    context.document.history.EndTyping();
    context.view.EnableAttributeArea(true);
    context.view.EnableAttributeEditing(false);
    FindNodeByKey(context.document, key);
    std::vector<std::string> names;
    std::string characters;
    if (const clsNode* node = context.document.SelectedNode) {
        for (const auto& attribute : node->NodeAttributes)
            names.emplace_back(attribute.AttribName);
        characters = node->NodeCharacters;
    }
    context.view.ShowAttributeNames(names);
    context.view.ShowAttributeValue("");
    context.view.ShowCharacters(characters);
    context.document.canCopy = true;
    context.view.UpdateCommands();
}

void ClickAttribute(EditorContext& context) {
    const auto* const attribute = ChosenAttribute(context);
    if (attribute == nullptr) return;
    context.document.history.EndTyping();
    context.view.ShowAttributeValue(std::string(attribute->AttribValue));
    context.view.EnableAttributeEditing(true);
}

void EditAttributeValue(EditorContext& context, const std::string& value) {
    auto* const attribute = ChosenAttribute(context);
    if (attribute == nullptr) return;
    Remember(context, {.kind = Edit::Kind::AttributeValue,
                       .node = context.document.SelectedNode,
                       .index = ChosenPosition(context),
                       .before = std::string(attribute->AttribValue),
                       .after = value,
                       .marksModified = true});
    context.document.document.SetAttributeValue(*attribute, value);
    SetModified(context, true);
}

void EditCharacters(EditorContext& context, const std::string& text) {
    clsNode* const node = context.document.SelectedNode;
    if (node == nullptr) return;
    Remember(context, {.kind = Edit::Kind::Characters,
                       .node = node,
                       .before = std::string(node->NodeCharacters),
                       .after = text,
                       .marksModified = true});
    context.document.document.SetCharacters(*node, text);
    SetModified(context, true);
}

bool CheckNewAttributeName(UserInterface& ui, const std::string& name) {
    if (name.empty()) {
        ui.Show({.text = "Please enter a name. The value box may be left blank,\r\n"
                         "however, the name must be supplied.",
                 .icon = Icon::Critical,
                 .title = "Name missing"});
        return false;
    }
    if (HasBlank(name)) {
        ShowRefusal(ui, "Attribute names are not allowed spaces in them.", "Invalid Character");
        return false;
    }
    return true;
}

void AddAttribute(EditorContext& context) {
    clsNode* const node = context.document.SelectedNode;
    if (node == nullptr) return;
    const auto added = context.view.AskForAttribute();
    if (!added) return;
    context.document.document.AddAttribute(*node, added->name, added->value);
    Remember(context, {.kind = Edit::Kind::AttributeAdded,
                       .node = node,
                       .index = node->NodeAttributes.Count(),
                       .after = added->value,
                       .name = added->name});
    context.view.AppendAttributeName(added->name);
}

void RemoveAttribute(EditorContext& context) {
    const auto* const attribute = ChosenAttribute(context);
    if (attribute == nullptr) return;
    const int index = context.view.SelectedAttribute();
    Remember(context, {.kind = Edit::Kind::AttributeRemoved,
                       .node = context.document.SelectedNode,
                       .index = ChosenPosition(context),
                       .after = std::string(attribute->AttribValue),
                       .name = std::string(attribute->AttribName)});
    context.document.SelectedNode->NodeAttributes.Remove(static_cast<std::size_t>(index) + 1);
    context.view.RemoveAttributeName(index);
    context.view.ShowAttributeValue("");
    context.view.EnableAttributeEditing(false);
}

void RenameAttribute(EditorContext& context) {
    auto* const attribute = ChosenAttribute(context);
    if (attribute == nullptr) return;
    const std::string oldName(attribute->AttribName);
    const std::string newName =
        context.ui.AskForText("Please enter the new name for the attribute:", "Rename Attribute", oldName);
    if (newName.empty() || text::EqualNoCase(newName, oldName)) return;
    if (HasBlank(newName)) {
        ShowRefusal(context.ui, "No spaces are allowed to be used in the attribute's name", "Invalid Character");
        return;
    }
    Remember(context, {.kind = Edit::Kind::AttributeName,
                       .node = context.document.SelectedNode,
                       .index = ChosenPosition(context),
                       .before = oldName,
                       .after = newName,
                       .marksModified = true});
    context.document.document.SetAttributeName(*attribute, newName);
    context.view.SetAttributeName(context.view.SelectedAttribute(), newName);
    SetModified(context, true);
}

NodePopUp PrepareNodePopUp(const OpenDocument& open) {
    if (open.SelectedNode != nullptr && !open.SelectedNode->NodeName.empty()) return {true, kNewChildNode, true};
    if (open.KeyCounter == 0) return {true, kNewPrimaryNode, false};
    return {false, kNewChildNode, true};
}

void NewNode(EditorContext& context) {
    auto& open = context.document;
    if (PrepareNodePopUp(open).newCaption == kNewPrimaryNode) {
        open.KeyCounter = kTopKey;
        clsNode& top = open.document.AddNode(open.document.Root(), "PrimaryNode", "", kTopKey);
        RememberAddedNode(context, top, true);
        context.view.AddRow(top);
        context.view.EditRowLabel(top);
    } else {
        if (open.SelectedNode == nullptr) return;
        ++open.KeyCounter;
        clsNode& child = open.document.AddNode(*open.SelectedNode, "ChildNode", "", open.KeyCounter);
        RememberAddedNode(context, child, true);
        context.view.AddRow(child);
        context.view.EditRowLabel(child);
    }
    SetModified(context, true);
}

void RenameNode(EditorContext& context) {
    if (context.document.SelectedNode != nullptr) context.view.EditRowLabel(*context.document.SelectedNode);
}

bool FinishLabelEdit(EditorContext& context, const std::string& name) {
    if (HasBlank(name)) {
        ShowRefusal(context.ui, "Node names cannot have spaces!", "Invalid character");
        return false;
    }
    clsNode* const node = context.document.SelectedNode;
    if (node == nullptr) return false;
    Remember(context, {.kind = Edit::Kind::Name,
                       .node = node,
                       .before = std::string(node->NodeName),
                       .after = name,
                       .marksModified = true});
    context.document.document.SetName(*node, name);
    SetModified(context, true);
    return true;
}

void DeleteNode(EditorContext& context) {
    clsNode* const node = context.document.SelectedNode;
    if (node == nullptr) return;
    if (node->Key == kTopKey) {
        DeleteTop(context);
        return;
    }
    if (node->ChildNodes.Count() > 0 &&
        !Confirm(context.ui, "Delete this node and all child nodes?", "Confirm Child Bearing Node")) {
        return;
    }
    context.view.RemoveRow(*node);
    const std::size_t position = node->ParentNode->ChildNodes.PositionOf(node->Key);
    node->ParentNode->ChildNodes.Remove(position);
    Remember(context, {.kind = Edit::Kind::NodeRemoved,
                       .node = node,
                       .parent = node->ParentNode,
                       .index = position,
                       .marksModified = true});
    ShowNoNode(context);
    SetModified(context, true);
}

void CopySelectedNode(EditorContext& context) {
    auto& open = context.document;
    if (open.SelectedNode == nullptr) return;
    open.clipboard = document::Document();
    document::CopyNode(*open.SelectedNode, open.clipboard, open.clipboard.Root(), open.KeyCounter);
    open.canPaste = true;
    context.view.UpdateCommands();
}

void PasteNode(EditorContext& context) {
    auto& open = context.document;
    if (open.SelectedNode == nullptr || open.clipboard.IsEmpty()) return;
    clsNode& copy = document::CopyNode(open.clipboard.Top(), open.document, *open.SelectedNode, open.KeyCounter);
    RememberAddedNode(context, copy, false);
    context.view.AddRow(copy);
}

} // namespace tamarind::editors
