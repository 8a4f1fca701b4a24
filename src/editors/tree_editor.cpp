#include "editors/tree_editor.h"

#include "editors/document_commands.h"
#include "text/search.h"

#include <vector>

namespace tamarind::editors {

using document::clsNode;
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

void Deselect(EditorContext& context) {
    context.document.SelectedNode = nullptr;
    context.document.canCopy = false;
    context.view.EnableAttributeArea(false);
}

void DeleteTop(EditorContext& context) {
    if (!Confirm(context.ui, "Deleting this node will remove all entries. Are you \r\nsure you want to do this?",
                 "Confirm Primary node deletion.")) {
        return;
    }
    context.view.ClearTree();
    context.document.document = document::Document();
    context.document.KeyCounter = 0;
    Deselect(context);
    SetModified(context, true);
}

} // namespace

void FindNodeByKey(OpenDocument& open, NodeKey key) {
    open.SelectedNode = document::FindChildByKey(open.document.Root(), key);
}

void ClickRow(EditorContext& context, NodeKey key) {
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
    context.view.ShowAttributeValue(std::string(attribute->AttribValue));
    context.view.EnableAttributeEditing(true);
}

void EditAttributeValue(EditorContext& context, const std::string& value) {
    auto* const attribute = ChosenAttribute(context);
    if (attribute == nullptr) return;
    context.document.document.SetAttributeValue(*attribute, value);
    SetModified(context, true);
}

void EditCharacters(EditorContext& context, const std::string& text) {
    if (context.document.SelectedNode == nullptr) return;
    context.document.document.SetCharacters(*context.document.SelectedNode, text);
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
    context.view.AppendAttributeName(added->name);
}

void RemoveAttribute(EditorContext& context) {
    if (ChosenAttribute(context) == nullptr) return;
    const int index = context.view.SelectedAttribute();
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
        const clsNode& top = open.document.AddNode(open.document.Root(), "PrimaryNode", "", kTopKey);
        context.view.AddRow(top);
        context.view.EditRowLabel(top);
    } else {
        if (open.SelectedNode == nullptr) return;
        ++open.KeyCounter;
        const clsNode& child = open.document.AddNode(*open.SelectedNode, "ChildNode", "", open.KeyCounter);
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
    if (context.document.SelectedNode == nullptr) return false;
    context.document.document.SetName(*context.document.SelectedNode, name);
    SetModified(context, true);
    return true;
}

void DeleteNode(EditorContext& context) {
    const clsNode* const node = context.document.SelectedNode;
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
    node->ParentNode->ChildNodes.Remove(node->NodeKeyText());
    Deselect(context);
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
    const clsNode& copy = document::CopyNode(open.clipboard.Top(), open.document, *open.SelectedNode, open.KeyCounter);
    context.view.AddRow(copy);
}

} // namespace tamarind::editors
