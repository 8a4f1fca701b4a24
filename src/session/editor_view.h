#pragma once

#include "document/clsNode.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::markers {
struct MarkerList;
}

namespace tamarind::session {

enum class Page { Text = 0, Tree = 1 };

/// Position and size of the main window in twips (1/1440 inch at 96 dpi, so 15 to a pixel).
struct Geometry {
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::int16_t top = 0;
    std::int16_t left = 0;
    bool operator==(const Geometry&) const = default;
};

struct NewAttribute {
    std::string name;
    std::string value;
};

/// Takes a text piece by piece.
using TextSink = std::function<void(std::string_view piece)>;

/// What the commands need of the main window. Indices count from 0, -1 is none.
class EditorView {
public:
    virtual ~EditorView() = default;

    // The window.
    virtual void SetCaption(const std::string& caption) = 0;
    [[nodiscard]] virtual std::string Caption() const = 0;
    virtual void SetGeometry(const Geometry& geometry) = 0;
    [[nodiscard]] virtual Geometry CurrentGeometry() const = 0;
    virtual void ShowPage(Page page) = 0;
    /// Menus and buttons follow the state of session and document.
    virtual void UpdateCommands() = 0;
    virtual void ShowWindow() = 0;
    virtual void CloseWindow() = 0;

    // The text page.
    /// Replaces the text by what `write` hands over: a large one is never in memory twice. `size` in bytes is a guess
    /// for the room to make. When `write` throws, the old text stays if nothing was handed over yet; else there is no
    /// text, rather than half of one that could be saved.
    virtual void FillEditorText(std::size_t size, const std::function<void(const TextSink& take)>& write) = 0;
    void SetEditorText(std::string_view text) {
        FillEditorText(text.size(), [text](const TextSink& take) { take(text); });
    }
    /// Returns once the text set last is painted, or soon where the page is not visible.
    virtual void PaintEditorText() = 0;
    [[nodiscard]] virtual std::string EditorText() const = 0;
    /// Whether the person has changed the text since it was set or saved.
    [[nodiscard]] virtual bool IsEditorTextModified() const = 0;
    virtual void SetEditorTextSaved() = 0;
    /// Colours the text as XML; its characters and what can be undone stay as they are. The caret goes behind the first
    /// character.
    virtual void HighlightEditorText() = 0;
    /// The dialog that searches the text; one that is open comes to the front.
    virtual void ShowTextSearch() = 0;
    /// The open file's path in Text1 and Label2.
    virtual void ShowFilePath(const std::string& path) = 0;
    /// What stands in Text1 now.
    [[nodiscard]] virtual std::string FilePath() const = 0;

    // The rows of the tree.
    /// Rows for the whole document, the top one expanded, none selected.
    virtual void ShowTree(const document::Document& document) = 0;
    virtual void ClearTree() = 0;
    /// A row for a node that was just put among its parent's children, with rows for all below it.
    virtual void AddRow(const document::clsNode& node) = 0;
    /// Before the node is taken out of its parent.
    virtual void RemoveRow(const document::clsNode& node) = 0;
    virtual void EditRowLabel(const document::clsNode& node) = 0;
    /// The node's name was changed.
    virtual void ShowRowName(const document::clsNode& node) = 0;
    /// Selects the row and brings it into view, without a click on it.
    virtual void SelectRow(const document::clsNode& node) = 0;
    /// Shows these rows in bold, in addition to those that are.
    virtual void MarkRows(const std::vector<const document::clsNode*>& nodes) = 0;
    /// No row is bold any more.
    virtual void UnmarkRows() = 0;
    /// Asks, when a row was found, whether to go on searching.
    [[nodiscard]] virtual bool AskToGoOn() = 0;

    // The attribute area.
    /// Everything in it; disabling also empties it.
    virtual void EnableAttributeArea(bool enabled) = 0;
    /// Remove, Rename and the value box, which need a selected attribute.
    virtual void EnableAttributeEditing(bool enabled) = 0;
    virtual void ShowAttributeNames(const std::vector<std::string>& names) = 0;
    virtual void AppendAttributeName(const std::string& name) = 0;
    virtual void RemoveAttributeName(int index) = 0;
    virtual void SetAttributeName(int index, const std::string& name) = 0;
    [[nodiscard]] virtual int SelectedAttribute() const = 0;
    virtual void SelectAttribute(int index) = 0;
    virtual void ShowAttributeValue(const std::string& value) = 0;
    virtual void ShowCharacters(const std::string& text) = 0;
    /// Nothing when the dialog was cancelled.
    [[nodiscard]] virtual std::optional<NewAttribute> AskForAttribute() = 0;

    // Windows of the tools. They stay open beside the main window and close with it.
    /// Opens the routes window for the job that the session's RouteState names; one that is open comes to the front.
    virtual void ShowRoutes() = 0;
    virtual void ShowAbout() = 0;
    /// The help's table of contents. `file` is a program's path, whether it exists or not; false when it cannot be
    /// shown.
    [[nodiscard]] virtual bool ShowHelp(const std::string& file) = 0;
    /// Closes the routes window; false when it stays open, since a command of its is running.
    virtual bool CloseRoutes() = 0;
    /// Opens the asset packager's window; one that is open comes to the front.
    virtual void ShowAssets() = 0;
    /// Opens the scenario editor on what the session's ScenarioEditState holds, and returns when it is closed.
    virtual void ShowScenarioEditor() = 0;
    /// Shows what was read from a marker file, as a picture and as a list; false when it is not to be saved.
    [[nodiscard]] virtual bool ShowMarkers(const markers::MarkerList& list) = 0;
    /// Opens the window that chooses a folder for the job that the session's AuthoringState names, and returns when it
    /// is closed; whether the choice was confirmed.
    [[nodiscard]] virtual bool ShowFolderChooser() = 0;
    /// Opens the window that makes a blueprint of the session's mode, and returns when it is closed.
    virtual void ShowBlueprint() = 0;
};

} // namespace tamarind::session
