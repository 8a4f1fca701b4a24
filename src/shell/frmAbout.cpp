#include "shell/frmAbout.h"

#include "platform/ui.h"
#include "platform/wx/window_icons.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

namespace tamarind::shell {

namespace {

constexpr int kGap = 12;
constexpr float kTitleScale = 1.6F;
constexpr int kIconSize = 48;
constexpr int kLineLetters = 60;
constexpr const char* kDescription =
    "A tool kit for people who build add-ons for Rail Simulator: it opens the game's files as text or as a tree, "
    "converts textures and marker files, and checks, packages and installs routes, scenarios and assets.";
constexpr const char* kCare = "Before a game file is changed, its old content is kept beside it under a backup name.";

} // namespace

frmAbout::frmAbout(wxWindow* parent) : wxDialog(parent, wxID_ANY, wxString("About ") + platform::kApplicationTitle) {
    SetName("frmAbout");
    platform::SetWindowIcons(*this);
    const int gap = FromDIP(kGap);
    const auto add = [this](const wxString& text, const char* name) {
        auto* const label = new wxStaticText(this, wxID_ANY, text);
        label->SetName(name);
        label->Wrap(kLineLetters * GetCharWidth());
        return label;
    };
    auto* const title = add(platform::kApplicationTitle, "lblTitle");
    title->SetFont(GetFont().Scaled(kTitleScale).Bold());
    auto* const names = new wxBoxSizer(wxVERTICAL);
    names->Add(title);
    names->Add(add("Version " TAMARIND_VERSION, "lblVersion"));
    auto* const head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(new wxStaticBitmap(this, wxID_ANY, GetIcons().GetIcon(FromDIP(wxSize(kIconSize, kIconSize)))),
              wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    head->Add(names, wxSizerFlags().CenterVertical());
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(head, wxSizerFlags().Border(wxALL, gap));
    outer->Add(add(kDescription, "lblDescription"), wxSizerFlags().Border(wxLEFT | wxRIGHT, gap));
    outer->Add(add(kCare, "lblCare"), wxSizerFlags().Border(wxALL, gap));
    auto* const ok = new wxButton(this, wxID_OK, "OK");
    ok->SetDefault();
    outer->Add(ok, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizerAndFit(outer);
    SetEscapeId(wxID_OK);
    CentreOnParent();
}

} // namespace tamarind::shell
