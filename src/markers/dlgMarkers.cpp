#include "markers/dlgMarkers.h"

#include "markers/marker_plot_page.h"
#include "markers/marker_positions.h"
#include "platform/wx/bordered_panel.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/display.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

namespace tamarind::markers {

using platform::ToWx;

namespace {

constexpr int kGap = 8;
const wxSize kPlotSize(520, 420);
const wxSize kSmallestList(200, 100);

struct Column {
    const char* caption;
    int characters;
};
constexpr std::array kColumns = {Column{"No.", 6}, Column{"Longitude", 12}, Column{"Latitude", 12}, Column{"Name", 16}};

/// The list's lines, which are looked up only when they are shown: there may be very many.
class Lines final : public wxListCtrl {
public:
    Lines(wxWindow* parent, const MarkerList& list)
        : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                     wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL | wxBORDER_NONE),
          text_(list.text) {
        SetName("List1");
        lines_.reserve(list.count);
        for (std::size_t start = 0, end = 0; (end = list.text.find("\r\n", start)) != std::string::npos;
             start = end + 2)
            lines_.push_back(text_.substr(start, end - start));
        int width = 0;
        for (const Column& column : kColumns) {
            const int columnWidth = (column.characters + 1) * GetCharWidth();
            AppendColumn(column.caption, wxLIST_FORMAT_LEFT, columnWidth);
            width += columnWidth;
        }
        SetItemCount(static_cast<long>(lines_.size()));
        SetInitialSize(wxSize(width, -1));
    }

private:
    [[nodiscard]] wxString OnGetItemText(long item, long column) const override {
        if (column == 0) return wxString::Format("%ld", item + 1);
        std::string_view field = lines_.at(static_cast<std::size_t>(item));
        // The name may hold commas.
        for (long i = 1; i < column; ++i) {
            const std::size_t comma = field.find(',');
            field = comma == std::string_view::npos ? std::string_view() : field.substr(comma + 1);
        }
        const bool isName = column + 1 == static_cast<long>(kColumns.size());
        return ToWx(NameForPeople(isName ? field : field.substr(0, field.find(','))));
    }

    std::string_view text_;
    std::vector<std::string_view> lines_;
};

} // namespace

dlgMarkers::dlgMarkers(wxWindow* parent, const MarkerList& list)
    : wxDialog(parent, wxID_ANY, "Marker File", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX) {
    SetName("dlgMarkers");
    platform::SetWindowIcons(*this);
    const int gap = FromDIP(kGap);
    wxString summary = wxString::Format("%zu ", list.count) + (list.count == 1 ? "marker" : "markers");
    if (!list.remark.empty()) summary += ". " + ToWx(list.remark);
    auto* const label = new wxStaticText(this, wxID_ANY, summary, wxDefaultPosition, wxDefaultSize,
                                         wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE);
    label->SetName("lblSummary");
    label->SetToolTip(summary);
    // Longer remarks end in dots rather than widen the window.
    label->SetMinSize(wxSize(FromDIP(kSmallestList.x), -1));
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(label, wxSizerFlags().Expand().Border(wxLEFT | wxTOP | wxRIGHT, gap));
    outer->Add(MakePanes(list), wxSizerFlags(1).Expand().Border(wxALL, gap));
    outer->Add(MakeBottom(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    SetSizer(outer);
    wxSize roomy = outer->ComputeFittingWindowSize(this);
    roomy.DecTo(wxDisplay(parent).GetClientArea().GetSize());
    wxWindow& border = *plot_->GetParent();
    border.SetMinSize(border.ClientToWindowSize(plot_->SmallestSize()));
    FindWindow("List1")->GetParent()->SetMinSize(FromDIP(kSmallestList));
    platform::KeepWhole(*this);
    SetSize(roomy);
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { EndModal(wxID_SAVE); }, wxID_SAVE);
    CentreOnParent();
}

bool dlgMarkers::IsSkippedFromNowOn() const { return skip_->IsChecked(); }

wxSizer* dlgMarkers::MakePanes(const MarkerList& list) {
    auto* const panes = new wxBoxSizer(wxHORIZONTAL);
    auto* const plotBorder = new platform::BorderedPanel(this);
    plotBorder->SetMinSize(FromDIP(kPlotSize));
    plot_ = new MarkerPlotPage(plotBorder, list);
    plotBorder->Hold(plot_);
    panes->Add(plotBorder, wxSizerFlags(3).Expand().Border(wxRIGHT, FromDIP(kGap)));
    auto* const listBorder = new platform::BorderedPanel(this);
    listBorder->Hold(new Lines(listBorder, list));
    panes->Add(listBorder, wxSizerFlags(2).Expand());
    return panes;
}

wxSizer* dlgMarkers::MakeBottom() {
    skip_ = new wxCheckBox(this, wxID_ANY, "Save &without this picture until the program is started again");
    skip_->SetName("chkSkip");
    auto* const save = new wxButton(this, wxID_SAVE, ToWx("&Save Marker File…"));
    save->SetName("cmdSave");
    save->SetDefault();
    auto* const cancel = new wxButton(this, wxID_CANCEL, "Cancel");
    cancel->SetName("cmdCancel");
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(skip_, wxSizerFlags().CenterVertical());
    bottom->AddStretchSpacer();
    bottom->Add(save, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(kGap)));
    bottom->Add(cancel);
    return bottom;
}

} // namespace tamarind::markers
