#include "windows/editor_window.h"

#include "platform/myfile.h"
#include "serz/binary_format.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/statusbr.h>
#include <wx/stc/stc.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tamarind::tests {

using platform::FromWx;
using platform::ToWx;

namespace {

/// Long enough for a menu to take the keyboard.
constexpr milliseconds kPopUpTime(300);
constexpr const char* kUsualGeometry = "15000,10500,600,600";

const shell::MenuItem& ItemNamed(const std::string& name) {
    const auto items = shell::MenuItems();
    const auto found = std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.name == name; });
    if (found == items.end()) throw std::logic_error("no menu item " + name);
    return *found;
}

void SendMenu(wxWindow& window, int id) {
    wxCommandEvent event(wxEVT_MENU, id);
    event.SetEventObject(&window);
    window.GetEventHandler()->ProcessEvent(event);
}

/// Runs a function once, then stays silent.
class OneShot : public wxTimer {
public:
    explicit OneShot(std::function<void()> action) : action_(std::move(action)) {}
    void Notify() override { action_(); }

private:
    std::function<void()> action_;
};

} // namespace

void Pump() {
    auto* const loop = wxEventLoopBase::GetActive();
    loop->YieldFor(wxEVT_CATEGORY_ALL);
    loop->ProcessIdle();
}

bool PumpUntil(const std::function<bool()>& reached, milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!reached()) {
        if (std::chrono::steady_clock::now() > end) return false;
        Pump();
        wxMilliSleep(1);
    }
    return true;
}

void PumpFor(milliseconds duration) {
    const auto end = std::chrono::steady_clock::now() + duration;
    PumpUntil([end] { return std::chrono::steady_clock::now() > end; }, 2 * duration);
}

void Press(wxWindow& button) {
    ASSERT_TRUE(button.IsEnabled()) << FromWx(button.GetName());
    wxCommandEvent event(wxEVT_BUTTON, button.GetId());
    event.SetEventObject(&button);
    button.GetEventHandler()->ProcessEvent(event);
}

Environment::Environment(const char* name, const std::string& value) : name_(name) { wxSetEnv(name, ToWx(value)); }

Environment::~Environment() { wxUnsetEnv(name_); }

EditorWindow::EditorWindow() {
    session_.ProgramFolder = program_;
    const std::string serz = platform::ExecutableFolder() + "\\serz.exe";
    files_->CopyAttributes(serz, folder_.Write("Program\\serz.exe", platform::ReadBytes(*files_, serz)));
}

EditorWindow::~EditorWindow() {
    timers_.clear();
    if (window_) window_->Destroy();
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

void EditorWindow::WriteSettings(const std::string& geometry, bool xmlEditorDefault) {
    folder_.Write("Program\\preferences.txt",
                  geometry + ",\"\",\"\",\"" + game_ + "\"," + (xmlEditorDefault ? "#TRUE#" : "#FALSE#") + "\r\n");
}

void EditorWindow::Open(const std::string& commandLine) {
    if (!Exists(program_ + "\\preferences.txt")) WriteSettings(kUsualGeometry, false);
    window_ = new shell::frmEditor(session_, {*files_, *processes_, registry_});
    window_->Start(commandLine);
    EXPECT_TRUE(PumpUntil([this] { return !window_ || window_->IsShownOnScreen(); }));
    Pump();
}

void EditorWindow::OpenWithTreeEditor(const std::string& commandLine) {
    WriteSettings(kUsualGeometry, true);
    Open(commandLine);
}

std::string EditorWindow::WriteGameFile(const std::string& name, const std::string& xml) {
    return folder_.Write("Rail Simulator\\" + name, samples::EncodeBinary(xml));
}

std::string EditorWindow::XmlOf(const std::string& gameFile) const {
    return samples::DecodeBinary(ReadFile(gameFile)).value_or("(not a game file)");
}

std::string EditorWindow::ReadFile(const std::string& path) const { return platform::ReadBytes(*files_, path); }

bool EditorWindow::Exists(const std::string& path) const { return files_->EntryExists(path); }

wxWindow& EditorWindow::FindControl(const std::string& name) {
    wxWindow* const found = wxWindow::FindWindowByName(ToWx(name), window_);
    // The search also takes captions for names.
    if (found == nullptr || found->GetName() != ToWx(name)) throw std::runtime_error("no control named " + name);
    return *found;
}

std::string EditorWindow::Status() const { return FromWx(window_->GetStatusBar()->GetStatusText()); }

std::string EditorWindow::EditorText() { return FromWx(Find<wxStyledTextCtrl>("RichTextBox1").GetText()); }

void EditorWindow::TypeText(const std::string& text) {
    auto& editor = Find<wxStyledTextCtrl>("RichTextBox1");
    editor.SelectAll();
    editor.ReplaceSelection(ToWx(text));
}

void EditorWindow::Choose(const std::string& item) {
    const int id = shell::frmEditor::IdOf(ItemNamed(item));
    const wxMenuItem* const shown = window_->GetMenuBar()->FindItem(id);
    ASSERT_NE(shown, nullptr) << item << " is in no menu now";
    ASSERT_TRUE(shown->IsEnabled()) << item;
    SendMenu(*window_, id);
}

void EditorWindow::ChooseNode(const std::string& item) {
    ASSERT_TRUE(shell::IsItemEnabled(ItemNamed(item), window_->Context())) << item;
    SendMenu(*window_, shell::frmEditor::IdOf(ItemNamed(item)));
}

wxTreeItemId EditorWindow::Row(const wxTreeItemId& parent, const std::string& text) {
    wxTreeItemIdValue cookie = nullptr;
    wxTreeItemId row = Tree().GetFirstChild(parent, cookie);
    while (row.IsOk() && Tree().GetItemText(row) != ToWx(text))
        row = Tree().GetNextChild(parent, cookie);
    return row;
}

void EditorWindow::ClickRow(const wxTreeItemId& row) {
    ASSERT_TRUE(row.IsOk());
    if (Tree().GetSelection() == row) {
        // The control selects a row by itself when it gets the focus; a click on it must count all the same.
        wxRect place;
        ASSERT_TRUE(Tree().GetBoundingRect(row, place, true));
        wxMouseEvent event(wxEVT_LEFT_DOWN);
        event.SetPosition(place.GetPosition() + wxPoint(place.width / 2, place.height / 2));
        Tree().GetEventHandler()->ProcessEvent(event);
    } else {
        Tree().SelectItem(row);
    }
    Pump();
}

void EditorWindow::ClickAttribute(int index) {
    auto& list = Find<wxListBox>("lstAttributes");
    ASSERT_TRUE(list.IsEnabled());
    list.SetSelection(index);
    wxCommandEvent event(wxEVT_LISTBOX, list.GetId());
    event.SetEventObject(&list);
    list.GetEventHandler()->ProcessEvent(event);
}

void EditorWindow::FinishLabel(const std::string& name) {
    ASSERT_TRUE(PumpUntil([this] { return Tree().GetEditControl() != nullptr; }));
    Tree().GetEditControl()->SetValue(ToWx(name));
    Tree().EndEditLabel(Tree().GetSelection(), false);
    Pump();
}

std::vector<std::string> EditorWindow::RowTexts(const wxTreeItemId& parent) {
    std::vector<std::string> texts;
    wxTreeItemIdValue cookie = nullptr;
    for (wxTreeItemId row = Tree().GetFirstChild(parent, cookie); row.IsOk();
         row = Tree().GetNextChild(parent, cookie)) {
        texts.push_back(FromWx(Tree().GetItemText(row)));
    }
    return texts;
}

ShownItems EditorWindow::PopUpAfter(const std::function<void()>& action) {
    ShownItems shown;
    bool isOpen = false;
    const auto read = [&](wxMenuEvent& event) {
        isOpen = true;
        for (const wxMenuItem* const item : event.GetMenu()->GetMenuItems()) {
            shown[FromWx(item->GetItemLabel())] = item->IsEnabled();
        }
        Later(kPopUpTime, [] { wxUIActionSimulator().Char(WXK_ESCAPE); });
    };
    const auto close = [&isOpen](wxMenuEvent&) { isOpen = false; };
    window_->Bind(wxEVT_MENU_OPEN, read);
    window_->Bind(wxEVT_MENU_CLOSE, close);
    action();
    PumpUntil([&] { return !shown.empty() && !isOpen; }, milliseconds(5000));
    window_->Unbind(wxEVT_MENU_OPEN, read);
    window_->Unbind(wxEVT_MENU_CLOSE, close);
    return shown;
}

void EditorWindow::Later(milliseconds delay, std::function<void()> action) {
    timers_.push_back(std::make_unique<OneShot>(std::move(action)));
    timers_.back()->StartOnce(static_cast<int>(delay.count()));
}

void EditorWindow::Close() {
    window_->Close();
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

} // namespace tamarind::tests
