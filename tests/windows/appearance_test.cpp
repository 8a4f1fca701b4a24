#include "windows/editor_window.h"

#include "platform/wx/colours.h"

#include <wx/dcscreen.h>
#include <wx/settings.h>
#include <wx/stc/stc.h>

#include <algorithm>
#include <cmath>

// The system's colours; run once more with a dark appearance where the system has one for tests.
namespace tamarind::tests {
namespace {

/// How far apart two colours are to the eye, from 1 (the same) to 21 (black and white).
double Contrast(const wxColour& one, const wxColour& other) {
    const auto brightness = [](const wxColour& colour) {
        const auto part = [](unsigned char value) {
            const double share = value / 255.0;
            return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.Red()) + 0.7152 * part(colour.Green()) + 0.0722 * part(colour.Blue());
    };
    const double first = brightness(one) + 0.05;
    const double second = brightness(other) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

class Appearance : public EditorWindow {
protected:
    wxStyledTextCtrl& Editor() { return Find<wxStyledTextCtrl>("RichTextBox1"); }
};

wxColour Of(wxSystemColour index) { return wxSystemSettings::GetColour(index); }

TEST_F(Appearance, OfTheTextIsTheSystems) {
    Open();
    const auto& editor = Editor();
    EXPECT_EQ(editor.StyleGetBackground(wxSTC_STYLE_DEFAULT), Of(wxSYS_COLOUR_WINDOW));
    EXPECT_EQ(editor.StyleGetForeground(wxSTC_STYLE_DEFAULT), Of(wxSYS_COLOUR_WINDOWTEXT));
    EXPECT_EQ(editor.GetCaretForeground(), Of(wxSYS_COLOUR_WINDOWTEXT));
    EXPECT_EQ(editor.StyleGetBackground(wxSTC_STYLE_LINENUMBER), Of(wxSYS_COLOUR_BTNFACE));
    EXPECT_EQ(editor.StyleGetForeground(wxSTC_STYLE_LINENUMBER), Of(wxSYS_COLOUR_BTNTEXT));
}

TEST_F(Appearance, OfColouredTextKeepsTheSystemsGround) {
    Open();
    window_->Context().view.SetEditorText("<a b=\"1\">text</a>");
    Press(Find("Command1"));
    for (int i = 0; i < Editor().GetLength(); ++i)
        EXPECT_EQ(Editor().StyleGetBackground(Editor().GetStyleAt(i)), Of(wxSYS_COLOUR_WINDOW)) << i;
}

TEST_F(Appearance, OfASelectionIsTheSystems) {
    Open();
    window_->Context().view.SetEditorText(std::string(40, ' ') + "\n");
    Editor().SetFocus();
    Editor().SetSelection(0, 40);
    PumpFor(milliseconds(300));
    const wxPoint inside = Editor().ClientToScreen(Editor().PointFromPosition(20) + wxPoint(1, 4));
    wxColour shown;
    ASSERT_TRUE(wxScreenDC().GetPixel(inside.x, inside.y, &shown));
    EXPECT_EQ(shown.GetAsString(wxC2S_HTML_SYNTAX), Of(wxSYS_COLOUR_HIGHLIGHT).GetAsString(wxC2S_HTML_SYNTAX));
}

TEST_F(Appearance, IsDarkWhereTheThemeIs) {
    wxString theme;
    wxGetEnv("GTK_THEME", &theme);
    EXPECT_EQ(platform::IsDark(Of(wxSYS_COLOUR_WINDOW)), theme.EndsWith(":dark"));
}

TEST_F(Appearance, OfBlueAndRedCanBeReadOnAnyGround) {
    for (const wxColour& ground : {wxColour(255, 255, 255), wxColour(0xF6, 0xF5, 0xF4), wxColour(0, 0, 0),
                                   wxColour(0x2D, 0x2D, 0x2D), wxColour(0x35, 0x35, 0x35), Of(wxSYS_COLOUR_WINDOW)}) {
        // Pure red on a light ground is the weakest of them.
        const double least = platform::IsDark(ground) ? 4.5 : 3.6;
        EXPECT_GE(Contrast(platform::BlueOn(ground), ground), least) << ground.GetAsString(wxC2S_HTML_SYNTAX);
        EXPECT_GE(Contrast(platform::RedOn(ground), ground), least) << ground.GetAsString(wxC2S_HTML_SYNTAX);
    }
}

TEST_F(Appearance, KeepsBlueBlueAndRedRed) {
    for (const wxColour& ground : {wxColour(255, 255, 255), wxColour(0x2D, 0x2D, 0x2D)}) {
        const wxColour blue = platform::BlueOn(ground);
        const wxColour red = platform::RedOn(ground);
        EXPECT_GT(blue.Blue(), blue.Red());
        EXPECT_GT(red.Red(), red.Blue());
    }
}

} // namespace
} // namespace tamarind::tests
