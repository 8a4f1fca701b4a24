#include "authoring/frmScenEdit.h"

#include "authoring/scenario_save.h"
#include "authoring/start_time.h"
#include "platform/wx/wx_text.h"
#include "routes/assets.h"
#include "text/search.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/datectrl.h>
#include <wx/dateevt.h>
#include <wx/dcclient.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/timectrl.h>

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace tamarind::authoring {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr std::array<Field, 3> kTextFields{Field::DisplayName, Field::Description, Field::Briefing};

/// Every digit; nothing for any other text, or for more digits than a year has.
std::optional<int> DigitsIn(const wxString& text) {
    constexpr std::size_t kMostDigits = 4;
    long number = 0;
    const bool isNumber = !text.empty() && text.length() <= kMostDigits &&
                          text.find_first_not_of("0123456789") == wxString::npos && text.ToLong(&number);
    return isNumber ? std::optional(static_cast<int>(number)) : std::nullopt;
}

wxArrayString AsItems(const std::vector<std::string>& texts) {
    wxArrayString items;
    items.Alloc(texts.size());
    for (const std::string& text : texts)
        items.Add(ToWx(routes::AsUtf8(text)));
    return items;
}

} // namespace

frmScenEdit::frmScenEdit(wxWindow* parent, EditorContext& context, ScenarioWindow window, Owner owner)
    : frmTool(parent, kScenarioWindowTitle, "frmScenEdit", std::move(owner)), context_(context),
      window_(std::move(window)) {
    MakeControls();
    ShowFields();
    ShowWeatherLists();
    ShowConsists();
    BindEvents();
    ShowState();
    Box(Field::DisplayName).SetFocus();
    CentreOnParent();
}

void frmScenEdit::BindEvents() {
    for (std::size_t i = 0; i < kFieldCount; ++i)
        text1_.at(i)->Bind(wxEVT_TEXT, [this, i](wxCommandEvent&) { Text1_Change(static_cast<Field>(i)); });
    Box(Field::Season).Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        if (!std::exchange(staysHidden_, false)) {
            window_.isCombo1Visible = true;
            CallAfter([this] { ShowState(); });
        }
        event.Skip();
    });
    combo1_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { Combo1_Click(); });
    clock_->Bind(wxEVT_TIME_CHANGED, [this](wxDateEvent&) { OnTimePicked(); });
    calendar_->Bind(wxEVT_DATE_CHANGED, [this](wxDateEvent&) { OnDatePicked(); });
    dir1_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { Dir1_Change(); });
    file1_->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowState(); });
    file1_->Bind(wxEVT_LISTBOX_DCLICK, [this](wxCommandEvent&) { Command3_Click(); });
    list1_->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { List1_Click(); });
    list1_->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { List1_Click(); });
    list1_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        list1_->SetColumnWidth(0, std::max(list1_->GetClientSize().x - list1_->GetColumnWidth(1), 1));
        event.Skip();
    });
    command4_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        CallAfter([this] { ShowDriveCaption(); }); // as much of the name as there is room for
        event.Skip();
    });
    command1_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command1_Click(); });
    command2_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Close(); });
    command3_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command3_Click(); });
    command4_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Command4_Click(); });
}

void frmScenEdit::Text1_Change(Field field) {
    const std::string typed = FromWx(Box(field).GetValue());
    TypeText(window_, field, text::ReplaceAll(typed, "\n", "\r\n"));
    if (std::find(kTextFields.begin(), kTextFields.end(), field) != kTextFields.end()) ShowWarning(field);
    ShowStart();
}

void frmScenEdit::Combo1_Click() {
    ChooseSeason(window_, FromWx(combo1_->GetStringSelection()));
    staysHidden_ = true;
    Box(Field::Season).SetFocus();
    ShowFields();
    ShowState();
}

void frmScenEdit::Dir1_Change() {
    const int row = dir1_->GetSelection();
    if (row == wxNOT_FOUND) return;
    ShowLine("");
    Run([this, row](EditorContext& context) { ClickWeatherFolder(context, window_, static_cast<std::size_t>(row)); });
    ShowWeatherLists();
    ShowState();
}

void frmScenEdit::List1_Click() {
    const int selected = SelectedConsist();
    wxArrayString vehicles;
    if (selected >= 0) vehicles = AsItems(VehicleLines(window_.Consists.at(static_cast<std::size_t>(selected))));
    list2_->Set(vehicles);
    ShowDriveCaption();
}

void frmScenEdit::Command1_Click() {
    ShowLine("");
    Run([this](EditorContext& context) { SaveChanges(context, window_); });
}

void frmScenEdit::Command3_Click() {
    const int file = file1_->GetSelection();
    if (file == wxNOT_FOUND) return;
    ShowLine("");
    Run([this, file](EditorContext& context) { SetWeather(context, window_, static_cast<std::size_t>(file)); });
    ShowFields();
}

void frmScenEdit::Command4_Click() {
    const int selected = SelectedConsist();
    ShowLine("");
    Run([this, selected](EditorContext& context) { DriveIt(context, window_, selected); });
    ShowConsists();
}

void frmScenEdit::OnTimePicked() {
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (!clock_->GetTime(&hour, &minute, &second)) return;
    Box(Field::StartTime).SetValue(ToWx(fmt::format("{:02}{:02}", hour, minute)));
}

void frmScenEdit::OnDatePicked() {
    const wxDateTime date = calendar_->GetValue();
    if (!date.IsValid()) return;
    // All three before the calendar follows what is typed.
    for (const auto& [field, number] : {std::pair(Field::StartDay, int{date.GetDay()}),
                                        std::pair(Field::StartMonth, static_cast<int>(date.GetMonth()) + 1),
                                        std::pair(Field::StartYear, date.GetYear())}) {
        TypeText(window_, field, std::to_string(number));
    }
    ShowFields();
}

void frmScenEdit::ShowState() {
    ShowButtons();
    command2_->SetLabel(ToWx(window_.Command2));
    combo1_->Show(window_.isCombo1Visible);
}

void frmScenEdit::ShowButtons() {
    const bool isIdle = !IsRunning();
    command1_->Enable(isIdle && window_.isSaveEnabled);
    command2_->Enable(isIdle);
    command3_->Enable(isIdle && file1_->GetSelection() != wxNOT_FOUND);
    command4_->Enable(isIdle);
}

/// What is shown already stays as it is, with the place of the cursor.
void frmScenEdit::ShowFields() {
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        const std::string shown = text::ReplaceAll(ShownText(window_, static_cast<Field>(i)), "\r\n", "\n");
        if (FromWx(text1_.at(i)->GetValue()) != shown) text1_.at(i)->ChangeValue(ToWx(shown));
    }
    for (const Field field : kTextFields)
        ShowWarning(field);
    ShowStart();
}

/// The line that tells how the start reads, the clock, the calendar and the chooser of seasons follow the fields.
void frmScenEdit::ShowStart() {
    const FieldTexts& fields = window_.Text1;
    start_->SetLabelText(ToWx("Starts: " + StartInWords({.time = fields[Field::StartTime],
                                                         .day = fields[Field::StartDay],
                                                         .month = fields[Field::StartMonth],
                                                         .year = fields[Field::StartYear],
                                                         .minutes = fields[Field::Duration]})));
    start_->SetToolTip(start_->GetLabelText());
    constexpr int kHoursPerDay = 24;
    constexpr int kMinutesPerHour = 60;
    const wxString time = Box(Field::StartTime).GetValue();
    const auto hour = DigitsIn(time.Left(2));
    const auto minute = DigitsIn(time.Mid(2));
    if (time.length() == 4 && hour && minute && *hour < kHoursPerDay && *minute < kMinutesPerHour)
        clock_->SetTime(*hour, *minute, 0);
    const auto day = DigitsIn(Box(Field::StartDay).GetValue());
    const auto month = DigitsIn(Box(Field::StartMonth).GetValue());
    const auto year = DigitsIn(Box(Field::StartYear).GetValue());
    // A year that is being typed would make the calendar jump to the first century.
    constexpr int kFirstYear = 1000;
    if (day && month && year && *month >= 1 && *month <= 12 && *year >= kFirstYear && *day >= 1) {
        const auto inYear = static_cast<wxDateTime::Month>(*month - 1);
        if (*day <= wxDateTime::GetNumberOfDays(inYear, *year))
            calendar_->SetValue(wxDateTime(static_cast<wxDateTime::wxDateTime_t>(*day), inYear, *year));
    }
    combo1_->SetStringSelection(Box(Field::Season).GetValue());
}

void frmScenEdit::ShowWarning(Field field) {
    wxStaticText& line = *warnings_.at(static_cast<std::size_t>(field));
    const std::string warning = TextWarning(ShownText(window_, field), !window_.isRecordUtf8);
    line.SetLabelText(ToWx(warning));
    line.SetToolTip(ToWx(warning));
}

void frmScenEdit::ShowWeatherLists() {
    constexpr std::size_t kIndent = 2;
    wxArrayString folders;
    int current = wxNOT_FOUND;
    for (const install::FolderRow& row : window_.DirRows) {
        if (row.isOpen) current = static_cast<int>(folders.size());
        folders.Add(wxString(' ', kIndent * row.depth) + ToWx(row.text));
    }
    dir1_->Set(folders);
    if (current != wxNOT_FOUND) {
        dir1_->SetSelection(current);
        dir1_->EnsureVisible(current);
    }
    file1_->Set(AsItems(window_.File1));
}

/// The selected one stays selected.
void frmScenEdit::ShowConsists() {
    const int selected = SelectedConsist();
    list1_->DeleteAllItems();
    for (const Consist& consist : window_.Consists) {
        const long row = list1_->InsertItem(list1_->GetItemCount(), ToWx(routes::AsUtf8(consist.name)));
        list1_->SetItem(row, 1, consist.isPlayerDriven ? "Player" : "");
    }
    if (selected >= 0) list1_->Select(selected);
    List1_Click();
}

void frmScenEdit::ShowDriveCaption() {
    const wxString caption = ToWx(DriveCaption(window_, SelectedConsist()));
    const wxClientDC room(command4_);
    const int borders = command4_->GetBestSize().x - room.GetTextExtent(command4_->GetLabelText()).x;
    const int width = command4_->GetSize().x - borders;
    const wxString shown =
        wxControl::Ellipsize(caption, room, wxELLIPSIZE_END, std::max(width, 1), wxELLIPSIZE_FLAGS_NONE);
    command4_->SetToolTip(caption);
    if (command4_->GetLabelText() != shown) command4_->SetLabelText(shown);
}

int frmScenEdit::SelectedConsist() const { return static_cast<int>(list1_->GetFirstSelected()); }

} // namespace tamarind::authoring
