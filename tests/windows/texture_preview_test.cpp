#include "convert/texture_sample.h"
#include "windows/editor_window.h"

#include <wx/choice.h>
#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/stattext.h>
#include <wx/stc/stc.h>

#include <algorithm>
#include <ctime>

namespace tamarind::tests {
namespace {

using platform::FromWx;

constexpr int kNothing = wxNOT_FOUND;

std::string Repeated(const std::string& text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

/// Four pixels each way, all of one colour (blue, green, red, alpha), and a second level of another.
std::string TwoLevels() {
    return TextureText(kArgb, "4", "4", {{"64", Repeated("0000FFFF", 16)}, {"16", Repeated("00FF00FF", 4)}});
}

class TexturePreview : public EditorWindow {
protected:
    session::EditorView& View() { return window_->Context().view; }
    bool IsShown() { return Find("TexturePreview").IsShownOnScreen(); }
    std::string Info() { return FromWx(Find<wxStaticText>("PreviewInfo").GetLabel()); }
    std::string Scale() { return FromWx(Find<wxStaticText>("PreviewScale").GetLabel()); }
    wxChoice& Level() { return Find<wxChoice>("PreviewLevel"); }
    void ChooseLevel(int level) {
        Level().SetSelection(level);
        wxCommandEvent event(wxEVT_CHOICE, Level().GetId());
        event.SetInt(level);
        event.SetEventObject(&Level());
        Level().GetEventHandler()->ProcessEvent(event);
    }
    void TurnWheel(int rotation) {
        auto& canvas = Find("PreviewPicture");
        wxMouseEvent event(wxEVT_MOUSEWHEEL);
        event.SetEventObject(&canvas);
        event.m_wheelRotation = rotation;
        event.m_wheelDelta = 120;
        canvas.GetEventHandler()->ProcessEvent(event);
    }
    void Key(int key) {
        auto& canvas = Find("PreviewPicture");
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.SetEventObject(&canvas);
        event.m_uniChar = static_cast<wxChar>(key);
        event.m_keyCode = key;
        canvas.GetEventHandler()->ProcessEvent(event);
    }
    /// What is painted in the middle of the picture.
    wxColour MiddleColour() {
        auto& canvas = Find("PreviewPicture");
        canvas.Update();
        PumpFor(milliseconds(100));
        const wxSize size = canvas.GetClientSize();
        wxBitmap picture(size);
        wxMemoryDC memory(picture);
        wxClientDC screen(&canvas);
        memory.Blit(0, 0, size.x, size.y, &screen, 0, 0);
        memory.SelectObject(wxNullBitmap);
        const wxImage image = picture.ConvertToImage();
        return {image.GetRed(size.x / 2, size.y / 2), image.GetGreen(size.x / 2, size.y / 2),
                image.GetBlue(size.x / 2, size.y / 2)};
    }
};

TEST_F(TexturePreview, StandsBesideTheTextOfATexture) {
    Open();
    EXPECT_FALSE(IsShown());
    session_.CommandFile = WriteGameFile("Board.TgPcDx", TwoLevels());
    session_.UseCommandFile = true;
    Choose("mnuOpenTex");
    Pump();
    ASSERT_TRUE(IsShown());
    EXPECT_EQ(Info(), "4 x 4 pixels, ARGB 8.8.8.8");
    EXPECT_TRUE(Find("RichTextBox1").IsShownOnScreen());
    EXPECT_LT(Find("RichTextBox1").GetScreenRect().GetRight(), Find("PreviewPicture").GetScreenRect().GetLeft());
    EXPECT_EQ(MiddleColour(), wxColour(255, 0, 0));
}

TEST_F(TexturePreview, StaysAwayForOtherFiles) {
    Open();
    View().SetEditorText("<cTrack><Gauge>1435</Gauge></cTrack>");
    Pump();
    EXPECT_FALSE(IsShown());
}

TEST_F(TexturePreview, GoesWhenAnotherFileIsOpened) {
    Open();
    View().SetEditorText(TwoLevels());
    Pump();
    ASSERT_TRUE(IsShown());
    View().SetEditorText("<cTrack/>");
    Pump();
    EXPECT_FALSE(IsShown());
}

TEST_F(TexturePreview, IsClosedByItsButtonUntilTheNextTexture) {
    Open();
    View().SetEditorText(TwoLevels());
    Press(Find("PreviewClose"));
    Pump();
    EXPECT_FALSE(IsShown());
    View().SetEditorText(TwoLevels());
    Pump();
    EXPECT_TRUE(IsShown());
}

TEST_F(TexturePreview, ShowsTheLevelThatIsChosen) {
    Open();
    View().SetEditorText(TwoLevels());
    Pump();
    ASSERT_EQ(Level().GetCount(), 2U);
    EXPECT_EQ(FromWx(Level().GetString(0)), "0 of 2 (4 x 4)");
    EXPECT_EQ(FromWx(Level().GetString(1)), "1 of 2 (2 x 2)");
    ChooseLevel(1);
    EXPECT_EQ(Info(), "2 x 2 pixels, ARGB 8.8.8.8");
    EXPECT_EQ(MiddleColour(), wxColour(0, 255, 0));
}

TEST_F(TexturePreview, SaysWhyThereIsNoPicture) {
    Open();
    View().SetEditorText(TextureText(kDxt1, "8", "8", {{"32", "00"}}));
    Pump();
    EXPECT_TRUE(IsShown());
    EXPECT_EQ(Info(), "Level 0 of 8 x 8 pixels takes 32 bytes of DXT1 ARGB, but its blob holds 1.");
    EXPECT_FALSE(Find("PreviewFit").IsEnabled());
    EXPECT_EQ(Level().GetSelection(), kNothing);
}

TEST_F(TexturePreview, IsZoomedByWheelKeysAndButtons) {
    Open();
    View().SetEditorText(TwoLevels());
    Pump();
    EXPECT_EQ(Scale(), "800 %"); // as large as a small picture becomes by itself
    TurnWheel(120);
    EXPECT_EQ(Scale(), "1200 %");
    TurnWheel(-120);
    TurnWheel(-120);
    EXPECT_EQ(Scale(), "600 %");
    Press(Find("PreviewFull"));
    EXPECT_EQ(Scale(), "100 %");
    Key('+');
    Key('+');
    EXPECT_EQ(Scale(), "200 %");
    Key('-');
    EXPECT_EQ(Scale(), "150 %");
    Press(Find("PreviewFit"));
    EXPECT_EQ(Scale(), "800 %");
}

TEST_F(TexturePreview, ScrollsAPictureThatIsLargerThanItsRoom) {
    Open();
    View().SetEditorText(TextureText(kDxt1, "64", "64", {{"2048", Repeated("00F8000000000000", 256)}}));
    Pump();
    for (int i = 0; i < 20; ++i)
        Key('+');
    Pump();
    EXPECT_EQ(Scale(), "3200 %");
    EXPECT_EQ(Find("PreviewPicture").GetVirtualSize(), wxSize(64 * 32, 64 * 32));
    EXPECT_EQ(MiddleColour(), wxColour(255, 0, 0));
}

TEST_F(TexturePreview, ShowsALargeTextureAtOnce) {
    Open();
    // Smaller where a sanitizer or Wine slows everything down. Blocks of 4 x 4 pixels take eight bytes, four of them
    // stand in a line as the converter writes them.
    constexpr std::size_t kSide = LONGEST_PAUSE_MS > 200 ? 512 : 2048;
    constexpr std::size_t kBlocks = kSide / 4 * kSide / 4;
    const std::string line = Repeated("00F8000000000000 ", 4) + "\r\n";
    const std::string side = std::to_string(kSide);
    const std::string xml =
        TextureText(kDxt1, side, side, {{std::to_string(8 * kBlocks), Repeated(line, kBlocks / 4)}});
    constexpr double kLongest = LONGEST_PAUSE_MS / 2.0;
    // Processor time where the system counts it: what other programs do is none of ours, as far as they let the
    // processor be. Hence the best of ten.
    double shortest = LONGEST_PAUSE_MS;
    for (int attempt = 0; attempt < 10 && shortest >= kLongest; ++attempt) {
        View().SetEditorText("");
        Pump();
        const std::clock_t start = std::clock();
        View().SetEditorText(xml);
        Find("PreviewPicture").Update();
        Pump();
        shortest = std::min(shortest, 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
    EXPECT_LT(shortest, kLongest);
    EXPECT_EQ(MiddleColour(), wxColour(255, 0, 0));
}

class LongLine : public EditorWindow {};

TEST_F(LongLine, HasAScrollBarAndThenRest) {
    Open();
    auto& editor = Find<wxStyledTextCtrl>("RichTextBox1");
    window_->Context().view.SetEditorText(Repeated("long ", 500) + "\r\n" + Repeated("line\r\n", 200));
    EXPECT_TRUE(PumpUntil([&] { return editor.GetScrollRange(wxHORIZONTAL) > editor.GetClientSize().x; }));
    PumpFor(milliseconds(300));
    int paints = 0;
    editor.Bind(wxEVT_STC_PAINTED, [&paints](wxStyledTextEvent& event) {
        ++paints;
        event.Skip();
    });
    PumpFor(milliseconds(1000));
    EXPECT_LT(paints, 10); // a blinking caret, no more
    EXPECT_GT(editor.GetScrollRange(wxHORIZONTAL), editor.GetClientSize().x);
}

} // namespace
} // namespace tamarind::tests
