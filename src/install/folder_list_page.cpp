#include "install/folder_list_page.h"

#include "icons.h"
#include "platform/paths.h"
#include "platform/wx/bordered_panel.h"
#include "platform/wx/embedded_icons.h"
#include "platform/wx/line_height.h"
#include "platform/wx/wx_text.h"

#include <wx/bmpbndl.h>
#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/treectrl.h>

#include <utility>

namespace tamarind::install {

using platform::ToWx;

namespace {

constexpr int kHalfGap = 4;

// The pictures of the folder list. The systems' own are not the same everywhere, and some are no folders.
enum Picture : int { kDrivePicture, kOpenPicture, kClosedPicture };

/// The index of a row of the folder list.
class RowData : public wxTreeItemData {
public:
    explicit RowData(std::size_t row) : row_(row) {}
    [[nodiscard]] std::size_t Row() const { return row_; }

private:
    std::size_t row_;
};

std::size_t RowOf(const wxTreeCtrl& tree, const wxTreeItemId& item) {
    return dynamic_cast<const RowData&>(*tree.GetItemData(item)).Row();
}

wxString Shown(const std::string& path) { return ToWx(platform::ForDisplay(path)); }

} // namespace

wxSizer* FolderListPage::Make(wxWindow* parent, int characters, int lines, Handlers handlers) {
    handlers_ = std::move(handlers);
    const int half = parent->FromDIP(kHalfGap);
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(new wxStaticText(parent, wxID_ANY, "&Drive"), wxSizerFlags().Border(wxBOTTOM, half));
    drive1_ = new wxChoice(parent, wxID_ANY);
    drive1_->SetName("Drive1");
    column->Add(drive1_, wxSizerFlags().Expand().Border(wxBOTTOM, 2 * half));
    column->Add(new wxStaticText(parent, wxID_ANY, "F&olders"), wxSizerFlags().Border(wxBOTTOM, half));
    auto* const border = new platform::BorderedPanel(parent);
    dir1_ = new wxTreeCtrl(border, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                           wxTR_SINGLE | wxTR_NO_LINES | wxTR_FULL_ROW_HIGHLIGHT | wxBORDER_NONE);
    dir1_->SetName("Dir1");
    wxVector<wxBitmapBundle> pictures;
    pictures.push_back(wxBitmapBundle::FromIconBundle(platform::IconsFrom(drive_icon)));
    pictures.push_back(wxBitmapBundle::FromIconBundle(platform::IconsFrom(folder_open_icon)));
    pictures.push_back(wxBitmapBundle::FromIconBundle(platform::IconsFrom(folder_icon)));
    dir1_->SetImages(pictures);
    dir1_->SetInitialSize(wxSize(characters * dir1_->GetCharWidth(), lines * dir1_->GetCharHeight()));
    border->Hold(dir1_);
    column->Add(border, wxSizerFlags(1).Expand());
    BindEvents();
    return column;
}

wxSizer* FolderListPage::MakePath(wxWindow* parent) {
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(new wxStaticText(parent, wxID_ANY, "Folder"),
             wxSizerFlags().CenterVertical().Border(wxRIGHT, parent->FromDIP(2 * kHalfGap)));
    text1_ = new wxTextCtrl(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize, wxTE_READONLY);
    text1_->SetName("Text1");
    platform::GiveLineHeight(*text1_);
    row->Add(text1_, wxSizerFlags(1).CenterVertical());
    return row;
}

void FolderListPage::BindEvents() {
    drive1_->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
        handlers_.changeDrive(static_cast<std::size_t>(drive1_->GetSelection()));
    });
    // The mouse opens a folder at once, the arrow keys walk over the rows and Enter or the space bar opens one. The
    // list is filled anew by that, so it must wait until the list itself is done with the click. Enter is taken before
    // the window presses its default button; every other key does what it does in any list.
    dir1_->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        event.Skip();
        const wxTreeItemId item = dir1_->HitTest(event.GetPosition());
        if (item.IsOk()) dir1_->CallAfter([this, row = RowOf(*dir1_, item)] { handlers_.clickFolder(row); });
    });
    dir1_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        const wxTreeItemId item = dir1_->GetSelection();
        const bool opens = key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_SPACE;
        if (!opens || event.HasAnyModifiers() || !item.IsOk()) return event.Skip();
        dir1_->CallAfter([this, row = RowOf(*dir1_, item)] { handlers_.clickFolder(row); });
    });
}

void FolderListPage::ShowDrives(const std::vector<std::string>& drives, const std::string& current) {
    wxArrayString items;
    for (const std::string& drive : drives)
        items.Add(Shown(drive));
    if (drive1_->GetStrings() != items) drive1_->Set(items);
    drive1_->SetStringSelection(Shown(current));
}

void FolderListPage::ShowPath(const std::string& path) {
    text1_->ChangeValue(ToWx(path));
    text1_->SetInsertionPointEnd();
}

void FolderListPage::ShowFolders(const std::vector<FolderRow>& rows) {
    if (shownRows_ == rows) return;
    shownRows_ = rows;
    dir1_->DeleteAllItems();
    std::vector<wxTreeItemId> way; // the last item of each depth
    wxTreeItemId current;
    for (std::size_t i = 0; i < shownRows_.size(); ++i) {
        const FolderRow& row = shownRows_[i];
        const int picture = row.depth == 0 ? kDrivePicture : row.isOpen ? kOpenPicture : kClosedPicture;
        auto* const data = new RowData(i);
        way.resize(row.depth);
        way.push_back(way.empty() ? dir1_->AddRoot(Shown(row.text), picture, picture, data)
                                  : dir1_->AppendItem(way.back(), Shown(row.text), picture, picture, data));
        if (row.isOpen) current = way.back();
    }
    if (!current.IsOk()) return;
    dir1_->ExpandAll();
    dir1_->SelectItem(current);
    dir1_->EnsureVisible(current);
}

} // namespace tamarind::install
