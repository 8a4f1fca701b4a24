#include "windows/keyboard.h"

#include "platform/myfile.h"
#include "platform/platform.h"
#include "windows/placement.h"
#include "windows/system.h"

#include <wx/button.h>
#include <wx/display.h>
#include <wx/html/helpctrl.h>
#include <wx/html/helpfrm.h>
#include <wx/html/helpwnd.h>
#include <wx/html/htmlwin.h>
#include <wx/splitter.h>
#include <wx/stattext.h>

#include <functional>

namespace tamarind::tests {
namespace {

using platform::FromWx;
using platform::ToWx;

/// With a copy of the help in the program's folder, as it lies beside the tests.
class HelpWindow : public Keyboard {
protected:
    void CopyHelp(const std::string& name) {
        const std::string from = platform::ExecutableFolder() + "\\" + name;
        if (!files_->IsFolder(from)) {
            noViewer_.Keep(folder_.Write("Program\\" + name, platform::ReadBytes(*files_, from)));
            return;
        }
        folder_.MakeFolder("Program\\" + name);
        for (const auto& entry : files_->List(from))
            CopyHelp(name + "\\" + entry.name);
    }

    /// The toolkit's help window; null when it is not open.
    [[nodiscard]] static wxHtmlHelpFrame* Shown() {
        for (wxWindow* const window : wxTopLevelWindows) {
            auto* const frame = dynamic_cast<wxHtmlHelpFrame*>(window);
            if (frame != nullptr && frame->IsShown() && !frame->IsBeingDeleted()) return frame;
        }
        return nullptr;
    }

    static void CountItems(const wxTreeCtrl& tree, const wxTreeItemId& parent, std::size_t& count) {
        wxTreeItemIdValue cookie = nullptr;
        for (auto item = tree.GetFirstChild(parent, cookie); item.IsOk(); item = tree.GetNextChild(parent, cookie)) {
            ++count;
            CountItems(tree, item, count);
        }
    }

    NoHelpViewer noViewer_;
};

TEST_F(HelpWindow, ShowsOurContentsAndFirstPage) {
    CopyHelp("Tamarind.chm");
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    ASSERT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
    PumpFor(milliseconds(300));
    wxHtmlHelpFrame& frame = *Shown();
    EXPECT_EQ(FromWx(frame.GetTitle()), "Welcome - Tamarind Help");
    const wxHtmlHelpWindow& help = *frame.GetHelpWindow();
    std::size_t entries = 0;
    CountItems(*help.GetTreeCtrl(), help.GetTreeCtrl()->GetRootItem(), entries);
    // The first page and two more, and five headings with three, two, four, three and three pages.
    EXPECT_EQ(entries, 23U);
    EXPECT_EQ(FromWx(help.GetHtmlWindow()->GetOpenedPageTitle()), "Welcome");
}

TEST_F(HelpWindow, OpensWithF1) {
    CopyHelp("help");
    Open();
    Focus(Find("RichTextBox1"));
    Type(WXK_F1);
    EXPECT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
}

TEST_F(HelpWindow, ShowsThePagesWithoutAHelpFile) {
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    EXPECT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
}

TEST_F(HelpWindow, FollowsALinkToAPageWithItsPicture) {
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    ASSERT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
    wxHtmlWindow& html = *Shown()->GetHelpWindow()->GetHtmlWindow();
    ASSERT_TRUE(html.LoadPage("text-editor.html"));
    PumpFor(milliseconds(200));
    EXPECT_EQ(FromWx(html.GetOpenedPageTitle()), "The text editor");
    // A picture that cannot be read takes the place of a small sign.
    int widest = 0;
    for (const wxHtmlCell* cell = html.GetInternalRepresentation()->GetFirstTerminal(); cell != nullptr;) {
        widest = std::max(widest, cell->GetWidth());
        const wxHtmlCell* next = cell->GetNext();
        for (auto* parent = cell->GetParent(); next == nullptr && parent != nullptr; parent = parent->GetParent())
            next = parent->GetNext();
        cell = next == nullptr || next->IsTerminalCell() ? next : next->GetFirstTerminal();
    }
    EXPECT_GT(widest, 600);
}

TEST_F(HelpWindow, IsOpenedOnceAndAgainAfterItWasClosed) {
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    ASSERT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
    wxHtmlHelpFrame* const first = Shown();
    Choose("mnuContents");
    EXPECT_EQ(Shown(), first);
    first->Close();
    ASSERT_TRUE(PumpUntil([] { return Shown() == nullptr; }));
    Choose("mnuContents");
    EXPECT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
}

TEST_F(HelpWindow, ClosesWithTheMainWindow) {
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    ASSERT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
    Close();
    EXPECT_TRUE(PumpUntil([] { return Shown() == nullptr; }));
}

TEST_F(HelpWindow, ShowsWholeLinesOfTheContentsAndFitsTheScreen) {
    CopyHelp("help");
    Open();
    Choose("mnuContents");
    ASSERT_TRUE(PumpUntil([] { return Shown() != nullptr; }));
    PumpFor(milliseconds(300));
    const wxHtmlHelpFrame& frame = *Shown();
    const wxTreeCtrl& tree = *frame.GetHelpWindow()->GetTreeCtrl();
    wxTreeItemIdValue cookie = nullptr;
    for (auto item = tree.GetFirstChild(tree.GetRootItem(), cookie); item.IsOk();
         item = tree.GetNextChild(tree.GetRootItem(), cookie)) {
        wxRect place;
        ASSERT_TRUE(tree.GetBoundingRect(item, place, true));
        EXPECT_LE(place.GetRight(), tree.GetClientSize().x) << FromWx(tree.GetItemText(item));
    }
    EXPECT_TRUE(wxDisplay(&frame).GetClientArea().Contains(frame.GetRect()));
}

TEST_F(HelpWindow, TellsThatTheHelpIsMissing) {
    Open();
    dialogs_.AnswerMessage(
        {.text = "The help file was not found:\n" + platform::ForDisplay(program_ + "\\Tamarind.chm"),
         .style = wxICON_EXCLAMATION | wxOK});
    Choose("mnuContents");
    EXPECT_TRUE(dialogs_.AllCame());
    EXPECT_EQ(Shown(), nullptr);
}

TEST_F(HelpWindow, TellsThatTheHelpCannotBeShown) {
    noViewer_.Keep(folder_.Write("Program\\Tamarind.chm", "no help file"));
    Open();
    dialogs_.AnswerMessage(
        {.text = "The help file cannot be shown:\n" + platform::ForDisplay(program_ + "\\Tamarind.chm"),
         .style = wxICON_EXCLAMATION | wxOK});
    Choose("mnuContents");
    EXPECT_TRUE(dialogs_.AllCame());
}

TEST_F(HelpWindow, AboutTellsTitleVersionAndPurpose) {
    Open();
    dialogs_.UseDialog("frmAbout", [](wxDialog& about) {
        EXPECT_EQ(FromWx(about.GetTitle()), "About Tamarind");
        const auto text = [&](const char* name) {
            const auto* const label = dynamic_cast<wxStaticText*>(wxWindow::FindWindowByName(name, &about));
            return label == nullptr ? std::string("none") : FromWx(label->GetLabelText());
        };
        EXPECT_EQ(text("lblTitle"), "Tamarind");
        EXPECT_EQ(text("lblVersion"), "Version " TAMARIND_VERSION);
        EXPECT_NE(text("lblDescription").find("Rail Simulator"), std::string::npos);
        EXPECT_EQ(ExpectWellPlaced(about), 6); // icon, four texts, button
        Press(*about.FindWindow(wxID_OK));
    });
    Choose("mnuAbout");
    EXPECT_TRUE(dialogs_.AllCame());
}

} // namespace
} // namespace tamarind::tests
