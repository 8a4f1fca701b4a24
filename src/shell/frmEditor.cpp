#include "shell/frmEditor.h"

#include "editors/tree_editor.h"
#include "editors/tree_undo.h"
#include "editors/xml_text_page.h"
#include "platform/wx/file_drop.h"
#include "platform/wx/front_window.h"
#include "platform/wx/status_line.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"
#include "shell/closing.h"
#include "shell/start_up.h"
#include "text/runtime_error.h"

#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>

#include <memory>
#include <utility>
#include <vector>

namespace tamarind::shell {

using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kFirstItemId = wxID_HIGHEST + 1;
const wxSize kDesignSize(1000, 700);

/// Of the status line: what the commands tell, then of the text page the caret, the line ends and the encoding.
constexpr int kStatusFields = 4;
constexpr int kCaretField = 1;
constexpr int kLineEndField = 2;
constexpr int kEncodingField = 3;
constexpr int kStatusGapLetters = 5;

} // namespace

int frmEditor::IdOf(const MenuItem& item) { return kFirstItemId + static_cast<int>(&item - MenuItems().data()); }

frmEditor::frmEditor(session::Session& session, const platform::Platform& platform)
    : wxFrame(nullptr, wxID_ANY, kDesignCaption, wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE, "frmEditor"),
      session_(session), ui_({.parent = [this] { return platform::FrontWindow(this); },
                              .showStatus = [this](const std::string& text) { ShowStatus(text); },
                              .setWaiting = [this](bool waiting) { isWaiting_ = waiting; },
                              .stopRequested = [this] { return std::exchange(stopsProgram_, false); }}),
      help_(*this), context_{session, document_, platform, ui_, *this} {
    // A frame's own colour is that of an empty work space on Windows.
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    SetSize(FromDIP(kDesignSize));
    CreateStatusBar(kStatusFields);
    // Behind the last field lies the corner by which the window is drawn larger.
    const auto widthOf = [this](const char* text) {
        return GetStatusBar()->GetTextExtent(text).x + kStatusGapLetters * GetCharWidth();
    };
    const int widths[kStatusFields] = {-1, widthOf("Line 9999999, Column 9999"), widthOf("CR LF"),
                                       widthOf("Windows-1252")};
    SetStatusWidths(kStatusFields, widths);
    MakePages();
    MakeMenus();
    platform::SetWindowIcons(*this);
    // Nothing on the pages is ever cut off.
    SetMinSize(GetSizer()->ComputeFittingWindowSize(this));
    normalPlace_ = GetRect();
    BindEvents();
}

frmEditor::~frmEditor() {
    // The "Files" menu that is not in the menu bar belongs to nobody else.
    delete menus_[textFilesMenuShown_ ? "mnuFile" : "mnuFileS"];
}

void frmEditor::Start(const std::string& commandLine) {
    Run([&commandLine](EditorContext& context) { StartUp(context, commandLine); });
}

void frmEditor::MakePages() {
    ssTab1_ = new wxNotebook(this, wxID_ANY);
    ssTab1_->SetName("SSTab1");
    textPage_ = new editors::TextPage(
        ssTab1_, [this](const auto& command) { Run(command); }, [this] { ShowTextState(); });
    preview_ = new convert::TexturePreviewPage(
        textPage_->ParentOfPanes(), [this] { return textPage_->TextView(); }, [this] { textPage_->ShowTextAlone(); });
    preview_->Hide();
    treePage_ = new editors::TreePage(
        ssTab1_, [this](const auto& command) { Run(command); }, [this] { PopUpNodes(); });
    ssTab1_->AddPage(textPage_, "Tamarind Editor");
    ssTab1_->AddPage(treePage_, "XML Editor");
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(ssTab1_, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(8)));
    SetSizer(outer);
}

wxMenu* frmEditor::MakeMenu(std::string_view name) {
    auto* const menu = new wxMenu;
    for (const MenuItem& item : MenuItems()) {
        if (item.menu != name) continue;
        wxString label = ToWx(item.caption);
        if (!item.shortcut.empty()) label += "\t" + ToWx(item.shortcut);
        menu->Append(IdOf(item), label);
    }
    return menu;
}

void frmEditor::MakeMenus() {
    auto* const bar = new wxMenuBar;
    for (const Menu& menu : Menus()) {
        if (menu.name == "mnuNodePopUp") continue;
        menus_[menu.name] = MakeMenu(menu.name);
        if (menu.name != "mnuFile") bar->Append(menus_[menu.name], ToWx(menu.caption));
    }
    SetMenuBar(bar);
}

void frmEditor::BindEvents() {
    Bind(wxEVT_MENU, &frmEditor::OnMenu, this);
    Bind(wxEVT_CLOSE_WINDOW, &frmEditor::OnClose, this);
    const auto placed = [this](auto& event) {
        OnPlaced();
        event.Skip();
    };
    Bind(wxEVT_SIZE, [placed](wxSizeEvent& event) { placed(event); });
    Bind(wxEVT_MOVE, [placed](wxMoveEvent& event) { placed(event); });
    AcceptDroppedFiles();
    // The keys of a page hold on its tab, too.
    ssTab1_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        wxWindow* const page = ssTab1_->HasFocus() ? ssTab1_->GetCurrentPage() : nullptr;
        if (page == nullptr || !page->GetEventHandler()->ProcessEventLocally(event)) event.Skip();
    });
    ssTab1_->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        SSTab1_Click();
        event.Skip();
    });
}

void frmEditor::Run(const std::function<void(EditorContext&)>& command) {
    if (hasFailed_) return;
    ++runningCommands_;
    try {
        command(context_);
    } catch (const text::RuntimeError& error) {
        hasFailed_ = true;
        ReportFatalError(context_, error);
    }
    --runningCommands_;
    if (runningCommands_ > 0) return;
    if (hasFailed_) {
        Destroy();
    } else if (closesAfterwards_) {
        closesAfterwards_ = false;
        CallAfter([this] { Close(); });
    }
}

void frmEditor::OnMenu(wxCommandEvent& event) {
    const int index = event.GetId() - kFirstItemId;
    if (index < 0 || index >= static_cast<int>(MenuItems().size())) {
        event.Skip();
        return;
    }
    const MenuItem& item = MenuItems()[static_cast<std::size_t>(index)];
    if (IsItemEnabled(item, context_)) Run(item.command);
}

void frmEditor::OnClose(wxCloseEvent& event) {
    if (runningCommands_ > 0 && event.CanVeto()) {
        event.Veto();
        if (closesAfterwards_) OfferToStop();
        closesAfterwards_ = true;
        ui_.ShowStatus("The window closes when the running command has ended.");
        return;
    }
    bool mayClose = false;
    Run([&mayClose](EditorContext& context) { mayClose = MayClose(context); });
    if (hasFailed_) return;
    if (!mayClose && event.CanVeto()) {
        event.Veto();
        return;
    }
    if (routes_) routes_->Close(true);
    if (assets_) assets_->Close(true);
    Destroy();
}

void frmEditor::OfferToStop() {
    if (!isWaiting_) return;
    const auto answer = ui_.Show({.text = "The outside program is still running. Stop it?",
                                  .icon = platform::Icon::Question,
                                  .buttons = platform::Buttons::YesNo});
    stopsProgram_ = answer == platform::Answer::Yes && isWaiting_;
}

void frmEditor::ShowStatus(const std::string& text) {
    SetStatusText(ToWx(text));
    if (routes_) routes_->ShowStatus(text);
    if (assets_) assets_->ShowStatus(text);
    if (auto* const front = dynamic_cast<platform::StatusLine*>(platform::FrontWindow(this))) front->ShowStatus(text);
}

void frmEditor::ShowTextState() {
    editors::TextPage::StateText state;
    if (ssTab1_->GetSelection() == 0) state = textPage_->State();
    const std::pair<int, const std::string&> fields[] = {
        {kCaretField, state.caret}, {kLineEndField, state.lineEnds}, {kEncodingField, state.encoding}};
    for (const auto& [field, text] : fields) {
        if (GetStatusBar()->GetStatusText(field) != ToWx(text)) SetStatusText(ToWx(text), field);
    }
}

void frmEditor::AcceptDroppedFiles() {
    const auto open = [this](const std::vector<std::string>& paths) {
        Run([&paths](EditorContext& context) { OpenFile(context, paths.front()); });
    };
    platform::AcceptFiles(*this, open);
    platform::AcceptFiles(treePage_->Rows(), open);
    platform::AcceptFiles(textPage_->Editor(), open);
}

void frmEditor::OnPlaced() {
    if (isPlaced_ && !IsMaximized() && !IsIconized()) normalPlace_ = GetRect();
}

void frmEditor::SSTab1_Click() { ShowPageState(); }

void frmEditor::ShowPageState() {
    const auto state = editors::StateOfPages(session_);
    textPage_->ShowState(state);
    treePage_->ShowState(state);
    if (state.textFilesMenu != textFilesMenuShown_) {
        textFilesMenuShown_ = state.textFilesMenu;
        GetMenuBar()->Replace(0, menus_[textFilesMenuShown_ ? "mnuFileS" : "mnuFile"], "Files");
    }
    UpdateCommands();
    ShowTextState();
}

void frmEditor::PopUpNodes() {
    const auto state = editors::PrepareNodePopUp(document_);
    if (!state.isShown) return;
    const std::unique_ptr<wxMenu> menu(MakeMenu("mnuNodePopUp"));
    for (const MenuItem& item : MenuItems()) {
        if (item.menu != "mnuNodePopUp") continue;
        if (item.name == "mnuNodePopUpNew") menu->SetLabel(IdOf(item), ToWx(state.newCaption));
        menu->Enable(IdOf(item), IsItemEnabled(item, context_));
    }
    AppendTreeItems(*menu);
    PopupMenu(menu.get());
}

void frmEditor::AppendTreeItems(wxMenu& menu) {
    const auto add = [&menu](const char* label, bool isEnabled, const std::function<void()>& action) {
        wxMenuItem* const item = menu.Append(wxID_ANY, label);
        item->Enable(isEnabled);
        menu.Bind(
            wxEVT_MENU, [action](wxCommandEvent&) { action(); }, item->GetId());
    };
    menu.AppendSeparator();
    add("Undo\tCtrl+Z", editors::CanUndo(context_), [this] { Run(editors::UndoEdit); });
    add("Redo\tCtrl+Y", editors::CanRedo(context_), [this] { Run(editors::RedoEdit); });
    menu.AppendSeparator();
    const bool hasRows = !document_.document.IsEmpty();
    add("Expand All\tCtrl+Shift+Right", hasRows, [this] { treePage_->Rows().ExpandEverything(); });
    add("Collapse All\tCtrl+Shift+Left", hasRows, [this] { treePage_->Rows().CollapseEverything(); });
    add("Copy Path\tCtrl+Shift+C", document_.SelectedNode != nullptr, [this] { treePage_->CopyPath(); });
}

} // namespace tamarind::shell
