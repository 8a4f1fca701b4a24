#include "authoring/frmBlue.h"

#include "platform/paths.h"
#include "platform/wx/line_height.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

namespace tamarind::authoring {

using platform::FromWx;
using platform::LineHeightOf;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
constexpr int kCharacters = 60;
constexpr int kFewestCharacters = 30;
const wxColour kWarningColour(192, 0, 0);

/// The captions with the keys of their letters, each of which is taken once: not those of the buttons either.
std::array<wxString, kBlueprintRows> CaptionsOf(session::BlueprintMode mode) {
    std::array<wxString, kBlueprintRows> captions;
    wxString taken = "bx";
    for (std::size_t row = 0; row < captions.size(); ++row) {
        const char* const label = FormOf(mode).labels.at(row);
        if (label == nullptr) continue;
        wxString& caption = captions.at(row);
        caption = label;
        const auto isFree = [&taken](const wxUniChar& letter) {
            return wxIsalpha(letter) != 0 && taken.Find(wxTolower(letter)) == wxNOT_FOUND;
        };
        std::size_t at = 0;
        while (at < caption.length() && !isFree(caption[at]))
            ++at;
        if (at == caption.length()) continue;
        taken += wxTolower(caption[at]);
        caption.insert(at, "&");
    }
    return captions;
}

/// A line that shortens its text when there is no room.
wxStaticText* MakeLine(wxWindow* parent, const wxString& name, long style) {
    auto* const line =
        new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE | style);
    line->SetName(name);
    line->SetMinSize(wxSize(1, line->GetCharHeight()));
    return line;
}

} // namespace

frmBlue::frmBlue(wxWindow* parent, EditorContext& context, Owner owner)
    : frmTool(parent, kBlueprintWindowTitle, "frmBlue", std::move(owner)),
      context_(context), window_{context.session.Authoring.BlueprintMode, {}} {
    MakeControls();
    ShowState();
    text1_[0]->SetFocus();
    CentreOnParent();
}

/// A row that the mode does not use is hidden.
wxSizer* frmBlue::MakeRow(std::size_t row, const wxString& caption) {
    const int half = FromDIP(kGap) / 2;
    const auto number = static_cast<int>(row);
    label1_.at(row) = new wxStaticText(this, wxID_ANY, caption);
    label1_.at(row)->SetName(wxString::Format("Label1(%d)", number));
    text1_.at(row) = new wxTextCtrl(this, wxID_ANY);
    text1_.at(row)->SetName(wxString::Format("Text1(%d)", number));
    platform::GiveLineHeight(*text1_.at(row));
    warnings_.at(row) = MakeLine(this, wxString::Format("Warning(%d)", number), wxST_ELLIPSIZE_END | wxALIGN_RIGHT);
    warnings_.at(row)->SetForegroundColour(kWarningColour);
    text1_.at(row)->Bind(wxEVT_TEXT, [this, row](wxCommandEvent&) { Text1_Change(row); });
    auto* const line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(label1_.at(row), wxSizerFlags().Border(wxRIGHT, half));
    line->Add(warnings_.at(row), wxSizerFlags(1));
    auto* const cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(line, wxSizerFlags().Expand().Border(wxBOTTOM, half / 2));
    cell->Add(text1_.at(row), wxSizerFlags().Expand().Border(wxBOTTOM, 2 * half));
    for (wxWindow* const control : {static_cast<wxWindow*>(label1_.at(row)), static_cast<wxWindow*>(text1_.at(row)),
                                    static_cast<wxWindow*>(warnings_.at(row))})
        control->Show(!caption.empty());
    return cell;
}

wxSizer* frmBlue::MakeBottom() {
    const int gap = FromDIP(kGap);
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(MakeStatusLine(), wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    command1_ = new wxButton(this, wxID_ANY, "Make &Blueprint");
    command1_->SetName("Command1");
    command1_->SetDefault();
    bottom->Add(command1_, wxSizerFlags().Border(wxRIGHT, gap));
    command2_ = new wxButton(this, wxID_CANCEL, "E&xit");
    command2_->SetName("Command2");
    bottom->Add(command2_);
    return bottom;
}

// In the order of the Tab key.
void frmBlue::MakeControls() {
    const int gap = FromDIP(kGap);
    auto* const rows = new wxBoxSizer(wxVERTICAL);
    label2_ = new wxStaticText(this, wxID_ANY, FormOf(window_.mode).heading);
    label2_->SetName("Label2");
    label2_->SetFont(label2_->GetFont().Bold());
    rows->Add(label2_, wxSizerFlags().Border(wxBOTTOM, 2 * gap));
    const auto captions = CaptionsOf(window_.mode);
    for (std::size_t row = 0; row < kBlueprintRows; ++row)
        rows->Add(MakeRow(row, captions.at(row)), wxSizerFlags().Expand());
    output_ = MakeLine(this, "Output", wxST_ELLIPSIZE_MIDDLE);
    rows->Add(output_, wxSizerFlags().Expand());
    rows->AddStretchSpacer();
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(rows, wxSizerFlags(1).Expand().Border(wxALL, 2 * gap));
    outer->Add(MakeBottom(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, 2 * gap));
    SetSizer(outer);
    command1_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command1_Click(); });
    command2_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    wxTextCtrl& first = *text1_[0];
    first.SetMinSize(wxSize(kCharacters * GetCharWidth(), LineHeightOf(first)));
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    first.SetMinSize(wxSize(kFewestCharacters * GetCharWidth(), LineHeightOf(first)));
    platform::OpenWithRoom(*this, roomy);
}

void frmBlue::Text1_Change(std::size_t row) {
    window_.Text1.at(row) = FromWx(text1_.at(row)->GetValue());
    const wxString warning = ToWx(BlueprintWarning(row, window_.Text1.at(row)));
    warnings_.at(row)->SetLabelText(warning);
    warnings_.at(row)->SetToolTip(warning);
    ShowLine("");
    ShowOutput();
}

void frmBlue::Command1_Click() {
    ShowLine("");
    Run([this](EditorContext& context) {
        const auto file = MakeBlueprint(context, window_);
        if (file) context.ui.ShowStatus("Made " + platform::ForDisplay(*file));
    });
}

void frmBlue::ShowOutput() {
    const wxString output = ToWx(OutputInWords(context_, window_));
    output_->SetLabelText(output);
    output_->SetToolTip(output);
}

void frmBlue::ShowState() {
    ShowOutput();
    ShowButtons();
}

void frmBlue::ShowButtons() {
    command1_->Enable(!IsRunning());
    command2_->Enable(!IsRunning());
}

} // namespace tamarind::authoring
