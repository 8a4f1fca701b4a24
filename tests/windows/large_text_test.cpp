#include "windows/editor_window.h"

#include <gmock/gmock.h>

#include <wx/stc/stc.h>

#include <algorithm>
#include <ctime>
#include <stdexcept>
#include <vector>

namespace tamarind::tests {
namespace {

constexpr milliseconds kLongestPause(LONGEST_PAUSE_MS);
constexpr milliseconds kTick(5);
/// GTK paints nothing at once in a window that has only just come.
constexpr milliseconds kFirstFrames(300);
/// Where everything is slower, by a sanitizer or by Wine beside other programs, the text is smaller too.
constexpr std::size_t kTextSize = LONGEST_PAUSE_MS > 200 ? 10'000'000 : 50'000'000;

/// Measures how long the program neither answers nor paints the text: a timer that should tick all the time. In
/// processor time where the system counts it, for a busy machine makes pauses of its own.
class PauseMeter : public wxTimer {
public:
    explicit PauseMeter(wxStyledTextCtrl& editor) : editor_(editor) {
        editor_.Bind(wxEVT_STC_PAINTED, &PauseMeter::OnPainted, this);
        Start(static_cast<int>(kTick.count()));
    }
    ~PauseMeter() override { editor_.Unbind(wxEVT_STC_PAINTED, &PauseMeter::OnPainted, this); }
    PauseMeter(const PauseMeter&) = delete;
    PauseMeter& operator=(const PauseMeter&) = delete;
    void Notify() override {
        const std::clock_t now = std::clock();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
    }
    [[nodiscard]] milliseconds Longest() const {
        return milliseconds(1000 * static_cast<long long>(longest_) / CLOCKS_PER_SEC);
    }

private:
    void OnPainted(wxStyledTextEvent& event) {
        event.Skip();
        Notify();
    }

    wxStyledTextCtrl& editor_;
    std::clock_t last_ = std::clock();
    std::clock_t longest_ = 0;
};

class LargeText : public EditorWindow {
protected:
    wxStyledTextCtrl& Editor() { return Find<wxStyledTextCtrl>("RichTextBox1"); }
    std::size_t Length() { return static_cast<std::size_t>(Editor().GetLength()); }
    session::EditorView& View() { return window_->Context().view; }
};

std::string LargeXml() {
    const std::string line = "  <s:Value d:type=\"sFloat32\" d:alt_encoding=\"0000000000000000\">1435</s:Value>\r\n";
    std::string xml = "<Values>\r\n";
    while (xml.size() < kTextSize)
        xml += line;
    return xml + "</Values>\r\n";
}

TEST_F(LargeText, IsShownWithoutALongPause) {
    Open();
    PumpFor(kFirstFrames);
    const std::string xml = LargeXml();
    session_.CommandFile = folder_.Write("Rail Simulator\\large.xml", xml);
    milliseconds longest(milliseconds::max());
    // The best of ten: a busy machine makes pauses of its own.
    for (int attempt = 0; attempt < 10 && longest >= kLongestPause; ++attempt) {
        View().SetEditorText("");
        Pump();
        const PauseMeter meter(Editor());
        session_.UseCommandFile = true;
        Choose("mnuXML");
        EXPECT_TRUE(PumpUntil([&] { return Length() == xml.size(); }));
        PumpFor(milliseconds(100));
        longest = meter.Longest();
    }
    EXPECT_LT(longest.count(), kLongestPause.count());
    EXPECT_EQ(Editor().GetEOLMode(), wxSTC_EOL_CRLF);
    EXPECT_FALSE(Editor().CanUndo());
    EXPECT_FALSE(Editor().GetModify());
}

TEST_F(LargeText, IsPaintedWhileItIsRead) {
    Open();
    PumpFor(kFirstFrames);
    std::vector<int> painted;
    const auto note = [&](wxStyledTextEvent& event) {
        event.Skip();
        painted.push_back(Editor().GetLength());
    };
    Editor().Bind(wxEVT_STC_PAINTED, note);
    const auto slow = [](const session::TextSink& take) {
        for (const char* const piece : {"<a>", "<b/>", "</a>"}) {
            wxMilliSleep(100);
            take(piece);
        }
    };
    View().FillEditorText(0, slow);
    Editor().Unbind(wxEVT_STC_PAINTED, note);
    EXPECT_THAT(painted, testing::IsSupersetOf({3, 7, 11}));
    EXPECT_EQ(EditorText(), "<a><b/></a>");
    EXPECT_FALSE(Editor().CanUndo());
}

TEST_F(LargeText, ThatFailsHalfWayLeavesNoHalfOfItToBeSaved) {
    Open();
    View().SetEditorText("before");
    const auto failing = [](const session::TextSink& take) {
        take("<half>");
        throw std::runtime_error("the disk is gone");
    };
    EXPECT_THROW(View().FillEditorText(100, failing), std::runtime_error);
    EXPECT_EQ(EditorText(), "");
    View().SetEditorText("after");
    EXPECT_EQ(EditorText(), "after");
}

TEST_F(LargeText, ThatFailsAtOnceLeavesTheOldOneWithItsUndo) {
    Open();
    View().SetEditorText("before");
    TypeText("typed");
    const auto failing = [](const session::TextSink&) { throw std::runtime_error("no right to read it"); };
    EXPECT_THROW(View().FillEditorText(100, failing), std::runtime_error);
    EXPECT_EQ(EditorText(), "typed");
    EXPECT_TRUE(Editor().CanUndo());
}

TEST_F(LargeText, WithLineFeedsAloneKeepsThemWhenLinesAreAdded) {
    Open();
    View().SetEditorText("one\ntwo\n");
    EXPECT_EQ(Editor().GetEOLMode(), wxSTC_EOL_LF);
    View().SetEditorText("one\r\ntwo\r\n");
    EXPECT_EQ(Editor().GetEOLMode(), wxSTC_EOL_CRLF);
}

} // namespace
} // namespace tamarind::tests
