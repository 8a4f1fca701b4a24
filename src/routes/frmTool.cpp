#include "routes/frmTool.h"

#include "platform/wx/window_icons.h"
#include "platform/wx/wx_text.h"

#include <wx/stattext.h>
#include <wx/weakref.h>

#include <utility>

namespace tamarind::routes {

using platform::ToWx;

namespace {
const wxSize kSmallestStatusSize(120, -1);
} // namespace

frmTool::frmTool(wxWindow* parent, const std::string& title, const char* name, Owner owner)
    : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER | wxMAXIMIZE_BOX),
      owner_(std::move(owner)) {
    SetName(name);
    platform::SetWindowIcons(*this);
    Bind(wxEVT_CLOSE_WINDOW, &frmTool::OnClose, this);
}

wxStaticText* frmTool::MakeStatusLine() {
    status_ = new wxStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE);
    status_->SetName("StatusLine");
    status_->SetMinSize(FromDIP(kSmallestStatusSize));
    return status_;
}

void frmTool::Run(const std::function<void(session::EditorContext&)>& command) {
    const wxWeakRef<wxWindow> focused = FindFocus();
    ++runningCommands_;
    hasTold_ = false;
    ShowButtons();
    owner_.run(command);
    --runningCommands_;
    if (IsEnded()) {
        // Its owner destroys a modal one.
        if (IsModal()) {
            EndModal(wxID_OK);
        } else {
            Destroy();
        }
        return;
    }
    ShowState();
    // A disabled button has lost the keyboard.
    if (focused && IsDescendant(focused) && focused->IsEnabled()) focused->SetFocus();
    if (closesAfterwards_) {
        closesAfterwards_ = false;
        CallAfter([this] { Close(); });
    }
}

void frmTool::OnClose(wxCloseEvent& event) {
    if (IsRunning() && event.CanVeto()) {
        event.Veto();
        if (closesAfterwards_) owner_.offerToStop();
        closesAfterwards_ = true;
        ShowStatus("The window closes when the running command has ended.");
        return;
    }
    EndState();
    if (IsModal()) {
        EndModal(wxID_CANCEL);
    } else {
        Destroy();
    }
}

void frmTool::ShowStatus(const std::string& text) {
    hasTold_ = true;
    ShowLine(text);
}

void frmTool::ShowLine(const std::string& text) {
    status_->SetLabelText(ToWx(text));
    status_->SetToolTip(ToWx(text));
}

} // namespace tamarind::routes
