#include "routes/frmReport.h"

#include "platform/wx/fixed_pitch.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"
#include "routes/report_sink.h"
#include "text/search.h"

#include <wx/accel.h>
#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

namespace tamarind::routes {

using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
const wxSize kSmallestStatusSize(120, -1);
const wxSize kTextSize(640, 380);
const wxSize kSmallestTextSize(240, 100);

} // namespace

frmReport::frmReport(wxWindow* parent, const std::string& text, session::CommandRunner run)
    : wxDialog(parent, wxID_ANY, "Report", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      run_(std::move(run)) {
    SetName("frmReport");
    platform::SetWindowIcons(*this);
    richTextBox1_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(kTextSize),
                                   wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_DONTWRAP);
    richTextBox1_->SetName("RichTextBox1");
    richTextBox1_->SetFont(platform::FixedPitch(*this));
    richTextBox1_->ChangeValue(ToWx(text::ReplaceAll(text, "\r\n", "\n")));
    richTextBox1_->SetInsertionPoint(0);
    auto* const cmdSave = new wxButton(this, wxID_SAVE, "&Save...");
    cmdSave->SetName("cmdSave");
    auto* const cmdClose = new wxButton(this, wxID_CANCEL, "&Close");
    cmdClose->SetName("cmdClose");
    cmdClose->SetDefault();
    status_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE);
    status_->SetName("StatusLine");
    status_->SetMinSize(FromDIP(kSmallestStatusSize));

    const int gap = FromDIP(kGap);
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(status_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    bottom->Add(cmdSave, wxSizerFlags().Border(wxRIGHT, gap));
    bottom->Add(cmdClose);
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(richTextBox1_, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(bottom, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(outer);
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    richTextBox1_->SetMinSize(FromDIP(kSmallestTextSize));
    platform::KeepWhole(*this);
    SetSize(roomy);

    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { cmdSave_Click(); }, wxID_SAVE);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { cmdSave_Click(); }, wxID_SAVE);
    wxAcceleratorEntry save(wxACCEL_CTRL, 'S', wxID_SAVE);
    SetAcceleratorTable(wxAcceleratorTable(1, &save));
    richTextBox1_->SetFocus();
    CentreOnParent();
}

void frmReport::ShowStatus(const std::string& text) {
    status_->SetLabelText(ToWx(text));
    status_->SetToolTip(ToWx(text));
}

std::string frmReport::Text() const {
    return text::ReplaceAll(platform::FromWx(richTextBox1_->GetValue()), "\n", "\r\n");
}

void frmReport::cmdSave_Click() {
    run_([text = Text()](EditorContext& context) { SaveReport(context, text); });
}

} // namespace tamarind::routes
