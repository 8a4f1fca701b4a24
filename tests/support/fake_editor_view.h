#pragma once

#include "markers/marker_list.h"
#include "session/headless_view.h"

#include <optional>
#include <string>
#include <vector>

namespace tamarind::tests {

/// A main window that nobody sees, with the state of its controls and a record of what was done to the tree.
class FakeEditorView : public session::HeadlessView {
public:
    /// Rows and pages, in order: "ShowTree", "ClearTree", "AddRow nod2", "RemoveRow nod2", "EditRowLabel nod2",
    /// "ShowPage text", "ShowPage tree", "SetGeometry", "ShowWindow", "CloseWindow", "ShowRoutes", "ShowAbout",
    /// "ShowHelp C:\\Kit\\Tamarind.chm", "ShowRowName nod2", "SelectRow nod2", "MarkRow nod2", "UnmarkRows",
    /// "HighlightEditorText", "ShowTextSearch", "CloseRoutes", "ShowAssets", "ShowFolderChooser", "ShowBlueprint".
    std::vector<std::string> calls;
    bool hasHelp = true; ///< what ShowHelp answers

    session::Page page = session::Page::Text;
    bool isTextModified = false;
    bool isAreaEnabled = false;
    bool isEditingEnabled = false;
    std::vector<std::string> attributeNames;
    bool closesRoutes = true; ///< what CloseRoutes answers
    bool savesMarkers = true; ///< what ShowMarkers answers
    int selectedAttribute = -1;
    std::string attributeValue;
    std::string characters;
    std::optional<session::NewAttribute> newAttribute; ///< what the dialog returns
    int updates = 0;                                   ///< of menus and buttons
    int goOnTimes = 0;                                 ///< how often AskToGoOn is answered with Yes, then No
    std::function<void()> onAskToGoOn;                 ///< called while that dialog is open
    std::function<bool()> onFolderChooser;             ///< what a person does in that window; whether it is confirmed

    /// As a person who changes the text.
    void TypeText(const std::string& text) {
        SetEditorText(text);
        isTextModified = true;
    }

    void SetGeometry(const session::Geometry& geometry) override {
        calls.emplace_back("SetGeometry");
        HeadlessView::SetGeometry(geometry);
    }
    void ShowPage(session::Page shown) override {
        page = shown;
        calls.emplace_back(shown == session::Page::Tree ? "ShowPage tree" : "ShowPage text");
    }
    void UpdateCommands() override { ++updates; }
    void ShowWindow() override { calls.emplace_back("ShowWindow"); }
    void CloseWindow() override { calls.emplace_back("CloseWindow"); }
    void FillEditorText(std::size_t size, const std::function<void(const session::TextSink& take)>& write) override {
        HeadlessView::FillEditorText(size, write);
        isTextModified = false;
    }
    [[nodiscard]] bool IsEditorTextModified() const override { return isTextModified; }
    void SetEditorTextSaved() override { isTextModified = false; }

    void ShowTree(const document::Document&) override { calls.emplace_back("ShowTree"); }
    void ClearTree() override { calls.emplace_back("ClearTree"); }
    void AddRow(const document::clsNode& node) override { calls.push_back("AddRow " + node.NodeKeyText()); }
    void RemoveRow(const document::clsNode& node) override { calls.push_back("RemoveRow " + node.NodeKeyText()); }
    void EditRowLabel(const document::clsNode& node) override { calls.push_back("EditRowLabel " + node.NodeKeyText()); }
    void ShowRowName(const document::clsNode& node) override { calls.push_back("ShowRowName " + node.NodeKeyText()); }
    void SelectRow(const document::clsNode& node) override { calls.push_back("SelectRow " + node.NodeKeyText()); }
    void MarkRows(const std::vector<const document::clsNode*>& nodes) override {
        for (const document::clsNode* const node : nodes)
            calls.push_back("MarkRow " + node->NodeKeyText());
    }
    void UnmarkRows() override { calls.emplace_back("UnmarkRows"); }
    [[nodiscard]] bool AskToGoOn() override {
        calls.emplace_back("AskToGoOn");
        if (onAskToGoOn) onAskToGoOn();
        return goOnTimes-- > 0;
    }
    void HighlightEditorText() override { calls.emplace_back("HighlightEditorText"); }
    void ShowTextSearch() override { calls.emplace_back("ShowTextSearch"); }
    void ShowAbout() override { calls.emplace_back("ShowAbout"); }
    [[nodiscard]] bool ShowHelp(const std::string& file) override {
        calls.push_back("ShowHelp " + file);
        return hasHelp;
    }

    void EnableAttributeArea(bool enabled) override {
        isAreaEnabled = isEditingEnabled = enabled;
        if (!enabled) {
            attributeNames.clear();
            selectedAttribute = -1;
            attributeValue.clear();
            characters.clear();
        }
    }
    void EnableAttributeEditing(bool enabled) override { isEditingEnabled = enabled; }
    void ShowAttributeNames(const std::vector<std::string>& names) override {
        attributeNames = names;
        selectedAttribute = -1;
    }
    void AppendAttributeName(const std::string& name) override { attributeNames.push_back(name); }
    void RemoveAttributeName(int index) override {
        attributeNames.erase(attributeNames.begin() + index);
        selectedAttribute = -1;
    }
    void SetAttributeName(int index, const std::string& name) override {
        attributeNames[static_cast<std::size_t>(index)] = name;
    }
    [[nodiscard]] int SelectedAttribute() const override { return selectedAttribute; }
    void SelectAttribute(int index) override { selectedAttribute = index; }
    void ShowAttributeValue(const std::string& value) override { attributeValue = value; }
    void ShowCharacters(const std::string& text) override { characters = text; }
    [[nodiscard]] std::optional<session::NewAttribute> AskForAttribute() override { return newAttribute; }
    void ShowRoutes() override { calls.emplace_back("ShowRoutes"); }
    bool CloseRoutes() override {
        calls.emplace_back("CloseRoutes");
        return closesRoutes;
    }
    void ShowAssets() override { calls.emplace_back("ShowAssets"); }
    void ShowScenarioEditor() override { calls.emplace_back("ShowScenarioEditor"); }
    [[nodiscard]] bool ShowMarkers(const markers::MarkerList& list) override {
        calls.push_back("ShowMarkers " + list.text);
        return savesMarkers;
    }
    [[nodiscard]] bool ShowFolderChooser() override {
        calls.emplace_back("ShowFolderChooser");
        return onFolderChooser && onFolderChooser();
    }
    void ShowBlueprint() override { calls.emplace_back("ShowBlueprint"); }
};

} // namespace tamarind::tests
