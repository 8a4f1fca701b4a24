#include "authoring/frmBlue.h"
#include "authoring/frmFolder.h"
#include "authoring/frmScenEdit.h"
#include "convert/texture_xml.h"
#include "editors/dlgFind.h"
#include "editors/frmAddAttribute.h"
#include "markers/dlgMarkers.h"
#include "platform/wx/wx_text.h"
#include "shell/frmAbout.h"
#include "shell/frmEditor.h"
#include "text/numbers.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/notebook.h>

// What the commands ask of the main window.
namespace tamarind::shell {

using platform::FromWx;
using platform::ToWx;
using session::Geometry;
using session::Page;

namespace {

/// 1/1440 inch at 96 dots an inch.
constexpr double kTwipsPerPixel = 15.0;
/// How much of a window must be on a screen so that it can be taken hold of, in pixels.
constexpr int kVisible = 40;

bool IsReachable(const wxRect& place) {
    const wxPoint handle(place.x + std::min(place.width, kVisible), place.y + kVisible / 2);
    return place.y >= -kVisible / 2 && wxDisplay::GetFromPoint(handle) != wxNOT_FOUND;
}

} // namespace

void frmEditor::SetCaption(const std::string& caption) { SetTitle(ToWx(caption)); }

std::string frmEditor::Caption() const { return FromWx(GetTitle()); }

void frmEditor::SetGeometry(const Geometry& geometry) {
    const auto pixels = [this](std::int16_t twips) { return FromDIP(static_cast<int>(twips / kTwipsPerPixel)); };
    const wxSize smallest = GetMinSize();
    wxRect place(pixels(geometry.left), pixels(geometry.top), std::max(pixels(geometry.width), smallest.x),
                 std::max(pixels(geometry.height), smallest.y));
    SetSize(place.GetSize());
    // A screen that is no longer there must not keep the window.
    if (IsReachable(place)) {
        SetPosition(place.GetPosition());
    } else {
        Centre();
    }
}

Geometry frmEditor::CurrentGeometry() const {
    const auto twips = [this](int pixels) { return text::ClampToInt16(ToDIP(pixels) * kTwipsPerPixel); };
    return {twips(normalPlace_.width), twips(normalPlace_.height), twips(normalPlace_.y), twips(normalPlace_.x)};
}

void frmEditor::ShowPage(Page page) {
    ssTab1_->ChangeSelection(static_cast<std::size_t>(page));
    ShowPageState();
}

void frmEditor::UpdateCommands() {
    for (const MenuItem& item : MenuItems()) {
        const auto menu = menus_.find(item.menu);
        if (menu != menus_.end()) menu->second->Enable(IdOf(item), IsItemEnabled(item, context_));
    }
}

void frmEditor::ShowWindow() {
    normalPlace_ = GetRect();
    // Window managers place a new window where they like; one that is moved afterwards stays where it was put. It is
    // there only when the toolkit says so: GTK shows a program's first window once it knows the width of the frames.
    Bind(wxEVT_SHOW, [this, place = normalPlace_](wxShowEvent& event) {
        event.Skip();
        if (isPlaced_) return;
        CallAfter([this, place] {
            isPlaced_ = true;
            Move(place.GetPosition() + wxPoint(1, 0));
            SetSize(place);
        });
    });
    Show();
    if (ssTab1_->GetCurrentPage() == textPage_) {
        textPage_->TakeFocus();
    } else {
        treePage_->Rows().TakeFocus();
    }
}

void frmEditor::CloseWindow() {
    CallAfter([this] { Close(); });
}

void frmEditor::FillEditorText(std::size_t size, const std::function<void(const session::TextSink& take)>& write) {
    textPage_->FillText(size, write);
    if (convert::IsTexture(textPage_->TextView())) {
        preview_->ShowTexture();
        textPage_->ShowBeside(*preview_);
    } else {
        textPage_->ShowTextAlone();
    }
}

void frmEditor::PaintEditorText() { textPage_->Paint(); }

std::string frmEditor::EditorText() const { return textPage_->Text(); }

bool frmEditor::IsEditorTextModified() const { return textPage_->IsModified(); }

void frmEditor::SetEditorTextSaved() { textPage_->SetSaved(); }

void frmEditor::HighlightEditorText() { textPage_->Highlight(); }

void frmEditor::ShowTextSearch() {
    ShowPage(Page::Text);
    textPage_->ShowSearch();
}

void frmEditor::ShowFilePath(const std::string& path) {
    textPage_->SetFilePath(path);
    treePage_->SetFilePath(path);
}

std::string frmEditor::FilePath() const { return textPage_->FilePath(); }

void frmEditor::ShowTree(const document::Document& document) { treePage_->Rows().ShowDocument(document); }

void frmEditor::ClearTree() { treePage_->Rows().Clear(); }

void frmEditor::AddRow(const document::clsNode& node) { treePage_->Rows().AddNode(node); }

void frmEditor::RemoveRow(const document::clsNode& node) { treePage_->Rows().RemoveNode(node); }

void frmEditor::EditRowLabel(const document::clsNode& node) { treePage_->Rows().EditNode(node); }

void frmEditor::ShowRowName(const document::clsNode& node) { treePage_->Rows().ShowName(node); }

void frmEditor::SelectRow(const document::clsNode& node) { treePage_->Rows().Select(node); }

void frmEditor::MarkRows(const std::vector<const document::clsNode*>& nodes) { treePage_->Rows().Mark(nodes); }

void frmEditor::UnmarkRows() { treePage_->Rows().Unmark(); }

bool frmEditor::AskToGoOn() {
    editors::dlgFind dialog(this, treePage_->Rows());
    return dialog.ShowModal() == wxID_FIND;
}

void frmEditor::EnableAttributeArea(bool enabled) { treePage_->EnableAttributeArea(enabled); }

void frmEditor::EnableAttributeEditing(bool enabled) { treePage_->EnableAttributeEditing(enabled); }

void frmEditor::ShowAttributeNames(const std::vector<std::string>& names) { treePage_->ShowAttributeNames(names); }

void frmEditor::AppendAttributeName(const std::string& name) { treePage_->AppendAttributeName(name); }

void frmEditor::RemoveAttributeName(int index) { treePage_->RemoveAttributeName(index); }

void frmEditor::SetAttributeName(int index, const std::string& name) { treePage_->SetAttributeName(index, name); }

int frmEditor::SelectedAttribute() const { return treePage_->SelectedAttribute(); }

void frmEditor::SelectAttribute(int index) { treePage_->SelectAttribute(index); }

void frmEditor::ShowAttributeValue(const std::string& value) { treePage_->ShowAttributeValue(value); }

void frmEditor::ShowCharacters(const std::string& text) { treePage_->ShowCharacters(text); }

std::optional<session::NewAttribute> frmEditor::AskForAttribute() {
    editors::frmAddAttribute dialog(this, ui_);
    if (dialog.ShowModal() != wxID_OK) return std::nullopt;
    return dialog.Entered();
}

void frmEditor::ShowRoutes() {
    if (!routes_) {
        routes::RouteWindow window;
        routes::LoadRoutes(context_, window);
        routes_ = new routes::frmDelRoute(this, context_, std::move(window), ToolOwner());
        routes_->Show();
    }
    routes_->Raise();
}

bool frmEditor::CloseRoutes() {
    if (routes_ && !routes_->Close()) return false;
    routes_ = nullptr; // it is destroyed later
    return true;
}

void frmEditor::ShowAssets() {
    if (!assets_) {
        install::AssetWindow window;
        install::LoadAssets(context_, window);
        assets_ = new install::frmFolder3(this, context_, std::move(window), ToolOwner());
        assets_->Show();
    }
    assets_->Raise();
}

routes::frmTool::Owner frmEditor::ToolOwner() {
    return {.run = [this](const auto& command) { Run(command); }, .offerToStop = [this] { OfferToStop(); }};
}

void frmEditor::ShowScenarioEditor() {
    authoring::ScenarioWindow window;
    if (!authoring::LoadScenario(context_, window)) return;
    wxWindow* const parent = routes_ ? static_cast<wxWindow*>(routes_.get()) : this;
    authoring::frmScenEdit dialog(parent, context_, std::move(window), ToolOwner());
    dialog.ShowModal();
}

bool frmEditor::ShowMarkers(const markers::MarkerList& list) {
    markers::dlgMarkers dialog(this, list);
    const bool isSaved = dialog.ShowModal() == wxID_SAVE;
    session_.skipsMarkerPicture = isSaved && dialog.IsSkippedFromNowOn();
    return isSaved;
}

bool frmEditor::ShowFolderChooser() {
    authoring::FolderWindow window;
    authoring::LoadFolders(context_, window);
    return authoring::frmFolder(this, context_, std::move(window), ToolOwner()).ShowModal() == wxID_OK;
}

void frmEditor::ShowBlueprint() { authoring::frmBlue(this, context_, ToolOwner()).ShowModal(); }

void frmEditor::ShowAbout() { frmAbout(this).ShowModal(); }

bool frmEditor::ShowHelp(const std::string& file) { return help_.ShowContents(file); }

} // namespace tamarind::shell
