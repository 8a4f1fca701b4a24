#include "authoring/frmFolder.h"

#include "platform/paths.h"
#include "platform/wx/line_height.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include <utility>

namespace tamarind::authoring {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
constexpr int kCharacters = 60;
constexpr int kFewestCharacters = 34;
constexpr int kLines = 16;
constexpr int kFewestLines = 6;

} // namespace

frmFolder::frmFolder(wxWindow* parent, EditorContext& context, FolderWindow window, Owner owner)
    : frmTool(parent, window.caption, "frmFolder", std::move(owner)), context_(context), window_(std::move(window)) {
    MakeControls();
    BindEvents();
    ShowState();
    folders_.Folders().SetFocus();
    CentreOnParent();
}

/// The name, for an add-on alone, and below it what is going to happen.
wxSizer* frmFolder::MakeName() {
    const int half = FromDIP(kGap) / 2;
    auto* const column = new wxBoxSizer(wxVERTICAL);
    std::string caption = kFolderNameLabel;
    caption.insert(caption.find("Name"), 1, '&');
    label1_ = new wxStaticText(this, wxID_ANY, ToWx(caption));
    label1_->SetName("Label1");
    column->Add(label1_, wxSizerFlags().Border(wxBOTTOM, half));
    text2_ = new wxTextCtrl(this, wxID_ANY);
    text2_->SetName("Text2");
    platform::GiveLineHeight(*text2_);
    column->Add(text2_, wxSizerFlags().Expand().Border(wxBOTTOM, half));
    const bool hasName = window_.job == session::FolderJob::AddOn;
    label1_->Show(hasName);
    text2_->Show(hasName);
    hint_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    hint_->SetName("Hint");
    hint_->SetMinSize(wxSize(1, hint_->GetCharHeight()));
    column->Add(hint_, wxSizerFlags().Expand());
    return column;
}

wxSizer* frmFolder::MakeBottom() {
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(MakeStatusLine(), wxSizerFlags(1).CenterVertical().Border(wxRIGHT, FromDIP(kGap)));
    command1_ = new wxButton(this, wxID_ANY, "Con&firm"); // the system's own Cancel takes the C
    command1_->SetName("Command1");
    command1_->SetDefault();
    row->Add(command1_, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
    command2_ = new wxButton(this, wxID_CANCEL, "Cancel");
    command2_->SetName("Command2");
    row->Add(command2_);
    return row;
}

// In the order of the Tab key.
void frmFolder::MakeControls() {
    const int gap = FromDIP(kGap);
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(folders_.MakePath(this), wxSizerFlags().Expand().Border(wxALL, gap));
    outer->Add(folders_.Make(this, kCharacters, kLines,
                             {.changeDrive = [this](std::size_t drive) { Drive1_Change(drive); },
                              .clickFolder = [this](std::size_t row) { Dir1_Click(row); }}),
               wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
    outer->Add(MakeName(), wxSizerFlags().Expand().Border(wxALL, gap));
    outer->Add(MakeBottom(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(outer);
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    folders_.Folders().SetMinSize(platform::RoomFor(*this, kFewestCharacters, kFewestLines));
    platform::OpenWithRoom(*this, roomy);
}

void frmFolder::BindEvents() {
    command1_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command1_Click(); });
    command2_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    text2_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { Text2_Change(); });
}

void frmFolder::Navigate(const std::function<void()>& command) {
    const platform::BusyPointer pointer(context_.ui);
    ShowLine("");
    command();
    ShowState();
}

void frmFolder::Command1_Click() {
    Run([this](EditorContext& context) { Confirm(context, window_); });
}

void frmFolder::Drive1_Change(std::size_t drive) {
    Navigate([this, drive] { ChangeDrive(context_, window_, std::string(window_.Drives.at(drive))); });
}

void frmFolder::Dir1_Click(std::size_t row) {
    Navigate([this, row] { ClickFolder(context_, window_, row); });
}

void frmFolder::Text2_Change() {
    window_.Text2 = FromWx(text2_->GetValue());
    ShowHint();
}

void frmFolder::ShowHint() {
    const wxString hint = ToWx(FolderHint(context_, window_));
    hint_->SetLabelText(hint);
    hint_->SetToolTip(hint);
}

void frmFolder::ShowState() {
    folders_.ShowPath(platform::ForDisplay(window_.Text1));
    folders_.ShowDrives(window_.Drives, window_.Drive1);
    folders_.ShowFolders(window_.DirRows);
    ShowHint();
    ShowButtons();
}

void frmFolder::ShowButtons() {
    command1_->Enable(!IsRunning() && CanConfirm(window_));
    command2_->Enable(!IsRunning());
}

} // namespace tamarind::authoring
