#pragma once

#include "session/editor_view.h"

#include <utility>

namespace tamarind::session {

/// A main window that nobody sees: it keeps the texts, so that commands run without a window system.
class HeadlessView : public EditorView {
public:
    void SetCaption(const std::string& caption) override { caption_ = caption; }
    [[nodiscard]] std::string Caption() const override { return caption_; }
    void SetGeometry(const Geometry& geometry) override { geometry_ = geometry; }
    [[nodiscard]] Geometry CurrentGeometry() const override { return geometry_; }
    void ShowPage(Page) override {}
    void UpdateCommands() override {}
    void ShowWindow() override {}
    void CloseWindow() override {}
    void FillEditorText(std::size_t size, const std::function<void(const TextSink& take)>& write) override {
        std::string text;
        text.reserve(size);
        write([&text](std::string_view piece) { text += piece; });
        text_ = std::move(text);
    }
    void PaintEditorText() override {}
    [[nodiscard]] std::string EditorText() const override { return text_; }
    [[nodiscard]] bool IsEditorTextModified() const override { return false; }
    void SetEditorTextSaved() override {}
    void HighlightEditorText() override {}
    void ShowTextSearch() override {}
    void ShowFilePath(const std::string& path) override { filePath_ = path; }
    [[nodiscard]] std::string FilePath() const override { return filePath_; }
    void ShowTree(const document::Document&) override {}
    void ClearTree() override {}
    void AddRow(const document::clsNode&) override {}
    void RemoveRow(const document::clsNode&) override {}
    void EditRowLabel(const document::clsNode&) override {}
    void ShowRowName(const document::clsNode&) override {}
    void SelectRow(const document::clsNode&) override {}
    void MarkRows(const std::vector<const document::clsNode*>&) override {}
    void UnmarkRows() override {}
    [[nodiscard]] bool AskToGoOn() override { return true; }
    void EnableAttributeArea(bool) override {}
    void EnableAttributeEditing(bool) override {}
    void ShowAttributeNames(const std::vector<std::string>&) override {}
    void AppendAttributeName(const std::string&) override {}
    void RemoveAttributeName(int) override {}
    void SetAttributeName(int, const std::string&) override {}
    [[nodiscard]] int SelectedAttribute() const override { return -1; }
    void SelectAttribute(int) override {}
    void ShowAttributeValue(const std::string&) override {}
    void ShowCharacters(const std::string&) override {}
    [[nodiscard]] std::optional<NewAttribute> AskForAttribute() override { return std::nullopt; }
    void ShowRoutes() override {}
    void ShowAbout() override {}
    [[nodiscard]] bool ShowHelp(const std::string&) override { return false; }
    bool CloseRoutes() override { return true; }
    void ShowAssets() override {}
    void ShowScenarioEditor() override {}
    [[nodiscard]] bool ShowMarkers(const markers::MarkerList&) override { return true; }
    [[nodiscard]] bool ShowFolderChooser() override { return false; }
    void ShowBlueprint() override {}

private:
    std::string caption_;
    Geometry geometry_;
    std::string text_;
    std::string filePath_;
};

} // namespace tamarind::session
