#pragma once

#include "install/asset_window.h"
#include "install/folder_list_page.h"
#include "routes/frmTool.h"

#include <map>

class wxButton;
class wxListBox;
class wxSizer;
class wxTextCtrl;

namespace tamarind::install {

/// The asset packager: folders are looked for on the left, and gathered on the right.
class frmFolder3 final : public routes::frmTool {
public:
    /// `window` as LoadAssets has filled it.
    frmFolder3(wxWindow* parent, session::EditorContext& context, AssetWindow window, Owner owner);

private:
    wxSizer* MakeFiles();
    wxSizer* MakePackage();
    wxSizer* MakeButtons();
    wxSizer* MakeBottom();
    wxButton* MakeButton(AssetControl control, const char* name, char mnemonic, void (frmFolder3::*click)());
    wxListBox* MakeList(const char* name, long style);
    void MakeControls();
    void BindEvents();

    // The handlers of the controls.
    void Command1_Click();
    void Command3_Click();
    void Command4_Click();
    void Drive1_Change(std::size_t drive);
    void Dir1_Click(std::size_t row);
    void Text2_Change();
    void List1_Click();

    /// A change of the lists that waits for nothing.
    void Navigate(const std::function<void()>& command);
    void ShowState() override;
    void ShowButtons() override;
    void EndState() override;
    [[nodiscard]] bool IsEnded() const override { return window_.isClosed; }

    session::EditorContext& context_;
    AssetWindow window_;
    FolderListPage folders_;
    std::map<AssetControl, wxButton*> buttons_;
    wxTextCtrl* text2_ = nullptr;
    wxTextCtrl* text3_ = nullptr;
    wxListBox* file1_ = nullptr;
    wxListBox* list1_ = nullptr;
};

} // namespace tamarind::install
