#include "editors/dlgSearch.h"

#include "editors/xml_text_page.h"
#include "platform/wx/line_height.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <fmt/format.h>

namespace tamarind::editors {

using platform::FromWx;
using platform::ToWx;

namespace {

constexpr int kGap = 8;
constexpr int kBoxWidth = 320;

template <class Control> Control* Named(Control* control, const char* name) {
    control->SetName(name);
    return control;
}

} // namespace

dlgSearch::dlgSearch(wxWindow& page, XmlText& text, TextRequest& searched)
    : wxDialog(wxGetTopLevelParent(&page), wxID_ANY, "Search", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      text_(text), searched_(searched) {
    SetName("dlgSearch");
    platform::SetWindowIcons(*this);
    MakeControls();
    BindEvents();
    SetEscapeId(wxID_OK);
    // Below the first lines of the text, so that a match at the start can be seen.
    const wxRect place = text.GetScreenRect();
    SetPosition(wxPoint(place.GetRight() - GetSize().x - FromDIP(kGap), place.GetBottom() - GetSize().y));
}

void dlgSearch::MakeControls() {
    const int gap = FromDIP(kGap);
    text2_ = Named(new wxTextCtrl(this, wxID_ANY, ToWx(searched_.text), wxDefaultPosition,
                                  FromDIP(wxSize(kBoxWidth, -1)), wxTE_PROCESS_ENTER),
                   "Text2");
    text2_->SetToolTip("What to look for");
    text3_ = Named(new wxTextCtrl(this, wxID_ANY), "Text3");
    text3_->SetToolTip("What to put in its place");
    for (wxTextCtrl* const box : {text2_, text3_})
        platform::GiveLineHeight(*box);
    auto* const command4 = Named(new wxButton(this, wxID_ANY, "Find"), "Command4");
    command4->SetToolTip("Find the word in the top box, keep clicking to cycle through all instances");
    auto* const command5 = Named(new wxButton(this, wxID_ANY, "Replace"), "Command5");
    command5->SetToolTip("Replace selected word with the one in replace box");
    auto* const command6 = Named(new wxButton(this, wxID_ANY, "Replace All"), "Command6");
    command6->SetToolTip("Replaces all instances of top string with the one in the bottom box.");
    check1_ = Named(new wxCheckBox(this, wxID_ANY, "Whole Word only"), "Check1");
    check1_->SetValue(searched_.wholeWord);
    auto* const ok = Named(new wxButton(this, wxID_OK, "OK"), "OKButton");
    told_ = Named(new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE),
                  "Told");
    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* const button : {command4, command5, command6})
        buttons->Add(button, wxSizerFlags(1).Border(wxRIGHT, gap));
    buttons->Add(ok, wxSizerFlags(1));
    auto* const options = new wxBoxSizer(wxHORIZONTAL);
    options->Add(check1_, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    options->Add(told_, wxSizerFlags(1).CenterVertical());
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(text2_, wxSizerFlags().Expand().Border(wxALL, gap));
    outer->Add(text3_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    outer->Add(options, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    outer->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(outer);
    SetMaxSize(wxSize(-1, GetSize().y));
}

void dlgSearch::BindEvents() {
    const auto onPress = [this](const char* name, void (dlgSearch::*handler)()) {
        FindWindow(name)->Bind(wxEVT_BUTTON, [this, handler](wxCommandEvent&) { (this->*handler)(); });
    };
    onPress("Command4", &dlgSearch::Command4_Click);
    onPress("Command5", &dlgSearch::Command5_Click);
    onPress("Command6", &dlgSearch::Command6_Click);
    text2_->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { Command4_Click(); });
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Destroy(); }, wxID_OK);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Destroy(); });
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_F3) {
            Command4_Click();
        } else {
            event.Skip();
        }
    });
}

void dlgSearch::TakeFocus() {
    text2_->SetFocus();
    text2_->SelectAll();
}

TextRequest dlgSearch::Request() const { return {FromWx(text2_->GetValue()), check1_->GetValue()}; }

void dlgSearch::Tell(const std::string& text) { told_->SetLabelText(ToWx(text)); }

void dlgSearch::Command4_Click() {
    searched_ = Request();
    hasMatch_ = text_.FindNext(searched_);
    Tell(hasMatch_ ? "" : "Not found");
}

void dlgSearch::Command5_Click() {
    if (!hasMatch_) return;
    // Once: what stands there now was not found by a search.
    hasMatch_ = false;
    // Another text may have been opened meanwhile.
    if (text_.GetSelectionStart() == text_.GetSelectionEnd()) return;
    text_.ReplaceSelected(FromWx(text3_->GetValue()));
}

void dlgSearch::Command6_Click() {
    searched_ = Request();
    const std::size_t count = text_.ReplaceEvery(searched_, FromWx(text3_->GetValue()));
    hasMatch_ = false;
    Tell(count == 0 ? "Not found" : fmt::format("{} replaced", count));
}

} // namespace tamarind::editors
