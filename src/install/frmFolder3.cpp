#include "install/frmFolder3.h"

#include "platform/wx/line_height.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include <algorithm>
#include <utility>

namespace tamarind::install {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
constexpr int kCharactersInFolders = 32;
constexpr int kCharactersInFiles = 24;
constexpr int kCharactersInPackage = 44;
constexpr int kFewestCharacters = 14;
constexpr int kLinesInFolders = 16;
constexpr int kFewestLines = 6;

wxArrayString ToArray(const std::vector<std::string>& items) {
    wxArrayString texts;
    texts.Alloc(items.size());
    for (const std::string& item : items)
        texts.Add(ToWx(item));
    return texts;
}

/// Filling a list again would lose its place.
void Fill(wxListBox& list, const std::vector<std::string>& items) {
    const wxArrayString texts = ToArray(items);
    if (list.GetStrings() != texts) list.Set(texts);
}

std::vector<std::size_t> SelectedOf(const wxListBox& list) {
    wxArrayInt items;
    list.GetSelections(items);
    std::vector<std::size_t> rows(items.begin(), items.end());
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// The label stands right before its control in the order of the Tab key, so that its mnemonic leads there.
wxStaticText* MakeLabel(wxWindow* parent, const char* text) { return new wxStaticText(parent, wxID_ANY, text); }

} // namespace

frmFolder3::frmFolder3(wxWindow* parent, EditorContext& context, AssetWindow window, Owner owner)
    : frmTool(parent, kAssetWindowTitle, "frmFolder3", std::move(owner)), context_(context),
      window_(std::move(window)) {
    MakeControls();
    BindEvents();
    ShowState();
    folders_.Folders().SetFocus();
    CentreOnParent();
}

wxListBox* frmFolder3::MakeList(const char* name, long style) {
    auto* const list = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                     style | wxLB_HSCROLL | wxLB_NEEDED_SB);
    list->SetName(name);
    return list;
}

wxButton* frmFolder3::MakeButton(AssetControl control, const char* name, char mnemonic, void (frmFolder3::*click)()) {
    std::string caption = CaptionOf(control);
    caption.insert(caption.find(mnemonic), 1, '&');
    const int id = control == AssetControl::Command2 ? wxID_CANCEL : wxID_ANY;
    auto* const button = new wxButton(this, id, ToWx(caption));
    button->SetName(name);
    if (click != nullptr) button->Bind(wxEVT_BUTTON, [this, click](wxCommandEvent&) { (this->*click)(); });
    buttons_[control] = button;
    return button;
}

wxSizer* frmFolder3::MakeFiles() {
    const int half = FromDIP(kGap) / 2;
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(MakeLabel(this, "File pa&ttern"), wxSizerFlags().Border(wxBOTTOM, half));
    text2_ = new wxTextCtrl(this, wxID_ANY);
    text2_->SetName("Text2");
    platform::GiveLineHeight(*text2_);
    column->Add(text2_, wxSizerFlags().Expand().Border(wxBOTTOM, 2 * half));
    column->Add(MakeLabel(this, "F&iles"), wxSizerFlags().Border(wxBOTTOM, half));
    file1_ = MakeList("File1", wxLB_SINGLE);
    file1_->SetInitialSize(platform::RoomFor(*file1_, kCharactersInFiles, kLinesInFolders));
    column->Add(file1_, wxSizerFlags(1).Expand());
    return column;
}

wxSizer* frmFolder3::MakePackage() {
    const int half = FromDIP(kGap) / 2;
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(MakeLabel(this, "In the pac&kage"), wxSizerFlags().Border(wxBOTTOM, half));
    list1_ = MakeList("List1", wxLB_EXTENDED);
    list1_->SetInitialSize(platform::RoomFor(*list1_, kCharactersInPackage, kLinesInFolders));
    column->Add(list1_, wxSizerFlags(1).Expand());
    return column;
}

wxSizer* frmFolder3::MakeButtons() {
    auto* const column = new wxBoxSizer(wxVERTICAL);
    const auto flags = wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(kGap));
    column->Add(MakeButton(AssetControl::Command1, "Command1", 'A', &frmFolder3::Command1_Click), flags);
    column->Add(MakeButton(AssetControl::Command4, "Command4", 'R', &frmFolder3::Command4_Click), flags);
    column->Add(MakeButton(AssetControl::Command3, "Command3", 'P', &frmFolder3::Command3_Click), flags);
    return column;
}

wxSizer* frmFolder3::MakeBottom() {
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(MakeStatusLine(), wxSizerFlags(1).CenterVertical().Border(wxRIGHT, FromDIP(kGap)));
    row->Add(MakeButton(AssetControl::Command2, "Command2", 'x', nullptr));
    return row;
}

// In the order of the Tab key.
void frmFolder3::MakeControls() {
    const int gap = FromDIP(kGap);
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(folders_.MakePath(this), wxSizerFlags().Expand().Border(wxALL, gap));
    auto* const columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(folders_.Make(this, kCharactersInFolders, kLinesInFolders,
                               {.changeDrive = [this](std::size_t drive) { Drive1_Change(drive); },
                                .clickFolder = [this](std::size_t row) { Dir1_Click(row); }}),
                 wxSizerFlags(3).Expand().Border(wxRIGHT, gap));
    columns->Add(MakeFiles(), wxSizerFlags(2).Expand().Border(wxRIGHT, gap));
    columns->Add(MakePackage(), wxSizerFlags(4).Expand().Border(wxRIGHT, gap));
    // The buttons begin beside the lists, below the line of the labels.
    columns->Add(MakeButtons(), wxSizerFlags().Border(wxTOP, GetCharHeight() + gap / 2));
    outer->Add(columns, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
    text3_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    text3_->SetName("Text3");
    platform::GiveLineHeight(*text3_);
    text3_->SetHint("Select a folder of the package to see where it comes from and how large it is");
    outer->Add(text3_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
    outer->Add(MakeBottom(), wxSizerFlags().Expand().Border(wxALL, gap));
    buttons_[AssetControl::Command1]->SetDefault();
    SetSizer(outer);
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    for (wxWindow* const list :
         {static_cast<wxWindow*>(&folders_.Folders()), static_cast<wxWindow*>(file1_), static_cast<wxWindow*>(list1_)})
        list->SetMinSize(platform::RoomFor(*list, kFewestCharacters, kFewestLines));
    platform::OpenWithRoom(*this, roomy);
}

void frmFolder3::BindEvents() {
    buttons_[AssetControl::Command2]->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    text2_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Text2_Change(); });
    list1_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { List1_Click(); });
}

void frmFolder3::Navigate(const std::function<void()>& command) {
    const platform::BusyPointer pointer(context_.ui);
    ShowLine("");
    command();
    ShowState();
}

void frmFolder3::Drive1_Change(std::size_t drive) {
    Navigate([this, drive] { ChangeDrive(context_, window_, std::string(window_.Drives.at(drive))); });
}

void frmFolder3::Dir1_Click(std::size_t row) {
    Navigate([this, row] { ClickFolder(context_, window_, row); });
}

void frmFolder3::Text2_Change() {
    Navigate([this] { ChangePattern(context_, window_, FromWx(text2_->GetValue())); });
}

void frmFolder3::List1_Click() {
    Navigate([this] { ShowDetail(context_, window_, SelectedOf(*list1_)); });
}

void frmFolder3::Command1_Click() {
    Run([this](EditorContext& context) { AddFolder(context, window_); });
}

void frmFolder3::Command3_Click() {
    Run([this](EditorContext& context) { ProcessAssets(context, window_); });
}

void frmFolder3::Command4_Click() {
    Navigate([this] { RemoveFolders(window_, SelectedOf(*list1_)); });
}

void frmFolder3::ShowState() {
    folders_.ShowPath(window_.Text1);
    folders_.ShowDrives(window_.Drives, window_.Drive1);
    folders_.ShowFolders(window_.DirRows);
    if (text2_->GetValue() != ToWx(window_.Text2)) text2_->ChangeValue(ToWx(window_.Text2));
    Fill(*file1_, window_.File1);
    Fill(*list1_, window_.List1);
    text3_->ChangeValue(ToWx(window_.Text3));
    text3_->SetToolTip(ToWx(window_.Text3));
    ShowButtons();
}

void frmFolder3::ShowButtons() {
    for (const auto& [control, button] : buttons_)
        button->Enable(!IsRunning() && install::IsEnabled(control, window_));
}

void frmFolder3::EndState() { CloseAssets(context_, window_); }

} // namespace tamarind::install
