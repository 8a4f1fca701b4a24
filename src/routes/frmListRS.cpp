#include "routes/frmListRS.h"

#include "platform/wx/fixed_pitch.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"
#include "routes/assets.h"
#include "routes/stock.h"
#include "text/search.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tamarind::routes {

using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
const wxSize kSmallestStatusSize(120, -1);
const wxSize kListSize(640, 220);
const wxSize kSmallestListSize(240, 80);

wxArrayString Items(const std::vector<std::string>& list) {
    wxArrayString items;
    items.Alloc(list.size());
    for (const std::string& entry : list)
        items.Add(ToWx(AsUtf8(entry)));
    return items;
}

} // namespace

frmListRS::frmListRS(wxWindow* parent, const std::string& scenario, std::vector<std::string> list,
                     session::CommandRunner run)
    : wxDialog(parent, wxID_ANY, ToWx("Stock used by " + scenario), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      list_(std::move(list)), run_(std::move(run)) {
    SetName("frmListRS");
    platform::SetWindowIcons(*this);
    const wxFont fixed = platform::FixedPitch(*this);
    auto* const label1 = new wxStaticText(this, wxID_ANY, "&Objects used");
    list1_ = new wxListBox(this, wxID_ANY, wxDefaultPosition, FromDIP(kListSize), Items(list_),
                           wxLB_SINGLE | wxLB_HSCROLL | wxLB_NEEDED_SB);
    list1_->SetName("List1");
    list1_->SetFont(fixed);
    auto* const label2 = new wxStaticText(this, wxID_ANY, "&Missing objects");
    text1_ = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(-1, kSmallestListSize.y)),
                            wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxTE_DONTWRAP);
    text1_->SetName("Text1");
    text1_->SetFont(fixed);
    auto* const command1 = new wxButton(this, wxID_ANY, "Check for missing &Stock");
    command1->SetName("Command1");
    command1->SetDefault();
    command1->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command1_Click(); });
    command1_ = command1;
    auto* const cancelButton = new wxButton(this, wxID_CANCEL, "&Exit");
    cancelButton->SetName("CancelButton");
    cancelButton->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    // Not modal: nothing waits for its end.
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Destroy(); });
    PlaceControls(label1, label2, cancelButton);
    ShowCount(fmt::format("{} object{}", list_.size(), list_.size() == 1 ? "" : "s"));
    list1_->SetFocus();
    CentreOnParent();
}

void frmListRS::PlaceControls(wxWindow* label1, wxWindow* label2, wxWindow* cancelButton) {
    status_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    status_->SetName("StatusLine");
    status_->SetMinSize(FromDIP(kSmallestStatusSize));
    const int gap = FromDIP(kGap);
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(status_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    bottom->Add(command1_, wxSizerFlags().Border(wxRIGHT, gap));
    bottom->Add(cancelButton);
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(label1, wxSizerFlags().Border(wxLEFT | wxTOP, gap));
    outer->Add(list1_, wxSizerFlags(2).Expand().Border(wxALL, gap));
    outer->Add(label2, wxSizerFlags().Border(wxLEFT, gap));
    outer->Add(text1_, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(bottom, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(outer);
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    list1_->SetMinSize(FromDIP(kSmallestListSize));
    platform::KeepWhole(*this);
    SetSize(roomy);
}

void frmListRS::Command1_Click() {
    std::string report;
    run_([&](const EditorContext& context) { report = MissingStock(context, list_); });
    text1_->ChangeValue(ToWx(text::ReplaceAll(AsUtf8(report), "\r\n", "\n")));
    const auto missing = std::count(report.begin(), report.end(), '\n');
    ShowCount(missing == 0 ? "Nothing is missing." : fmt::format("{} of {} missing", missing, list_.size()));
}

void frmListRS::ShowCount(const std::string& count) { status_->SetLabelText(ToWx(count)); }

} // namespace tamarind::routes
