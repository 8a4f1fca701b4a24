#include "windows/editor_window.h"
#include "windows/placement.h"

#include <wx/notebook.h>

#include <ostream>

namespace tamarind::tests {
namespace {

/// In pixels at 96 dots an inch; 0 by 0 is the smallest that the window allows.
struct Size {
    int width;
    int height;
    friend std::ostream& operator<<(std::ostream& out, const Size& size) {
        return out << size.width << "x" << size.height;
    }
};

class Layout : public EditorWindow, public testing::WithParamInterface<Size> {
protected:
    void OpenAtSize() {
        Open(WriteGameFile("Track.XSec", "<Track>1</Track>"));
        const wxSize asked = window_->FromDIP(wxSize(GetParam().width, GetParam().height));
        const wxSize size(std::max(asked.x, window_->GetMinSize().x), std::max(asked.y, window_->GetMinSize().y));
        // On top of a screen that may be hardly larger.
        window_->SetSize(wxRect(wxPoint(0, 0), size));
        ASSERT_TRUE(PumpUntil([&] { return window_->GetSize() == size; }));
        PumpFor(milliseconds(200));
    }

    void ShowPage(std::size_t page) {
        Find<wxNotebook>("SSTab1").SetSelection(page);
        PumpFor(milliseconds(200));
    }

    wxWindow& PageOf(const char* frame) { return *Find(frame).GetParent(); }
};

TEST_P(Layout, OfTheTextPageShowsEveryControlWhole) {
    OpenAtSize();
    const int controls = ExpectWellPlaced(PageOf("Frame1"));
    // Frame1 with Label1, Text1, Command1, and the panes with RichTextBox1 in its border.
    EXPECT_EQ(controls, 7);
}

TEST_P(Layout, OfTheTreePageShowsEveryControlWhole) {
    OpenAtSize();
    ShowPage(1);
    const int controls = ExpectWellPlaced(PageOf("Frame2"));
    // Four frames, two labels above the tree, the tree in its border, seven controls of the attributes, two of the
    // characters, eight of the search.
    EXPECT_EQ(controls, 25);
}

INSTANTIATE_TEST_SUITE_P(AtSize, Layout, testing::Values(Size{0, 0}, Size{1000, 700}, Size{1600, 1000}));

TEST_F(EditorWindow, GivesEveryPixelThatItGainsToTheTextAndToTheTree) {
    Open();
    PumpFor(milliseconds(200));
    const auto& text = Find("RichTextBox1");
    const wxSize before = text.GetSize();
    const wxSize windowBefore = window_->GetSize();
    window_->SetSize(windowBefore + wxSize(200, 100));
    ASSERT_TRUE(PumpUntil([&] { return window_->GetSize() == windowBefore + wxSize(200, 100); }));
    PumpFor(milliseconds(200));
    EXPECT_EQ(text.GetSize(), before + wxSize(200, 100));
}

} // namespace
} // namespace tamarind::tests
