#include "windows/expected_dialogs.h"

#include "platform/dialog_filter.h"
#include "platform/paths.h"
#include "platform/wx/wx_text.h"
#include "windows/system.h"

#include <gtest/gtest.h>

#include <wx/msgdlg.h>
#include <wx/stattext.h>
#include <wx/textdlg.h>

#include <utility>

namespace tamarind::tests {

using platform::FromWx;
using platform::ToWx;

namespace {

constexpr long kIconsAndButtons = wxICON_MASK | wxYES_NO | wxOK | wxCANCEL | wxHELP;

std::string DescriptionOf(wxDialog& dialog) {
    std::string text;
    if (const auto* const message = dynamic_cast<wxMessageDialog*>(&dialog)) text = FromWx(message->GetMessage());
    return FromWx(dialog.GetClassInfo()->GetClassName()) + " \"" + FromWx(dialog.GetTitle()) + "\" " + text;
}

/// The dialog as the kind that was expected; null, with a failed test, when it is another.
template <class Dialog> Dialog* As(wxDialog& dialog) {
    auto* const box = dynamic_cast<Dialog*>(&dialog);
    EXPECT_NE(box, nullptr) << "another dialog: " << DescriptionOf(dialog);
    return box;
}

std::string PromptOf(const wxDialog& dialog) {
    std::string prompt;
    for (wxWindow* const child : dialog.GetChildren()) {
        if (const auto* const line = dynamic_cast<wxStaticText*>(child)) prompt += FromWx(line->GetLabelText());
    }
    return prompt;
}

void CheckFileBox(const wxFileDialog& box, const ExpectedDialogs::FileBox& expected) {
    EXPECT_EQ(FromWx(box.GetMessage()), expected.title);
    EXPECT_EQ(FromWx(box.GetWildcard()), platform::DialogFilter(expected.filter));
    EXPECT_EQ(box.GetFilterIndex(), 0);
    EXPECT_EQ(box.HasFlag(wxFD_SAVE), expected.save);
    if (!expected.folder.empty()) {
        EXPECT_EQ(FromWx(box.GetDirectory()), platform::ToNative(expected.folder));
    }
}

void CheckTextBox(const wxTextEntryDialog& box, const ExpectedDialogs::TextBox& expected) {
    EXPECT_EQ(PromptOf(box), expected.prompt);
    EXPECT_EQ(FromWx(box.GetTitle()), expected.title);
    EXPECT_EQ(FromWx(box.GetValue()), expected.preset);
}

} // namespace

ExpectedDialogs::ExpectedDialogs() { Register(); }

ExpectedDialogs::~ExpectedDialogs() {
    for (const Step& step : steps_)
        ADD_FAILURE() << "never came: " << step.description;
}

void ExpectedDialogs::Expect(const std::string& description, std::function<int(wxDialog&)> meet) {
    steps_.push_back({description, std::move(meet)});
}

int ExpectedDialogs::Enter(wxDialog* dialog) {
    // Showing a file dialog announces it twice, as what it is and as a dialog.
    if (dialog == opening_) return wxID_NONE;
    if (steps_.empty()) {
        ADD_FAILURE() << "unexpected: " << DescriptionOf(*dialog);
        return wxID_CANCEL;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    SCOPED_TRACE(step.description);
    const int answer = step.meet(*dialog);
    opening_ = answer == wxID_NONE ? dialog : nullptr;
    return answer;
}

void ExpectedDialogs::Exit(wxDialog* dialog) {
    if (dialog == opening_) opening_ = nullptr;
}

void ExpectedDialogs::AnswerMessage(const MessageBox& expected, int answer) {
    Expect("message \"" + expected.text + "\"", [expected, answer](wxDialog& dialog) {
        const auto* const box = As<wxMessageDialog>(dialog);
        if (box == nullptr) return static_cast<int>(wxID_CANCEL);
        EXPECT_EQ(FromWx(box->GetMessage()), expected.text);
        EXPECT_EQ(FromWx(box->GetCaption()), expected.title);
        EXPECT_EQ(box->GetMessageDialogStyle() & kIconsAndButtons, expected.style);
        return answer;
    });
}

void ExpectedDialogs::ChooseFile(const FileBox& expected, const std::string& path) {
    Expect("file dialog \"" + expected.title + "\"", [expected, path](wxDialog& dialog) {
        auto* const box = As<wxFileDialog>(dialog);
        if (box == nullptr) return static_cast<int>(wxID_CANCEL);
        CheckFileBox(*box, expected);
        return ChooseInFileBox(*box, ToWx(platform::ToNative(path)));
    });
}

void ExpectedDialogs::CancelFile(const FileBox& expected) {
    Expect("file dialog \"" + expected.title + "\"", [expected](wxDialog& dialog) {
        if (const auto* const box = As<wxFileDialog>(dialog)) CheckFileBox(*box, expected);
        return static_cast<int>(wxID_CANCEL);
    });
}

void ExpectedDialogs::EnterText(const TextBox& expected, const std::string& text) {
    Expect("input box \"" + expected.title + "\"", [expected, text](wxDialog& dialog) {
        auto* const box = As<wxTextEntryDialog>(dialog);
        if (box == nullptr) return static_cast<int>(wxID_CANCEL);
        CheckTextBox(*box, expected);
        box->SetValue(ToWx(text));
        return static_cast<int>(wxID_OK);
    });
}

void ExpectedDialogs::CancelText(const TextBox& expected) {
    Expect("input box \"" + expected.title + "\"", [expected](wxDialog& dialog) {
        if (const auto* const box = As<wxTextEntryDialog>(dialog)) CheckTextBox(*box, expected);
        return static_cast<int>(wxID_CANCEL);
    });
}

void ExpectedDialogs::UseDialog(const std::string& name, std::function<void(wxDialog&)> use) {
    Expect("dialog " + name, [name, use = std::move(use)](wxDialog& dialog) {
        EXPECT_EQ(FromWx(dialog.GetName()), name);
        if (dialog.GetName() != ToWx(name)) return static_cast<int>(wxID_CANCEL);
        dialog.CallAfter([&dialog, use] { use(dialog); });
        return static_cast<int>(wxID_NONE);
    });
}

} // namespace tamarind::tests
