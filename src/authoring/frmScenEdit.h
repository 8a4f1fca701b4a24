#pragma once

#include "authoring/scenario_window.h"
#include "routes/frmTool.h"

#include <array>
#include <functional>
#include <string>

class wxButton;
class wxChoice;
class wxDatePickerCtrl;
class wxListBox;
class wxListView;
class wxSizer;
class wxStaticText;
class wxTextCtrl;
class wxTimePickerCtrl;

namespace tamarind::authoring {

/// The properties of a scenario, and who drives which of its trains. Nothing else can be done while it is open, for it
/// shares its working files with the list of scenarios.
class frmScenEdit final : public routes::frmTool {
public:
    /// `window` as LoadScenario has filled it.
    frmScenEdit(wxWindow* parent, session::EditorContext& context, ScenarioWindow window, Owner owner);

private:
    // Building, in frmScenEdit_controls.cpp.
    void MakeControls();
    wxSizer* MakeProperties();
    wxSizer* MakeStart();
    wxSizer* MakeSeason();
    wxSizer* MakeWeather();
    wxSizer* MakeConsists();
    wxSizer* MakeBottom();
    wxTextCtrl* MakeText(wxWindow* parent, Field field, int characters, int lines = 1);
    wxSizer* WithLabel(wxWindow* parent, Field field, char mnemonic, wxWindow* control, wxWindow* beside);
    wxSizer* WithWarning(Field field, char mnemonic, wxTextCtrl* control);
    wxButton* MakeButton(wxWindow* parent, const char* name, const wxString& caption, int id);
    wxListBox* MakeList(wxWindow* parent, const char* name);
    void ShrinkAndFit();
    void BindEvents();

    // The handlers of the controls.
    void Text1_Change(Field field);
    void Combo1_Click();
    void Dir1_Change();
    void List1_Click();
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void OnTimePicked();
    void OnDatePicked();

    void ShowState() override;
    void ShowButtons() override;
    void EndState() override {}
    [[nodiscard]] bool IsEnded() const override { return false; }
    void ShowFields();
    void ShowStart();
    void ShowWarning(Field field);
    void ShowWeatherLists();
    void ShowConsists();
    void ShowDriveCaption();
    [[nodiscard]] int SelectedConsist() const;
    [[nodiscard]] wxTextCtrl& Box(Field field) { return *text1_.at(static_cast<std::size_t>(field)); }

    session::EditorContext& context_;
    ScenarioWindow window_;
    std::array<wxTextCtrl*, kFieldCount> text1_{};
    std::array<wxStaticText*, 3> warnings_{}; ///< of the three texts
    wxStaticText* start_ = nullptr;
    wxTimePickerCtrl* clock_ = nullptr;
    wxDatePickerCtrl* calendar_ = nullptr;
    wxChoice* combo1_ = nullptr;
    wxListBox* dir1_ = nullptr;
    wxListBox* file1_ = nullptr;
    wxListView* list1_ = nullptr;
    wxListBox* list2_ = nullptr;
    wxButton* command1_ = nullptr;
    wxButton* command2_ = nullptr;
    wxButton* command3_ = nullptr;
    wxButton* command4_ = nullptr;
    bool staysHidden_ = false; ///< the keyboard comes back to the season only because its chooser was hidden
};

} // namespace tamarind::authoring
