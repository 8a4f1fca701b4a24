#include "authoring/frmScenEdit.h"
#include "platform/wx/colours.h"
#include "platform/wx/frame_box.h"
#include "platform/wx/line_height.h"
#include "platform/wx/smallest_size.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/datectrl.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timectrl.h>

#include <algorithm>
#include <initializer_list>

namespace tamarind::authoring {

using platform::LineHeightOf;
using platform::RoomFor;
using platform::ToWx;

namespace {

constexpr int kGap = 6;
constexpr int kTextCharacters = 46;
constexpr int kFewestTextCharacters = 30;
constexpr int kTextLines = 4;
constexpr int kFewestTextLines = 2;
constexpr int kListCharacters = 24;
constexpr int kFewestListCharacters = 14;
constexpr int kListLines = 8;
constexpr int kFewestListLines = 4;
constexpr int kDriverCharacters = 8;
const wxColour kWarningColour(192, 0, 0);

/// The caption with the key of its letter underlined.
wxString WithMnemonic(const std::string& caption, char letter) {
    std::string marked = caption;
    marked.insert(marked.find(letter), 1, '&');
    return ToWx(marked);
}

/// Cells beside each other that share what room there is beyond the least of each. (Proportions in a plain row would
/// make every cell as wide as the widest.)
wxFlexGridSizer* MakeRow(int cells, int gap) {
    auto* const row = new wxFlexGridSizer(cells, 0, gap);
    for (int cell = 0; cell < cells; ++cell)
        row->AddGrowableCol(static_cast<std::size_t>(cell), 1);
    row->AddGrowableRow(0, 1);
    return row;
}

wxStaticBoxSizer* MakeFrame(wxWindow* parent, const wxString& caption) {
    return new wxStaticBoxSizer(new platform::FrameBox(parent, wxID_ANY, caption), wxVERTICAL);
}

wxStaticText* MakeLine(wxWindow* parent, const char* name, long style = 0) {
    auto* const line = new wxStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                        wxST_ELLIPSIZE_END | wxST_NO_AUTORESIZE | style);
    line->SetName(name);
    line->SetMinSize(wxSize(1, line->GetCharHeight()));
    return line;
}

} // namespace

wxTextCtrl* frmScenEdit::MakeText(wxWindow* parent, Field field, int characters, int lines) {
    const auto index = static_cast<std::size_t>(field);
    auto* const box = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                     lines > 1 ? wxTE_MULTILINE | wxTE_BESTWRAP : 0);
    box->SetName(wxString::Format("Text1(%d)", static_cast<int>(index)));
    const wxSize size = RoomFor(*box, characters, lines);
    box->SetMinSize(wxSize(size.x, lines > 1 ? size.y : LineHeightOf(*box)));
    text1_.at(index) = box;
    return box;
}

wxSizer* frmScenEdit::WithLabel(wxWindow* parent, Field field, char mnemonic, wxWindow* control, wxWindow* beside) {
    auto* const label = new wxStaticText(parent, wxID_ANY, WithMnemonic(LabelOf(field), mnemonic));
    label->MoveBeforeInTabOrder(control);
    auto* const cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(label, wxSizerFlags().Border(wxBOTTOM, FromDIP(2)));
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(control, wxSizerFlags(1).Expand());
    if (beside != nullptr)
        row->Add(beside, wxSizerFlags().Expand().Border(wxLEFT, FromDIP(kGap)).ReserveSpaceEvenIfHidden());
    cell->Add(row, wxSizerFlags(1).Expand());
    return cell;
}

wxSizer* frmScenEdit::WithWarning(Field field, char mnemonic, wxTextCtrl* control) {
    const auto index = static_cast<std::size_t>(field);
    auto* const label = new wxStaticText(this, wxID_ANY, WithMnemonic(LabelOf(field), mnemonic));
    label->MoveBeforeInTabOrder(control);
    wxStaticText* const warning = MakeLine(this, "", wxALIGN_RIGHT);
    warning->SetName(wxString::Format("Warning(%d)", static_cast<int>(index)));
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    warning->SetForegroundColour(platform::IsDark(ground) ? platform::RedOn(ground) : kWarningColour);
    warnings_.at(index) = warning;
    auto* const line = new wxBoxSizer(wxHORIZONTAL);
    line->Add(label, wxSizerFlags().Border(wxRIGHT, FromDIP(kGap)));
    line->Add(warning, wxSizerFlags(1));
    auto* const cell = new wxBoxSizer(wxVERTICAL);
    cell->Add(line, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(2)));
    cell->Add(control, wxSizerFlags(1).Expand());
    return cell;
}

wxButton* frmScenEdit::MakeButton(wxWindow* parent, const char* name, const wxString& caption, int id) {
    auto* const button = new wxButton(parent, id, caption);
    button->SetName(name);
    // A default button needs a little more room than others, on some systems.
    button->SetMinSize(button->GetBestSize() + FromDIP(wxSize(8, 0)));
    return button;
}

wxListBox* frmScenEdit::MakeList(wxWindow* parent, const char* name) {
    auto* const list = new wxListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr,
                                     wxLB_SINGLE | wxLB_HSCROLL | wxLB_NEEDED_SB);
    list->SetName(name);
    list->SetMinSize(RoomFor(*list, kListCharacters, kListLines));
    return list;
}

wxSizer* frmScenEdit::MakeProperties() {
    const int gap = FromDIP(kGap);
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(WithWarning(Field::DisplayName, 'N', MakeText(this, Field::DisplayName, kTextCharacters)),
                wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    column->Add(WithWarning(Field::Description, 'D', MakeText(this, Field::Description, kTextCharacters, kTextLines)),
                wxSizerFlags(1).Expand().Border(wxBOTTOM, gap));
    column->Add(WithWarning(Field::Briefing, 'B', MakeText(this, Field::Briefing, kTextCharacters, kTextLines)),
                wxSizerFlags(1).Expand().Border(wxBOTTOM, gap / 2));
    start_ = MakeLine(this, "StartInWords");
    start_->SetFont(start_->GetFont().Bold());
    start_->SetMinSize(wxSize(1, start_->GetCharHeight()));
    column->Add(start_, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    column->Add(MakeStart(), wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    column->Add(MakeSeason(), wxSizerFlags().Expand());
    return column;
}

// Two rows; what can be picked stands beside what is typed.
wxSizer* frmScenEdit::MakeStart() {
    const int gap = FromDIP(kGap);
    const auto cell = [&](Field field, char mnemonic, int characters, auto makeBeside) {
        wxTextCtrl* const box = MakeText(this, field, characters);
        return WithLabel(this, field, mnemonic, box, makeBeside());
    };
    const auto nothing = [] { return static_cast<wxWindow*>(nullptr); };
    auto* const times = MakeRow(2, gap);
    times->Add(cell(Field::StartTime, 'T', 6,
                    [this] {
                        clock_ = new wxTimePickerCtrl(this, wxID_ANY);
                        clock_->SetName("StartClock");
                        return clock_;
                    }),
               wxSizerFlags().Expand());
    times->Add(cell(Field::Duration, 'u', 6, nothing), wxSizerFlags().Expand());
    auto* const dates = MakeRow(3, gap);
    dates->Add(cell(Field::StartDay, 'y', 4, nothing), wxSizerFlags().Expand());
    dates->Add(cell(Field::StartMonth, 'M', 4, nothing), wxSizerFlags().Expand());
    dates->Add(cell(Field::StartYear, 'r', 8,
                    [this] {
                        calendar_ = new wxDatePickerCtrl(this, wxID_ANY, wxDefaultDateTime, wxDefaultPosition,
                                                         wxDefaultSize, wxDP_DROPDOWN | wxDP_SHOWCENTURY);
                        calendar_->SetName("StartCalendar");
                        return calendar_;
                    }),
               wxSizerFlags().Expand());
    auto* const rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(times, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    rows->Add(dates, wxSizerFlags().Expand());
    return rows;
}

wxSizer* frmScenEdit::MakeSeason() {
    wxTextCtrl* const box = MakeText(this, Field::Season, 18);
    wxArrayString seasons;
    for (const char* const season : kSeasons)
        seasons.Add(season);
    combo1_ = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, seasons);
    combo1_->SetName("Combo1");
    return WithLabel(this, Field::Season, 'o', box, combo1_);
}

wxSizer* frmScenEdit::MakeWeather() {
    const int gap = FromDIP(kGap);
    auto* const frame = MakeFrame(this, "Select Weather Here if Required.");
    wxStaticBox* const box = frame->GetStaticBox();
    const auto cell = [&](Field field, char mnemonic) {
        return WithLabel(box, field, mnemonic, MakeText(box, field, kFewestListCharacters), nullptr);
    };
    auto* const names = new wxBoxSizer(wxHORIZONTAL);
    names->Add(cell(Field::WeatherProvider, 'P'), wxSizerFlags(1).Border(wxRIGHT, gap));
    names->Add(cell(Field::WeatherProduct, 'c'), wxSizerFlags(1));
    frame->Add(names, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    frame->Add(cell(Field::WeatherBlueprint, 'l'), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    auto* const lists = new wxBoxSizer(wxHORIZONTAL);
    dir1_ = MakeList(box, "Dir1");
    file1_ = MakeList(box, "File1");
    lists->Add(dir1_, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
    lists->Add(file1_, wxSizerFlags(1).Expand());
    frame->Add(lists, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    command3_ = MakeButton(box, "Command3", "Set &Weather", wxID_ANY);
    frame->Add(command3_, wxSizerFlags().Right().Border(wxRIGHT | wxBOTTOM, gap));
    return frame;
}

wxSizer* frmScenEdit::MakeConsists() {
    const int gap = FromDIP(kGap);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    auto* const consists = MakeFrame(this, "Consists");
    list1_ = new wxListView(consists->GetStaticBox(), wxID_ANY, wxDefaultPosition, wxDefaultSize,
                            wxLC_REPORT | wxLC_SINGLE_SEL);
    list1_->SetName("List1");
    list1_->SetMinSize(RoomFor(*list1_, kListCharacters, kListLines));
    list1_->AppendColumn("Name");
    list1_->AppendColumn("Driver", wxLIST_FORMAT_LEFT, kDriverCharacters * list1_->GetCharWidth());
    consists->Add(list1_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    row->Add(consists, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));

    auto* const contents = MakeFrame(this, "Contents of Consist");
    list2_ = MakeList(contents->GetStaticBox(), "List2");
    contents->Add(list2_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    command4_ = MakeButton(contents->GetStaticBox(), "Command4", "Drive It", wxID_ANY);
    contents->Add(command4_, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    row->Add(contents, wxSizerFlags(1).Expand());
    return row;
}

wxSizer* frmScenEdit::MakeBottom() {
    const int gap = FromDIP(kGap);
    auto* const bottom = new wxBoxSizer(wxHORIZONTAL);
    bottom->Add(MakeStatusLine(), wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    command1_ = MakeButton(this, "Command1", "&Save Changes", wxID_ANY);
    bottom->Add(command1_, wxSizerFlags().Border(wxRIGHT, gap));
    command2_ = MakeButton(this, "Command2", ToWx(window_.Command2), wxID_CANCEL);
    bottom->Add(command2_);
    return bottom;
}

// In the order of the Tab key.
void frmScenEdit::MakeControls() {
    const int gap = FromDIP(kGap);
    auto* const columns = MakeRow(2, 2 * gap);
    columns->Add(MakeProperties(), wxSizerFlags().Expand());
    auto* const right = new wxBoxSizer(wxVERTICAL);
    right->Add(MakeWeather(), wxSizerFlags(1).Expand().Border(wxBOTTOM, gap));
    right->Add(MakeConsists(), wxSizerFlags(1).Expand());
    columns->Add(right, wxSizerFlags().Expand());
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, 2 * gap));
    outer->Add(MakeBottom(), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, 2 * gap));
    SetSizer(outer);
    ShrinkAndFit();
}

/// It opens with room, within the screen, and can be made smaller.
void frmScenEdit::ShrinkAndFit() {
    const wxSize roomy = GetSizer()->ComputeFittingWindowSize(this);
    wxTextCtrl& name = Box(Field::DisplayName);
    name.SetMinSize(wxSize(RoomFor(*this, kFewestTextCharacters, 1).x, LineHeightOf(name)));
    for (const Field field : {Field::Description, Field::Briefing})
        Box(field).SetMinSize(RoomFor(*this, kFewestTextCharacters, kFewestTextLines));
    for (wxWindow* const list : std::initializer_list<wxWindow*>{dir1_, file1_, list1_, list2_})
        list->SetMinSize(RoomFor(*this, kFewestListCharacters, kFewestListLines));
    platform::OpenWithRoom(*this, roomy);
}

} // namespace tamarind::authoring
