#include "editors/frmAddAttribute.h"

#include "editors/tree_editor.h"
#include "platform/wx/line_height.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace tamarind::editors {

namespace {

constexpr int kGap = 8;
constexpr int kBoxWidth = 280;

} // namespace

frmAddAttribute::frmAddAttribute(wxWindow* parent, platform::UserInterface& ui)
    : wxDialog(parent, wxID_ANY, "Add Attribute", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      ui_(ui) {
    SetName("frmAddAttribute");
    const int gap = FromDIP(kGap);
    auto* const grid = new wxFlexGridSizer(2, gap, gap);
    grid->AddGrowableCol(1);
    const auto addRow = [&](const char* label, const char* name) {
        grid->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().CenterVertical());
        auto* const box = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, FromDIP(wxSize(kBoxWidth, -1)));
        box->SetName(name);
        platform::GiveLineHeight(*box);
        grid->Add(box, wxSizerFlags(1).Expand());
        return box;
    };
    txtName_ = addRow("&Name:", "txtName");
    txtValue_ = addRow("&Value:", "txtValue");
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(grid, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(CreateButtonSizer(wxOK | wxCANCEL), wxSizerFlags().Expand().Border(wxALL, gap));
    SetSizerAndFit(outer);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { cmdOK_Click(); }, wxID_OK);
    txtName_->SetFocus();
    CentreOnParent();
}

session::NewAttribute frmAddAttribute::Entered() const {
    return {platform::FromWx(txtName_->GetValue()), platform::FromWx(txtValue_->GetValue())};
}

void frmAddAttribute::cmdOK_Click() {
    if (CheckNewAttributeName(ui_, Entered().name)) EndModal(wxID_OK);
}

} // namespace tamarind::editors
