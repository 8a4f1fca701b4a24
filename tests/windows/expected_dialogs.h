#pragma once

#include <wx/dialog.h>
#include <wx/modalhook.h>

#include <deque>
#include <functional>
#include <string>

namespace tamarind::tests {

/// Answers the dialogs that a test expects, in order, in place of the person at the screen. A dialog that is not the
/// next expected one fails the test and is cancelled; so does, at the end, one that was expected and never came.
class ExpectedDialogs : public wxModalDialogHook {
public:
    ExpectedDialogs();
    ~ExpectedDialogs() override;

    struct MessageBox {
        std::string text = {}; ///< line breaks are LF
        std::string title = "Tamarind";
        long style = 0; ///< icon and buttons
    };
    void AnswerMessage(const MessageBox& expected, int answer = wxID_OK);

    struct FileBox {
        std::string title = {};
        std::string filter = {}; ///< as the program states it
        std::string folder = {}; ///< a program's path; empty: not looked at
        bool save = false;
    };
    void ChooseFile(const FileBox& expected, const std::string& path);
    void CancelFile(const FileBox& expected);

    struct TextBox {
        std::string prompt;
        std::string title;
        std::string preset;
    };
    void EnterText(const TextBox& expected, const std::string& text);
    void CancelText(const TextBox& expected);

    /// Lets the dialog of that name open on the screen and hands it to `use`, which must end it.
    void UseDialog(const std::string& name, std::function<void(wxDialog&)> use);

    /// Whether all that were expected have come.
    [[nodiscard]] bool AllCame() const { return steps_.empty(); }

protected:
    int Enter(wxDialog* dialog) override;
    void Exit(wxDialog* dialog) override;

private:
    struct Step {
        std::string description;
        std::function<int(wxDialog&)> meet;
    };
    void Expect(const std::string& description, std::function<int(wxDialog&)> meet);

    std::deque<Step> steps_;
    const wxDialog* opening_ = nullptr; ///< the last one that really opened, while it is open
};

} // namespace tamarind::tests
