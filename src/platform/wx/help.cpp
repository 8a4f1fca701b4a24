#include "platform/wx/help.h"

#include "platform/paths.h"
#include "platform/wx/help_viewer.h"
#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"

#include <wx/artprov.h>
#include <wx/display.h>
#include <wx/filename.h>
#include <wx/frame.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpwnd.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/splitter.h>
#include <wx/toolbar.h>

#include <utility>

namespace tamarind::platform {

namespace {

constexpr int kStyle = wxHF_TOOLBAR | wxHF_CONTENTS | wxHF_INDEX | wxHF_SEARCH | wxHF_PRINT | wxHF_MERGE_BOOKS;
/// Room for the contents and for the widest picture beside them.
const wxSize kPageSize(780, 640);
constexpr int kContentsLetters = 34;

/// The toolkit cuts the pictures of its buttons to their middle on a screen of more dots, where the system does not
/// scale them.
void EnlargeButtons(wxToolBar& bar) {
    const wxSize usual = wxSize(16, 16);
    const wxSize size = bar.FromDIP(usual);
    if (size == usual) return;
    bar.SetToolBitmapSize(size);
    const std::pair<int, wxArtID> pictures[] = {{wxID_HTML_PANEL, wxART_HELP_SIDE_PANEL},
                                                {wxID_HTML_BACK, wxART_GO_BACK},
                                                {wxID_HTML_FORWARD, wxART_GO_FORWARD},
                                                {wxID_HTML_UPNODE, wxART_GO_TO_PARENT},
                                                {wxID_HTML_UP, wxART_GO_UP},
                                                {wxID_HTML_DOWN, wxART_GO_DOWN},
                                                {wxID_HTML_PRINT, wxART_PRINT},
                                                {wxID_HTML_OPTIONS, wxART_HELP_SETTINGS}};
    for (const auto& [button, picture] : pictures) {
        const wxBitmap drawn = wxArtProvider::GetBitmap(picture, wxART_TOOLBAR, usual);
        if (bar.FindById(button) == nullptr || !drawn.IsOk()) continue;
        bar.SetToolNormalBitmap(button,
                                wxBitmap(drawn.ConvertToImage().Scale(size.x, size.y, wxIMAGE_QUALITY_NEAREST)));
    }
    bar.Realize();
}

/// Makes the new window large enough, but no larger than the screen, and gives the contents the room for their lines.
void Furnish(wxFrame& frame, wxHtmlHelpWindow& help) {
    SetWindowIcons(frame);
    EnlargeButtons(*help.GetToolBar());
    const int contents = kContentsLetters * frame.GetCharWidth();
    wxSize size = frame.FromDIP(kPageSize) + wxSize(contents, 0);
    size.DecTo(wxDisplay(&frame).GetClientArea().GetSize());
    frame.SetSize(size);
    frame.CentreOnScreen();
    help.GetSplitterWindow()->SetSashPosition(contents);
}

} // namespace

Help::Help(wxWindow& window) : window_(window) {}

Help::~Help() = default;

bool Help::ShowPages(const wxString& project) {
    if (!wxFileName::FileExists(project)) return false;
    if (!controller_) {
        auto controller = std::make_unique<wxHtmlHelpController>(kStyle, &window_);
        // What is wrong with the files is told by whoever asked for them.
        const wxLogNull quiet;
        if (!controller->AddBook(wxFileName(project))) return false;
        controller->SetTitleFormat("%s - Tamarind Help");
        controller_ = std::move(controller);
    }
    const bool isOpen = controller_->GetHelpWindow() != nullptr;
    if (!controller_->DisplayContents()) return false;
    wxFrame* const frame = controller_->GetFrameParameters();
    if (!isOpen) Furnish(*frame, *controller_->GetHelpWindow());
    frame->Raise();
    return true;
}

bool Help::ShowContents(const std::string& file) {
    const wxFileName native(ToWx(ToNative(file)));
    if (native.FileExists() && ShowHelpFile(native.GetFullPath())) return true;
    wxFileName project(native);
    project.AppendDir("help");
    project.SetExt("hhp");
    return ShowPages(project.GetFullPath());
}

} // namespace tamarind::platform
