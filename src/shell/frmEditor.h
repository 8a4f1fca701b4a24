#pragma once

#include "convert/texture_preview_page.h"
#include "editors/text_page.h"
#include "editors/tree_page.h"
#include "install/frmFolder3.h"
#include "platform/wx/help.h"
#include "platform/wx/wx_ui.h"
#include "routes/frmDelRoute.h"
#include "session/editor_context.h"
#include "shell/menus.h"

#include <wx/frame.h>
#include <wx/weakref.h>

#include <functional>
#include <map>
#include <string>

class wxNotebook;

namespace tamarind::shell {

/// The main window: two pages, two "Files" menus of which one is shown, and the menus of every other tool.
class frmEditor : public wxFrame, private session::EditorView {
public:
    frmEditor(session::Session& session, const platform::Platform& platform);
    ~frmEditor() override;

    /// Everything from here to the window's being ready.
    void Start(const std::string& commandLine);

    /// Carries out a command and handles an error that it does not handle itself. Commands nest: while one waits for an
    /// outside program, another can start.
    void Run(const std::function<void(session::EditorContext&)>& command);

    [[nodiscard]] session::EditorContext& Context() { return context_; }

    /// The window system's number for a menu item.
    [[nodiscard]] static int IdOf(const MenuItem& item);

private:
    void MakePages();
    void MakeMenus();
    wxMenu* MakeMenu(std::string_view name);
    void BindEvents();
    void ShowPageState();
    void PopUpNodes();
    /// What the menu of the tree holds besides the "Nodes" menu.
    void AppendTreeItems(wxMenu& menu);
    /// In the status line of this window, and of those that lie on it.
    void ShowStatus(const std::string& text);
    /// Asks whether to stop the outside program that a command is waiting for.
    void OfferToStop();
    [[nodiscard]] routes::frmTool::Owner ToolOwner();

    void OnMenu(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);
    void OnPlaced();
    /// Caret, line ends and encoding in the status line, while the text page is shown.
    void ShowTextState();
    void AcceptDroppedFiles();
    void SSTab1_Click();

    // session::EditorView
    void SetCaption(const std::string& caption) override;
    [[nodiscard]] std::string Caption() const override;
    void SetGeometry(const session::Geometry& geometry) override;
    [[nodiscard]] session::Geometry CurrentGeometry() const override;
    void ShowPage(session::Page page) override;
    void UpdateCommands() override;
    void ShowWindow() override;
    void CloseWindow() override;
    void FillEditorText(std::size_t size, const std::function<void(const session::TextSink& take)>& write) override;
    void PaintEditorText() override;
    [[nodiscard]] std::string EditorText() const override;
    [[nodiscard]] bool IsEditorTextModified() const override;
    void SetEditorTextSaved() override;
    void HighlightEditorText() override;
    void ShowTextSearch() override;
    void ShowFilePath(const std::string& path) override;
    [[nodiscard]] std::string FilePath() const override;
    void ShowTree(const document::Document& document) override;
    void ClearTree() override;
    void AddRow(const document::clsNode& node) override;
    void RemoveRow(const document::clsNode& node) override;
    void EditRowLabel(const document::clsNode& node) override;
    void ShowRowName(const document::clsNode& node) override;
    void SelectRow(const document::clsNode& node) override;
    void MarkRows(const std::vector<const document::clsNode*>& nodes) override;
    void UnmarkRows() override;
    [[nodiscard]] bool AskToGoOn() override;
    void EnableAttributeArea(bool enabled) override;
    void EnableAttributeEditing(bool enabled) override;
    void ShowAttributeNames(const std::vector<std::string>& names) override;
    void AppendAttributeName(const std::string& name) override;
    void RemoveAttributeName(int index) override;
    void SetAttributeName(int index, const std::string& name) override;
    [[nodiscard]] int SelectedAttribute() const override;
    void SelectAttribute(int index) override;
    void ShowAttributeValue(const std::string& value) override;
    void ShowCharacters(const std::string& text) override;
    [[nodiscard]] std::optional<session::NewAttribute> AskForAttribute() override;
    void ShowRoutes() override;
    void ShowAbout() override;
    bool ShowMarkers(const markers::MarkerList& list) override;
    [[nodiscard]] bool ShowHelp(const std::string& file) override;
    bool CloseRoutes() override;
    void ShowAssets() override;
    void ShowScenarioEditor() override;
    [[nodiscard]] bool ShowFolderChooser() override;
    void ShowBlueprint() override;

    session::Session& session_;
    document::OpenDocument document_;
    platform::WxUserInterface ui_;
    platform::Help help_;
    session::EditorContext context_;

    wxNotebook* ssTab1_ = nullptr;
    editors::TextPage* textPage_ = nullptr;
    convert::TexturePreviewPage* preview_ = nullptr;
    editors::TreePage* treePage_ = nullptr;
    // The windows of the tools; null while there is none.
    wxWeakRef<routes::frmDelRoute> routes_;
    wxWeakRef<install::frmFolder3> assets_;
    std::map<std::string_view, wxMenu*> menus_;
    bool textFilesMenuShown_ = true;
    wxRect normalPlace_; ///< where the window is when neither maximised nor minimised
    bool isPlaced_ = false;

    int runningCommands_ = 0;
    bool isWaiting_ = false; ///< for an outside program
    bool closesAfterwards_ = false;
    bool stopsProgram_ = false;
    bool hasFailed_ = false;
};

} // namespace tamarind::shell
