#include "routes/frmDelRoute.h"

#include "platform/wx/fixed_pitch.h"
#include "platform/wx/line_height.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/wx_text.h"
#include "routes/assets.h"
#include "routes/check.h"
#include "routes/deletion.h"
#include "routes/frmListRS.h"
#include "routes/frmReport.h"
#include "routes/route_packaging.h"
#include "routes/scenario_hand_over.h"
#include "routes/scenario_packaging.h"
#include "routes/stock.h"

#include <wx/button.h>
#include <wx/listbox.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tamarind::routes {

using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 8;
const wxSize kButtonRoom(8, 0);
/// Ids of routes and scenarios are 36 characters long.
constexpr int kCharactersInList = 38;
constexpr int kLinesInList = 10;
constexpr int kFewestCharacters = 14;
constexpr int kFewestLines = 5;
constexpr const char* kNoRoute = "Please select a route first.";
constexpr const char* kNoScenario = "Please select a scenario first.";

/// The caption with the key of its letter underlined.
wxString WithMnemonic(const std::string& caption, char letter) {
    std::string marked = caption;
    if (letter != 0) marked.insert(marked.find(letter), 1, '&');
    return ToWx(marked);
}

std::vector<std::size_t> SelectedOf(const wxListBox& list) {
    wxArrayInt items;
    list.GetSelections(items);
    std::vector<std::size_t> indices(items.begin(), items.end());
    std::sort(indices.begin(), indices.end());
    return indices;
}

/// Shows each report until the person closes it.
class ReportWindows : public ReportSink {
public:
    ReportWindows(wxWindow* parent, const session::CommandRunner& run) : parent_(parent), run_(run) {}
    void ShowReport(const std::string& text) override {
        frmReport window(parent_, text, run_);
        window.ShowModal();
    }

private:
    wxWindow* parent_;
    const session::CommandRunner& run_;
};

} // namespace

frmDelRoute::frmDelRoute(wxWindow* parent, EditorContext& context, RouteWindow window, Owner owner)
    : frmTool(parent, TitleOf(context.session.Routes), "frmDelRoute", std::move(owner)), context_(context),
      window_(std::move(window)) {
    MakeControls();
    BindEvents();
    ShowState();
    OnRouteSelected();
    list1_->SetFocus();
    CentreOnParent();
}

frmDelRoute::Column frmDelRoute::MakeColumn(const wxString& label, const char* name, long style) {
    const int gap = FromDIP(kGap);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(new wxStaticText(this, wxID_ANY, label), wxSizerFlags().Border(wxBOTTOM, gap / 2));
    auto* const list = new wxListBox(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                     style | wxLB_HSCROLL | wxLB_NEEDED_SB);
    list->SetName(name);
    list->SetFont(platform::FixedPitch(*this));
    list->SetInitialSize(platform::RoomFor(*list, kCharactersInList, kLinesInList));
    sizer->Add(list, wxSizerFlags(1).Expand());
    return {sizer, list};
}

frmDelRoute::Column frmDelRoute::MakeColumn(Control label, char mnemonic, const char* name) {
    return MakeColumn(WithMnemonic(CaptionOf(label, context_.session.Routes), mnemonic), name, wxLB_EXTENDED);
}

wxButton* frmDelRoute::MakeButton(Control control, const char* name, char mnemonic, void (frmDelRoute::*click)()) {
    const std::string caption = CaptionOf(control, context_.session.Routes);
    const int id = control == Control::CancelButton ? wxID_CANCEL : wxID_ANY;
    auto* const button = new wxButton(this, id, WithMnemonic(caption, mnemonic));
    button->SetName(name);
    // A default button needs a little more room than others, on some systems.
    button->SetMinSize(button->GetBestSize() + FromDIP(kButtonRoom));
    button->Show(routes::IsVisible(control, context_.session.Routes));
    if (click != nullptr) button->Bind(wxEVT_BUTTON, [this, click](wxCommandEvent&) { (this->*click)(); });
    buttons_[control] = button;
    return button;
}

wxSizer* frmDelRoute::MakeRoutes() {
    const int gap = FromDIP(kGap);
    const Column names = MakeColumn(Control::LabelRouteName, 'N', "List1");
    const Column folders = MakeColumn(Control::LabelRouteFolder, 'F', "List2");
    list1_ = names.list;
    list2_ = folders.list;
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(names.sizer, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
    row->Add(folders.sizer, wxSizerFlags(1).Expand());
    return row;
}

wxSizer* frmDelRoute::MakeScenarios() {
    const int gap = FromDIP(kGap);
    const Column names = MakeColumn(Control::LabelScenarioName, 'm', "List3");
    const Column folders = MakeColumn(Control::LabelScenarioFolder, 'o', "List4");
    list3_ = names.list;
    list4_ = folders.list;
    file1_ = MakeColumn("Files in Route Folder", "File1", wxLB_SINGLE);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(names.sizer, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
    row->Add(folders.sizer, wxSizerFlags(1).Expand());
    row->Add(file1_.sizer, wxSizerFlags(1).Expand().Border(wxLEFT, gap));
    return row;
}

// In the order of the Tab key.
void frmDelRoute::MakeControls() {
    const int gap = FromDIP(kGap);
    const auto column = [gap](std::initializer_list<wxButton*> buttons) {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        for (wxButton* const button : buttons)
            sizer->Add(button, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
        return sizer;
    };
    auto* const rows = new wxFlexGridSizer(2, gap, gap);
    rows->AddGrowableCol(0);
    rows->AddGrowableRow(0, 1);
    rows->AddGrowableRow(1, 1);
    // The buttons begin beside the lists, below the line of the labels.
    const int top = GetCharHeight() + gap / 2;
    rows->Add(MakeRoutes(), wxSizerFlags(1).Expand());
    rows->Add(column({MakeButton(Control::Command1, "Command1", 'L', &frmDelRoute::Command1_Click),
                      MakeButton(Control::Command4, "Command4", 'C', &frmDelRoute::Command4_Click),
                      MakeButton(Control::OKButton, "OKButton", 'R', &frmDelRoute::OKButton_Click)}),
              wxSizerFlags().Expand().Border(wxTOP, top));
    rows->Add(MakeScenarios(), wxSizerFlags(1).Expand());
    rows->Add(column({MakeButton(Control::Command3, "Command3", 't', &frmDelRoute::Command3_Click),
                      MakeButton(Control::Command7, "Command7", 'd', &frmDelRoute::Command7_Click),
                      MakeButton(Control::Command2, "Command2", 'S', &frmDelRoute::Command2_Click),
                      MakeButton(Control::Command5, "Command5", 'A', &frmDelRoute::Command5_Click),
                      MakeButton(Control::Command6, "Command6", 'P', &frmDelRoute::Command6_Click)}),
              wxSizerFlags().Expand().Border(wxTOP, top));
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(MakeStatusLine(), wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    bottom->Add(MakeButton(Control::CancelButton, "CancelButton", 0, nullptr));
    buttons_[Control::Command1]->SetDefault();
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(rows, wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(bottom, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    // It opens with room for whole ids, but without the column that goes away.
    outer->Hide(file1_.sizer, true);
    SetSizer(outer);
    const wxSize roomy = outer->ComputeFittingWindowSize(this);
    outer->Show(file1_.sizer, true, true);
    for (wxListBox* const list : {list1_, list2_, list3_, list4_, file1_.list})
        list->SetMinSize(platform::RoomFor(*list, kFewestCharacters, kFewestLines));
    platform::OpenWithRoom(*this, roomy);
}

void frmDelRoute::BindEvents() {
    buttons_[Control::CancelButton]->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    const auto pair = [this](wxListBox& list, wxListBox& other, bool areRoutes) {
        list.Bind(wxEVT_LISTBOX, [this, &list, &other, areRoutes](wxCommandEvent&) {
            SelectBoth(list, other);
            if (areRoutes) OnRouteSelected();
        });
    };
    pair(*list1_, *list2_, true);
    pair(*list2_, *list1_, true);
    // While scenarios are packaged, List4 holds those added.
    const bool packsScenarios = PackagesScenarios(context_.session.Routes);
    if (!packsScenarios) {
        pair(*list3_, *list4_, false);
        pair(*list4_, *list3_, false);
    }
    for (wxListBox* const list : {list1_, list2_}) {
        list->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) {
            if (buttons_[Control::Command1]->IsEnabled()) Command1_Click();
        });
        UseAsDefault(*list, Control::Command1);
    }
    for (wxListBox* const list : {list3_, list4_})
        UseAsDefault(*list, packsScenarios ? Control::Command5 : Control::Command3);
}

/// The Enter key presses the button while the list has the keyboard.
void frmDelRoute::UseAsDefault(wxWindow& list, Control control) {
    list.Bind(wxEVT_SET_FOCUS, [this, control](wxFocusEvent& event) {
        buttons_[control]->SetDefault();
        event.Skip();
    });
}

/// Names and folders are one list in two columns.
void frmDelRoute::SelectBoth(wxListBox& from, wxListBox& to) {
    if (from.GetCount() != to.GetCount()) return;
    to.DeselectAll();
    const Indices selected = SelectedOf(from);
    for (const std::size_t index : selected)
        to.SetSelection(static_cast<int>(index));
    if (!selected.empty()) to.EnsureVisible(static_cast<int>(selected.back()));
}

void frmDelRoute::OnRouteSelected() {
    const Indices selected = SelectedOf(*list1_);
    ShowLine(StatusText(context_, window_, selected));
    if (window_.isFile1Visible) Fill(*file1_.list, RouteFiles(context_, window_, selected));
}

void frmDelRoute::Command1_Click() {
    // Nothing to list; and some systems send the Enter key in a list twice, when the route is no longer selected.
    if (SelectedOf(*list1_).empty()) {
        if (!window_.hasScenarios) ShowLine(kNoRoute);
        return;
    }
    RunOn(*list1_, kNoRoute,
          [this](EditorContext& context, Selection selected) { return ListScenarios(context, window_, selected); });
}

void frmDelRoute::Command2_Click() {
    RunOn(*list3_, kNoScenario,
          [this](EditorContext& context, Selection selected) { return DeleteScenario(context, window_, selected); });
}

void frmDelRoute::Command3_Click() {
    std::optional<std::vector<std::string>> stock;
    const Indices selected = SelectedOf(*list3_);
    RunOn(*list3_, kNoScenario, [&](EditorContext& context, Selection scenarios) {
        stock = ListStock(context, window_, scenarios);
        return Ended::Declined; // the scenario stays selected
    });
    if (!stock || window_.isClosed) return;
    auto* const list = new frmListRS(this, AsUtf8(window_.List3.at(selected.front())), std::move(*stock), Runner());
    list->Show();
}

void frmDelRoute::Command4_Click() {
    RunOn(*list1_, kNoRoute, [this](EditorContext& context, Selection selected) {
        ReportWindows reports(this, Runner());
        return CheckRoute(context, window_, selected, reports).ended;
    });
}

void frmDelRoute::Command5_Click() {
    const Indices selected = SelectedOf(*list3_);
    Ended ended = Ended::Failed;
    Run([&](EditorContext& context) { ended = AddToPackage(context, window_, selected); });
    if (window_.isClosed) return;
    // The others stay selected, to be added next.
    if (ended == Ended::Done && !selected.empty()) list3_->Deselect(static_cast<int>(selected.front()));
    if (!HasTold()) OnRouteSelected();
}

void frmDelRoute::Command6_Click() {
    Run([this](EditorContext& context) { ProcessPackage(context, window_); });
    if (!window_.isClosed && !HasTold()) OnRouteSelected();
}

void frmDelRoute::Command7_Click() {
    RunOn(*list3_, kNoScenario, [this](EditorContext& context, Selection selected) {
        EditScenario(context, window_, selected);
        return Ended::Declined; // the scenario stays selected
    });
}

void frmDelRoute::OKButton_Click() {
    if (PackagesRoute(context_.session.Routes)) return PackageSelected();
    RunOn(*list1_, "",
          [this](EditorContext& context, Selection selected) { return DeleteRoute(context, window_, selected); });
}

void frmDelRoute::PackageSelected() {
    const Indices selected = SelectedOf(*list1_);
    Run([&](EditorContext& context) { PackageRoute(context, window_, selected); });
    if (window_.isClosed || selected.empty()) return;
    // The first one has left the lists; the others stay selected, each a row higher.
    for (auto row = selected.begin() + 1; row != selected.end(); ++row)
        list1_->SetSelection(static_cast<int>(*row) - 1);
    SelectBoth(*list1_, *list2_);
    if (!HasTold()) OnRouteSelected();
}

void frmDelRoute::RunOn(wxListBox& list, const char* hint,
                        const std::function<Ended(EditorContext&, Selection)>& command) {
    const Indices selected = SelectedOf(list);
    Ended ended = Ended::Failed;
    Run([&](EditorContext& context) { ended = command(context, selected); });
    if (window_.isClosed) return;
    if (ended != Ended::Declined) {
        list.DeselectAll();
        SelectBoth(list, &list == list1_ ? *list2_ : *list4_);
    }
    // What the command told stays until something is selected.
    if (selected.empty()) {
        ShowLine(hint);
    } else if (!HasTold()) {
        OnRouteSelected();
    }
}

void frmDelRoute::EndState() { CloseRoutes(context_, window_); }

void frmDelRoute::ShowState() {
    const bool areColumnsChanged = file1_.list->IsShown() != window_.isFile1Visible;
    Fill(*list1_, window_.List1);
    Fill(*list2_, window_.List2);
    Fill(*list3_, window_.List3);
    Fill(*list4_, window_.List4);
    if (areColumnsChanged) {
        GetSizer()->Show(file1_.sizer, window_.isFile1Visible, true);
        Layout();
        Refresh(); // the wider lists would keep a trace of the column
    }
    ShowButtons();
}

void frmDelRoute::ShowButtons() {
    for (const auto& [control, button] : buttons_) {
        button->Enable(!IsRunning() && routes::IsEnabled(control, context_.session.Routes, window_));
    }
}

/// Filling a list again would lose its place.
void frmDelRoute::Fill(wxListBox& list, const std::vector<std::string>& items) {
    std::vector<std::string>& shown = shown_[&list];
    if (shown == items) return;
    shown = items;
    wxArrayString texts;
    texts.Alloc(items.size());
    for (const std::string& item : items)
        texts.Add(ToWx(AsUtf8(item)));
    list.Set(texts);
}

} // namespace tamarind::routes
