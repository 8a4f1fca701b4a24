#include "platform/wx/wx_ui.h"

#include "platform/dialog_filter.h"
#include "platform/paths.h"
#include "platform/wx/wx_text.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/filedlg.h>
#include <wx/msgdlg.h>
#include <wx/progdlg.h>
#include <wx/textdlg.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

namespace tamarind::platform {
namespace {

long StyleOf(Icon icon) {
    switch (icon) {
    case Icon::None: return wxICON_NONE;
    case Icon::Information: return wxICON_INFORMATION;
    case Icon::Question: return wxICON_QUESTION;
    case Icon::Exclamation: return wxICON_EXCLAMATION;
    case Icon::Critical: return wxICON_ERROR;
    }
    return wxICON_NONE;
}

long StyleOf(Buttons buttons) {
    switch (buttons) {
    case Buttons::Ok: return wxOK;
    case Buttons::YesNo: return wxYES_NO;
    case Buttons::YesNoCancel: return wxYES_NO | wxCANCEL;
    }
    return wxOK;
}

Answer AnswerOf(int id, Buttons buttons) {
    switch (id) {
    case wxID_OK: return Answer::Ok;
    case wxID_YES: return Answer::Yes;
    case wxID_NO: return Answer::No;
    default: break;
    }
    // Closing a box without choosing: the answer that changes nothing.
    if (buttons == Buttons::Ok) return Answer::Ok;
    return buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
}

wxString WithPlainLineEnds(const std::string& text) {
    wxString plain = ToWx(text);
    plain.Replace("\r\n", "\n");
    return plain;
}

} // namespace

WxUserInterface::WxUserInterface(Window window) : window_(std::move(window)) {}

WxUserInterface::~WxUserInterface() = default;

Answer WxUserInterface::Show(const Message& message) {
    const long second = message.opensFolder.empty() ? 0 : wxHELP; // the one more button that such a box has
    wxMessageDialog box(window_.parent(), WithPlainLineEnds(message.text), ToWx(message.title),
                        StyleOf(message.icon) | StyleOf(message.buttons) | wxCENTRE | second);
    if (second != 0) box.SetHelpLabel("Open &Folder");
    const int chosen = box.ShowModal();
    if (chosen == wxID_HELP) wxLaunchDefaultApplication(ToWx(ToNative(message.opensFolder)));
    return AnswerOf(chosen, message.buttons);
}

std::string WxUserInterface::AskForFile(const FileDialog& dialog) {
    const long style = !dialog.save                 ? wxFD_OPEN | wxFD_FILE_MUST_EXIST
                       : dialog.confirmsOverwriting ? wxFD_SAVE | wxFD_OVERWRITE_PROMPT
                                                    : wxFD_SAVE;
    const wxString folder = dialog.startFolder.empty() ? wxString() : ToWx(ToNative(dialog.startFolder));
    wxFileDialog box(window_.parent(), ToWx(dialog.title), folder, wxString(), ToWx(DialogFilter(dialog.filter)),
                     style);
    if (box.ShowModal() != wxID_OK) return {};
    std::string path = FromNative(FromWx(box.GetPath()));
    const bool bare = NameOf(path).find('.') == std::string::npos;
    if (dialog.save && bare && !dialog.defaultExtension.empty()) path += "." + dialog.defaultExtension;
    return path;
}

std::string WxUserInterface::AskForText(const std::string& prompt, const std::string& title,
                                        const std::string& preset) {
    wxTextEntryDialog box(window_.parent(), ToWx(prompt), ToWx(title), ToWx(preset));
    return box.ShowModal() == wxID_OK ? FromWx(box.GetValue()) : std::string();
}

void WxUserInterface::SetBusy(bool busy) {
    if (busy) {
        wxBeginBusyCursor();
    } else {
        wxEndBusyCursor();
    }
}

void WxUserInterface::ProcessEvents() {
    if (auto* const loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_ALL);
}

void WxUserInterface::ShowStatus(const std::string& text) { window_.showStatus(text); }

bool WxUserInterface::ShowProgress(const Progress& progress) {
    const int total = static_cast<int>(std::max<std::size_t>(progress.total, 1));
    // The bar never reaches its end: there the dialog would wait for the person.
    const int done = static_cast<int>(std::min<std::size_t>(progress.done, progress.total));
    const wxString text = ToWx(ProgressText(progress) + "\n" + progress.current);
    if (!progress_) {
        // Wide enough for the names to come.
        const wxString widest = wxString(' ', 80) + "\n ";
        progress_ = std::make_unique<wxGenericProgressDialog>(ToWx(progress.title), widest, total + 1, window_.parent(),
                                                              wxPD_APP_MODAL | wxPD_CAN_ABORT);
    }
    if (progress_->GetRange() != total + 1) progress_->SetRange(total + 1);
    return progress_->Update(done, text);
}

void WxUserInterface::EndProgress() { progress_.reset(); }

bool WxUserInterface::StopRequested() { return window_.stopRequested(); }

void WxUserInterface::SetWaiting(bool waiting) { window_.setWaiting(waiting); }

} // namespace tamarind::platform
