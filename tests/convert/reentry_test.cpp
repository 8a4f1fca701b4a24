#include "convert/game_file.h"

#include "convert/game_rig.h"
#include "editors/document_commands.h"
#include "platform/expect_error.h"
#include "support/tree_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <utility>

// The window lives while the converter runs, so commands can begin while another one waits.
namespace tamarind::convert {
namespace {

using testing::ElementsAre;
using testing::EndsWith;

class Reentry : public tests::GameRig {
protected:
    Reentry() {
        NextFile("A.XSec", "<A>old</A>");
        OpenRailSimFileInTree(rig.context);
    }
    /// `command` runs in the `round`-th round of events from now on.
    void InRound(int round, std::function<void()> command) {
        const int wanted = rig.ui.EventRounds() + round;
        rig.ui.onEvents = [wanted, command = std::move(command)](int number) {
            if (number == wanted) command();
        };
    }
    void OpenB() {
        NextFile("B.bin", "<B>old</B>");
        OpenRailSimFileInTree(rig.context);
    }
    void ExpectBothRight(const std::string& a, int round) {
        EXPECT_EQ(Game("A.XSec"), tests::GameFile(a)) << round;
        EXPECT_EQ(Game("A.XSec.bak"), tests::GameFile("<A>old</A>")) << round;
        EXPECT_EQ(Game("B.bin"), tests::GameFile("<B>old</B>")) << round;
        EXPECT_THAT(GameNames(), ElementsAre("A.XSec", "A.XSec.bak", "B.bin")) << round;
        EXPECT_EQ(rig.view.EditorText(), "<B>old</B>") << round;
        EXPECT_EQ(rig.view.FilePath(), folder / "Game\\B.bin") << round;
        EXPECT_EQ(tests::TreeText(rig.document.document.Top()), "1:B{old}()") << round;
        EXPECT_EQ(rig.session.FileBaseName, "B.") << round;
    }
    /// Puts the state before the save back.
    void StartAgain() {
        for (const std::string& name : GameNames())
            folder.Disk().Remove(folder / ("Game\\" + name));
        rig.ui.onEvents = nullptr;
        NextFile("A.XSec", "<A>old</A>");
        OpenRailSimFileInTree(rig.context);
    }
};

TEST_F(Reentry, AnotherFileOpenedDuringASaveLeavesBothRight) {
    int rounds = 0;
    for (int round = 1;; ++round) {
        StartAgain();
        rig.view.TypeText("<A>new</A>");
        bool opened = false;
        InRound(round, [&] {
            opened = true;
            OpenB();
        });
        EXPECT_TRUE(SaveRailSimFile(rig.context).done);
        if (!opened) break;
        ExpectBothRight("<A>new</A>", round);
        rounds = round;
    }
    EXPECT_GE(rounds, 3); // after writing the text, while the converter runs, after it
}

TEST_F(Reentry, AnotherFileOpenedDuringASaveFromTheTreeLeavesBothRight) {
    int rounds = 0;
    for (int round = 1;; ++round) {
        StartAgain();
        rig.document.document.SetCharacters(rig.document.document.Top(), "new");
        editors::SetModified(rig.context, true);
        bool opened = false;
        InRound(round, [&] {
            opened = true;
            OpenB();
        });
        EXPECT_TRUE(SaveRailSimFileFromTree(rig.context).done);
        if (!opened) break;
        ExpectBothRight("<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<A>new</A>\r\n", round);
        rounds = round;
    }
    EXPECT_GE(rounds, 3);
}

TEST_F(Reentry, AFileOfTheSameNameWaitsUntilTheSaveHasEnded) {
    const std::string other = folder.Write("Game\\Other\\a.bin", tests::GameFile("<Other/>"));
    rig.view.TypeText("<A>new</A>");
    InRound(1, [&] {
        NextPath(other);
        EXPECT_FALSE(OpenRailSimFile(rig.context));
    });
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(EndsWith("has to wait: a file of that name is being converted.")));
    EXPECT_EQ(Game("A.XSec"), tests::GameFile("<A>new</A>"));
    EXPECT_EQ(folder.Read("Game\\Other\\a.bin"), tests::GameFile("<Other/>"));
    rig.ui.onEvents = nullptr;
    EXPECT_TRUE(OpenRailSimFile(rig.context)); // still chosen, and free now
    EXPECT_EQ(rig.view.EditorText(), "<Other/>");
}

TEST_F(Reentry, ASecondSaveWaitsUntilTheFirstHasEnded) {
    rig.view.TypeText("<A>new</A>");
    converter.onStart = [&] {
        converter.onStart = nullptr;
        EXPECT_FALSE(SaveRailSimFile(rig.context).done);
        EXPECT_FALSE(SaveRailSimFileFromTree(rig.context).done);
    };
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(rig.ui.Messages().size(), 2U);
    EXPECT_EQ(Game("A.XSec"), tests::GameFile("<A>new</A>"));
    EXPECT_THAT(GameNames(), ElementsAre("A.XSec", "A.XSec.bak"));
}

TEST_F(Reentry, AFailedSaveLeavesTheNameFree) {
    converter.isBroken = true;
    EXPECT_EQ(tests::NumberOfError([&] { SaveRailSimFile(rig.context); }), 53);
    converter.isBroken = false;
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_TRUE(rig.ui.Messages().empty());
}

TEST_F(Reentry, TextTypedDuringASaveStaysUnsaved) {
    rig.view.TypeText("<A>new</A>");
    InRound(2, [&] { rig.view.TypeText("<A>newer</A>"); });
    EXPECT_TRUE(SaveRailSimFile(rig.context).done);
    EXPECT_EQ(Game("A.XSec"), tests::GameFile("<A>new</A>"));
    EXPECT_TRUE(rig.view.isTextModified);
}

TEST_F(Reentry, AnotherFileOpenedWhileOneOpensIsTheOneShown) {
    NextFile("C.XSec", "<C/>");
    bool opened = false;
    converter.onStart = [&] {
        converter.onStart = nullptr;
        opened = true;
        OpenB();
    };
    OpenRailSimFileInTree(rig.context);
    EXPECT_TRUE(opened);
    EXPECT_EQ(rig.view.EditorText(), "<B>old</B>");
    EXPECT_EQ(rig.view.FilePath(), folder / "Game\\B.bin");
    EXPECT_EQ(tests::TreeText(rig.document.document.Top()), "1:B{old}()");
    EXPECT_EQ(rig.session.RSFileExt, "bin");
}

} // namespace
} // namespace tamarind::convert
