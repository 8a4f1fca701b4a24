#include "windows/editor_window.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/notebook.h>
#include <wx/panel.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <ostream>

namespace tamarind::tests {
namespace {

using platform::FromWx;

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

    template <class Check> void ForEachWithin(wxWindow& parent, const Check& check) {
        for (wxWindow* const child : parent.GetChildren()) {
            if (!child->IsShown()) continue;
            check(*child);
            // What a control is made of is its own affair.
            const bool holdsOthers =
                dynamic_cast<wxStaticBox*>(child) != nullptr || dynamic_cast<wxPanel*>(child) != nullptr;
            if (holdsOthers) ForEachWithin(*child, check);
        }
    }
};

void ExpectInsideParent(const wxWindow& control) {
    const wxWindow& parent = *control.GetParent();
    const bool isFrame = dynamic_cast<const wxStaticBox*>(&parent) != nullptr;
    // Not every system counts a page's own place from the same corner, nor those of the controls in a frame.
    const wxRect outside = isFrame ? parent.GetScreenRect() : wxRect(parent.GetClientSize());
    const wxRect inside = isFrame ? control.GetScreenRect() : control.GetRect();
    EXPECT_TRUE(outside.Contains(inside)) << FromWx(control.GetName()) << ": " << inside.x << "," << inside.y << " "
                                          << inside.width << "x" << inside.height << " not within " << outside.x << ","
                                          << outside.y << " " << outside.width << "x" << outside.height;
    EXPECT_FALSE(inside.IsEmpty()) << FromWx(control.GetName());
}

void ExpectApartFromSiblings(const wxWindow& control) {
    for (const wxWindow* const sibling : control.GetParent()->GetChildren()) {
        if (sibling == &control || !sibling->IsShown()) continue;
        EXPECT_FALSE(control.GetScreenRect().Intersects(sibling->GetScreenRect()))
            << FromWx(control.GetName()) << " overlaps " << FromWx(sibling->GetName());
    }
}

void ExpectWholeCaption(const wxWindow& control) {
    const bool isCaptioned = dynamic_cast<const wxButton*>(&control) != nullptr ||
                             dynamic_cast<const wxCheckBox*>(&control) != nullptr ||
                             dynamic_cast<const wxStaticText*>(&control) != nullptr;
    // A path that is too long is shortened at its start.
    if (!isCaptioned || control.GetName() == "Label2") return;
    EXPECT_GE(control.GetSize().x, control.GetBestSize().x) << FromWx(control.GetName());
    EXPECT_GE(control.GetSize().y, control.GetBestSize().y) << FromWx(control.GetName());
}

void ExpectWellPlaced(const wxWindow& control) {
    ExpectInsideParent(control);
    ExpectApartFromSiblings(control);
    ExpectWholeCaption(control);
}

TEST_P(Layout, OfTheTextPageShowsEveryControlWhole) {
    OpenAtSize();
    int controls = 0;
    ForEachWithin(PageOf("Frame1"), [&](const wxWindow& control) {
        ++controls;
        ExpectWellPlaced(control);
    });
    // Frame1 with Label1, Text1, Command1, and RichTextBox1 in its border.
    EXPECT_EQ(controls, 6);
}

TEST_P(Layout, OfTheTreePageShowsEveryControlWhole) {
    OpenAtSize();
    ShowPage(1);
    int controls = 0;
    ForEachWithin(PageOf("Frame2"), [&](const wxWindow& control) {
        ++controls;
        ExpectWellPlaced(control);
    });
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
