#include "windows/placement.h"

#include "platform/wx/wx_text.h"

#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/splitter.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

namespace tamarind::tests {
namespace {

using platform::FromWx;

/// A path that is too long for its line.
bool IsShortened(const wxWindow& control) {
    if (dynamic_cast<const wxStaticText*>(&control) == nullptr) return false;
    return control.HasFlag(wxST_ELLIPSIZE_START) || control.HasFlag(wxST_ELLIPSIZE_MIDDLE) ||
           control.HasFlag(wxST_ELLIPSIZE_END);
}

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
        // Windows that lie on this one have nothing to do with its layout.
        if (sibling == &control || !sibling->IsShown() || sibling->IsTopLevel()) continue;
        // Not by their places on the screen: those of frames are counted from below their captions on some systems.
        const wxRect own = control.GetRect();
        const wxRect other = sibling->GetRect();
        EXPECT_FALSE(own.Intersects(other))
            << FromWx(control.GetName()) << " overlaps " << FromWx(sibling->GetName()) << ": " << own.x << "," << own.y
            << " " << own.width << "x" << own.height << " and " << other.x << "," << other.y << " " << other.width
            << "x" << other.height;
    }
}

void ExpectWholeCaption(const wxWindow& control) {
    const bool isCaptioned = dynamic_cast<const wxButton*>(&control) != nullptr ||
                             dynamic_cast<const wxCheckBox*>(&control) != nullptr ||
                             dynamic_cast<const wxStaticText*>(&control) != nullptr;
    if (!isCaptioned || IsShortened(control)) return;
    EXPECT_GE(control.GetSize().x, control.GetBestSize().x) << FromWx(control.GetName());
    EXPECT_GE(control.GetSize().y, control.GetBestSize().y) << FromWx(control.GetName());
}

} // namespace

int ExpectWellPlaced(const wxWindow& window) {
    int controls = 0;
    for (const wxWindow* const child : window.GetChildren()) {
        if (!child->IsShown() || child->IsTopLevel()) continue;
        ExpectInsideParent(*child);
        ExpectApartFromSiblings(*child);
        ExpectWholeCaption(*child);
        // What a control is made of is its own affair.
        const bool holdsOthers = dynamic_cast<const wxStaticBox*>(child) != nullptr ||
                                 dynamic_cast<const wxPanel*>(child) != nullptr ||
                                 dynamic_cast<const wxSplitterWindow*>(child) != nullptr;
        controls += 1 + (holdsOthers ? ExpectWellPlaced(*child) : 0);
    }
    return controls;
}

} // namespace tamarind::tests
