#include "editors/dlgFind.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace tamarind::editors {

namespace {

constexpr int kGap = 8;

} // namespace

dlgFind::dlgFind(wxWindow* parent, const wxWindow& besides) : wxDialog(parent, wxID_ANY, "Find") {
    SetName("dlgFind");
    const int gap = FromDIP(kGap);
    auto* const find = new wxButton(this, wxID_FIND, "&Find");
    auto* const ok = new wxButton(this, wxID_OK, "OK");
    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(find, wxSizerFlags(1).Border(wxRIGHT, gap));
    buttons->Add(ok, wxSizerFlags(1));
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(new wxStaticText(this, wxID_ANY, "Find looks for the next one, OK stays here."),
               wxSizerFlags().Border(wxALL, gap));
    outer->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(outer);
    find->SetDefault();
    find->SetFocus();
    SetEscapeId(wxID_OK);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { EndModal(wxID_FIND); }, wxID_FIND);
    const wxRect place = besides.GetScreenRect();
    SetPosition(wxPoint(place.GetRight() + gap, place.GetBottom() - GetSize().y));
}

} // namespace tamarind::editors
