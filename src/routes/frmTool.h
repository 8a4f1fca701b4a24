#pragma once

#include "platform/wx/status_line.h"
#include "session/editor_context.h"

#include <wx/dialog.h>

#include <functional>
#include <string>

class wxStaticText;

namespace tamarind::routes {

/// A window of a tool, which runs commands. It stays open beside the main window, or is shown modally. It cannot be
/// closed while one of them runs: it closes when that has ended, and a second try to close it offers to stop the
/// outside program that is waited for.
class frmTool : public wxDialog, public platform::StatusLine {
public:
    /// What the main window does for it.
    struct Owner {
        session::CommandRunner run;
        std::function<void()> offerToStop; ///< asks whether to stop the outside program that is waited for
    };

    void ShowStatus(const std::string& text) override;

protected:
    frmTool(wxWindow* parent, const std::string& title, const char* name, Owner owner);

    /// A line at the lower edge that shortens its text when there is no room.
    wxStaticText* MakeStatusLine();
    void Run(const std::function<void(session::EditorContext&)>& command);
    [[nodiscard]] const session::CommandRunner& Runner() const { return owner_.run; }
    [[nodiscard]] bool IsRunning() const { return runningCommands_ > 0; }
    /// The last command has told something in the status line.
    [[nodiscard]] bool HasTold() const { return hasTold_; }
    /// Shows a text in the status line that is not a command's.
    void ShowLine(const std::string& text);

private:
    void OnClose(wxCloseEvent& event);

    /// Fills the controls from the window's state.
    virtual void ShowState() = 0;
    /// Lets the buttons be pressed whose commands may begin.
    virtual void ShowButtons() = 0;
    /// The window was closed, by whatever means.
    virtual void EndState() = 0;
    /// A command has closed the window.
    [[nodiscard]] virtual bool IsEnded() const = 0;

    Owner owner_;
    wxStaticText* status_ = nullptr;
    int runningCommands_ = 0;
    bool hasTold_ = false;
    bool closesAfterwards_ = false;
};

} // namespace tamarind::routes
