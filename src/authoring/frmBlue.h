#pragma once

#include "authoring/blueprint_window.h"
#include "routes/frmTool.h"

#include <array>

class wxButton;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace tamarind::authoring {

/// Makes blueprints of the session's mode, as many as the person likes.
class frmBlue final : public routes::frmTool {
public:
    frmBlue(wxWindow* parent, session::EditorContext& context, Owner owner);

private:
    void MakeControls();
    wxSizer* MakeRow(std::size_t row, const wxString& caption);
    wxSizer* MakeBottom();

    // The handlers of the controls.
    void Text1_Change(std::size_t row);
    void Command1_Click();

    void ShowState() override;
    void ShowButtons() override;
    void EndState() override {}
    [[nodiscard]] bool IsEnded() const override { return false; }
    void ShowOutput();

    session::EditorContext& context_;
    BlueprintWindow window_;
    wxStaticText* label2_ = nullptr;
    std::array<wxStaticText*, kBlueprintRows> label1_{};
    std::array<wxStaticText*, kBlueprintRows> warnings_{};
    std::array<wxTextCtrl*, kBlueprintRows> text1_{};
    wxStaticText* output_ = nullptr;
    wxButton* command1_ = nullptr;
    wxButton* command2_ = nullptr;
};

} // namespace tamarind::authoring
