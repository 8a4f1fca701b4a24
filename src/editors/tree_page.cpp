#include "editors/tree_page.h"

#include "editors/tree_editor.h"
#include "platform/paths.h"
#include "platform/wx/bordered_panel.h"
#include "platform/wx/frame_caption.h"
#include "platform/wx/line_height.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

namespace tamarind::editors {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 6;
constexpr int kListHeight = 60;
constexpr int kTextHeight = 40;
constexpr int kSideWidth = 300;

template <class Control> Control* Named(Control* control, const char* name) {
    control->SetName(name);
    return control;
}

} // namespace

TreePage::TreePage(wxWindow* parent, Run run, std::function<void()> popUp) : wxPanel(parent), run_(std::move(run)) {
    const int gap = FromDIP(kGap);
    auto* const frame = new wxStaticBoxSizer(wxHORIZONTAL, this, "XML Editor");
    frame2_ = Named(frame->GetStaticBox(), "Frame2");
    auto* const side = new wxBoxSizer(wxVERTICAL);
    frame->Add(MakeTreeColumn(frame2_, std::move(popUp)), wxSizerFlags(1).Expand().Border(wxALL, gap));
    side->Add(MakeAttributeFrame(frame2_), wxSizerFlags(3).Expand());
    side->Add(MakeCharactersFrame(frame2_), wxSizerFlags(2).Expand().Border(wxTOP, gap));
    side->Add(MakeSearchFrame(frame2_), wxSizerFlags().Expand().Border(wxTOP, gap));
    side->SetMinSize(FromDIP(wxSize(kSideWidth, -1)));
    frame->Add(side, wxSizerFlags(1).Expand().Border(wxALL, gap));
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(frame, wxSizerFlags(1).Expand().Border(wxALL, gap));
    SetSizer(outer);
    BindAttributeEvents();
    EnableAttributeArea(false);
    Bind(wxEVT_CHAR_HOOK, &TreePage::OnKey, this);
}

wxSizer* TreePage::MakeTreeColumn(wxWindow* box, std::function<void()> popUp) {
    const int gap = FromDIP(kGap);
    auto* const column = new wxBoxSizer(wxVERTICAL);
    auto* const names = new wxBoxSizer(wxHORIZONTAL);
    names->Add(Named(new wxStaticText(box, wxID_ANY, "File Name:"), "Label3"), wxSizerFlags().Border(wxRIGHT, gap));
    label2_ = Named(new wxStaticText(box, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                     wxST_ELLIPSIZE_START | wxST_NO_AUTORESIZE),
                    "Label2");
    names->Add(label2_, wxSizerFlags(1));
    column->Add(names, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    auto* const border = new platform::BorderedPanel(box);
    rows_ = new TreeRows(
        border,
        {.clicked = [this](document::NodeKey key) { run_([key](EditorContext& context) { ClickRow(context, key); }); },
         .labelEdited =
             [this](const std::string& name) {
                 bool accepted = false;
                 run_([&](EditorContext& context) { accepted = FinishLabelEdit(context, name); });
                 return accepted;
             },
         .deleteKey = [this] { run_(DeleteNode); },
         .popUp = std::move(popUp)});
    border->Hold(rows_);
    column->Add(border, wxSizerFlags(1).Expand());
    return column;
}

wxSizer* TreePage::MakeAttributeFrame(wxWindow* box) {
    const int gap = FromDIP(kGap);
    auto* const frame = new wxStaticBoxSizer(wxVERTICAL, box, "Attributes");
    fraAttribs_ = Named(frame->GetStaticBox(), "fraAttribs");
    lblNames_ = Named(new wxStaticText(fraAttribs_, wxID_ANY, "Name:"), "lblNames");
    lstAttributes_ = Named(new wxListBox(fraAttribs_, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(-1, kListHeight))),
                           "lstAttributes");
    lblValue_ = Named(new wxStaticText(fraAttribs_, wxID_ANY, "Value:"), "lblValue");
    txtAttributeValue_ = Named(new wxTextCtrl(fraAttribs_, wxID_ANY), "txtAttributeValue");
    cmdAdd_ = Named(new wxButton(fraAttribs_, wxID_ANY, "&Add"), "cmdAdd");
    cmdDel_ = Named(new wxButton(fraAttribs_, wxID_ANY, "&Remove"), "cmdDel");
    cmdRename_ = Named(new wxButton(fraAttribs_, wxID_ANY, "R&ename"), "cmdRename");
    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : {cmdAdd_, cmdDel_, cmdRename_})
        buttons->Add(button, wxSizerFlags(1).Border(wxRIGHT, gap));
    platform::GiveLineHeight(*txtAttributeValue_);
    frame->Add(lblNames_, wxSizerFlags().Border(wxLEFT | wxTOP, gap));
    frame->Add(lstAttributes_, wxSizerFlags(1).Expand().Border(wxALL, gap));
    frame->Add(lblValue_, wxSizerFlags().Border(wxLEFT, gap));
    frame->Add(txtAttributeValue_, wxSizerFlags().Expand().Border(wxALL, gap));
    frame->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, gap));
    return frame;
}

wxSizer* TreePage::MakeCharactersFrame(wxWindow* box) {
    const int gap = FromDIP(kGap);
    auto* const frame = new wxStaticBoxSizer(wxVERTICAL, box, "Characters");
    fraChars_ = Named(frame->GetStaticBox(), "fraChars");
    lblText_ = Named(new wxStaticText(fraChars_, wxID_ANY, "Text:"), "lblText");
    txtCharacters_ = Named(new wxTextCtrl(fraChars_, wxID_ANY, wxString(), wxDefaultPosition,
                                          FromDIP(wxSize(-1, kTextHeight)), wxTE_MULTILINE),
                           "txtCharacters");
    frame->Add(lblText_, wxSizerFlags().Border(wxLEFT | wxTOP, gap));
    frame->Add(txtCharacters_, wxSizerFlags(1).Expand().Border(wxALL, gap));
    return frame;
}

wxSizer* TreePage::MakeSearchFrame(wxWindow* box) {
    const int gap = FromDIP(kGap);
    auto* const frame = new wxStaticBoxSizer(wxVERTICAL, box, "Search");
    wxStaticBox* const frame3 = Named(frame->GetStaticBox(), "Frame3");
    const auto makeButton = [this, frame3](const char* caption, const char* name, void (TreePage::*handler)()) {
        auto* const button = new wxButton(frame3, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
        button->Bind(wxEVT_BUTTON, [this, handler](wxCommandEvent&) { (this->*handler)(); });
        return Named(button, name);
    };
    text2_ = Named(new wxTextCtrl(frame3, wxID_ANY), "Text2");
    text2_->SetToolTip("What to look for");
    platform::GiveLineHeight(*text2_);
    frame->Add(text2_, wxSizerFlags().Expand().Border(wxALL, gap));
    auto* const finds = new wxBoxSizer(wxHORIZONTAL);
    finds->Add(makeButton("Find", "Command2", &TreePage::Command2_Click), wxSizerFlags(1).Border(wxRIGHT, gap));
    finds->Add(makeButton("Find All", "Command3", &TreePage::Command3_Click), wxSizerFlags(1).Border(wxRIGHT, gap));
    finds->Add(makeButton("Find in Text", "Command4", &TreePage::Command4_Click), wxSizerFlags(1).Border(wxRIGHT, gap));
    frame->Add(finds, wxSizerFlags().Expand().Border(wxLEFT, gap));
    text3_ = Named(new wxTextCtrl(frame3, wxID_ANY), "Text3");
    text3_->SetToolTip("What to put in its place");
    platform::GiveLineHeight(*text3_);
    frame->Add(text3_, wxSizerFlags().Expand().Border(wxALL, gap));
    auto* const replaces = new wxBoxSizer(wxHORIZONTAL);
    replaces->Add(makeButton("Replace", "Command5", &TreePage::Command5_Click), wxSizerFlags(1).Border(wxRIGHT, gap));
    replaces->Add(makeButton("Replace All", "Command6", &TreePage::Command6_Click),
                  wxSizerFlags(1).Border(wxRIGHT, gap));
    check1_ = Named(new wxCheckBox(frame3, wxID_ANY, "Whole Word Only"), "Check1");
    replaces->Add(check1_, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    frame->Add(replaces, wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, gap));
    return frame;
}

void TreePage::BindAttributeEvents() {
    lstAttributes_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { run_(ClickAttribute); });
    txtAttributeValue_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        const std::string value = FromWx(txtAttributeValue_->GetValue());
        run_([&value](EditorContext& context) { EditAttributeValue(context, value); });
    });
    txtCharacters_->Bind(wxEVT_TEXT, [this](wxCommandEvent&) {
        const std::string text = FromWx(txtCharacters_->GetValue());
        run_([&text](EditorContext& context) { EditCharacters(context, text); });
    });
    cmdAdd_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { run_(AddAttribute); });
    cmdDel_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { run_(RemoveAttribute); });
    cmdRename_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { run_(RenameAttribute); });
}

void TreePage::SetFilePath(const std::string& path) {
    const wxString shown = ToWx(platform::ForDisplay(path));
    label2_->SetLabelText(shown);
    label2_->SetToolTip(shown);
}

void TreePage::ShowState(const PageState& state) {
    platform::ShowFrameCaption(*frame2_, state.treeCaption, state.treeWarns);
}

void TreePage::EnableAttributeArea(bool enabled) {
    for (wxWindow* control :
         std::initializer_list<wxWindow*>{fraAttribs_, lblNames_, lblValue_, txtAttributeValue_, fraChars_,
                                          txtCharacters_, lblText_, cmdAdd_, cmdDel_, lstAttributes_, cmdRename_}) {
        control->Enable(enabled);
    }
    if (enabled) return;
    lstAttributes_->Clear();
    txtCharacters_->ChangeValue(wxString());
    txtAttributeValue_->ChangeValue(wxString());
}

void TreePage::EnableAttributeEditing(bool enabled) {
    cmdDel_->Enable(enabled);
    cmdRename_->Enable(enabled);
    txtAttributeValue_->Enable(enabled);
}

void TreePage::ShowAttributeNames(const std::vector<std::string>& names) {
    wxArrayString shown;
    for (const std::string& name : names)
        shown.Add(ToWx(name));
    lstAttributes_->Set(shown);
}

void TreePage::AppendAttributeName(const std::string& name) { lstAttributes_->Append(ToWx(name)); }

void TreePage::RemoveAttributeName(int index) { lstAttributes_->Delete(static_cast<unsigned>(index)); }

void TreePage::SetAttributeName(int index, const std::string& name) {
    lstAttributes_->SetString(static_cast<unsigned>(index), ToWx(name));
    lstAttributes_->SetSelection(index);
}

int TreePage::SelectedAttribute() const { return lstAttributes_->GetSelection(); }

void TreePage::SelectAttribute(int index) { lstAttributes_->SetSelection(index); }

void TreePage::ShowAttributeValue(const std::string& value) { txtAttributeValue_->ChangeValue(ToWx(value)); }

void TreePage::ShowCharacters(const std::string& text) { txtCharacters_->ChangeValue(ToWx(text)); }

} // namespace tamarind::editors
