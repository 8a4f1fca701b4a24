#pragma once

#include "platform/wx/status_line.h"
#include "session/editor_context.h"

#include <wx/dialog.h>

#include <string>

class wxStaticText;
class wxTextCtrl;

namespace tamarind::routes {

/// Shows a report, which can be saved.
class frmReport : public wxDialog, public platform::StatusLine {
public:
    /// Lines of `text` end with CR LF.
    frmReport(wxWindow* parent, const std::string& text, session::CommandRunner run);

    void ShowStatus(const std::string& text) override;

private:
    [[nodiscard]] std::string Text() const;
    void cmdSave_Click();

    session::CommandRunner run_;
    wxTextCtrl* richTextBox1_;
    wxStaticText* status_;
};

} // namespace tamarind::routes
