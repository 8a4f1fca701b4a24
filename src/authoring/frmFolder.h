#pragma once

#include "authoring/folder_window.h"
#include "install/folder_list_page.h"
#include "routes/frmTool.h"

#include <functional>

class wxButton;
class wxSizer;
class wxStaticText;
class wxTextCtrl;

namespace tamarind::authoring {

/// Chooses a folder, for one of several jobs; for an add-on a name as well. Shown modally, it ends with wxID_OK when
/// the choice is confirmed.
class frmFolder final : public routes::frmTool {
public:
    /// `window` as LoadFolders has filled it.
    frmFolder(wxWindow* parent, session::EditorContext& context, FolderWindow window, Owner owner);

private:
    void MakeControls();
    wxSizer* MakeName();
    wxSizer* MakeBottom();
    void BindEvents();

    // The handlers of the controls.
    void Command1_Click();
    void Drive1_Change(std::size_t drive);
    void Dir1_Click(std::size_t row);
    void Text2_Change();

    void Navigate(const std::function<void()>& command);
    void ShowState() override;
    void ShowButtons() override;
    void EndState() override {}
    [[nodiscard]] bool IsEnded() const override { return window_.isConfirmed; }
    void ShowHint();

    session::EditorContext& context_;
    FolderWindow window_;
    install::FolderListPage folders_;
    wxStaticText* label1_ = nullptr;
    wxTextCtrl* text2_ = nullptr;
    wxStaticText* hint_ = nullptr;
    wxButton* command1_ = nullptr;
    wxButton* command2_ = nullptr;
};

} // namespace tamarind::authoring
