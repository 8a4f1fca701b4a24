#include "editors/tree_search.h"

#include "document/clsXMLParse.h"
#include "editors/tree_editor.h"
#include "editors/tree_undo.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

using platform::Icon;
using testing::ElementsAre;

constexpr const char* kTooLong = "Unfortunately, this file is too long for this Search to work.\r\n"
                                 "Please open in the Tamarind editor and run Search there.";

TEST(IsWholeWord, LooksAtTheLettersBesideTheMatch) {
    EXPECT_TRUE(IsWholeWord("mark", 1, 4));
    EXPECT_FALSE(IsWholeWord("Marker", 1, 4));
    EXPECT_FALSE(IsWholeWord("remark", 3, 4));
    EXPECT_TRUE(IsWholeWord("a mark b", 3, 4));
}

TEST(IsWholeWord, TakesExactlySixSignsForPartsOfWords) {
    for (const char sign : std::string("\"$',-.")) {
        EXPECT_FALSE(IsWholeWord(std::string("mark") + sign, 1, 4)) << sign;
        EXPECT_FALSE(IsWholeWord(sign + std::string("mark"), 2, 4)) << sign;
    }
    for (int code = 1; code < 256; ++code) {
        const bool isLetter = (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
        const bool isSign = code == 34 || code == 36 || code == 39 || (code >= 44 && code <= 46);
        EXPECT_EQ(IsWholeWord(std::string("mark") + static_cast<char>(code), 1, 4), !isLetter && !isSign) << code;
    }
}

TEST(Holds, GoesOnBehindAMatchThatIsNoWholeWord) {
    const text::FoldedKey key("mark");
    EXPECT_TRUE(Holds("Marker mark", key, true));
    EXPECT_FALSE(Holds("Marker remark", key, true));
    EXPECT_TRUE(Holds("Marker remark", key, false));
}

TEST(Holds, TakesDigitsAndTheUnderscoreForTheEndOfAWord) {
    const text::FoldedKey key("mark");
    EXPECT_TRUE(Holds("Mark2", key, true));
    EXPECT_TRUE(Holds("Mark_A", key, true));
    EXPECT_FALSE(Holds("Marker", key, true));
}

TEST(Holds, FindsNothingLongerThanTheText) { EXPECT_FALSE(Holds("mark", text::FoldedKey("markers"), false)); }

TEST(Holds, TakesSignsOfPatternsLiterally) {
    EXPECT_FALSE(Holds("mark", text::FoldedKey("m.*"), false));
    EXPECT_TRUE(Holds("m.*k", text::FoldedKey("M.*"), false));
}

TEST(Holds, FindsLettersOfOtherAlphabetsInOtherCase) {
    EXPECT_TRUE(Holds("\xC3\x89tape", text::FoldedKey("\xC3\xA9TAPE"), true));
    EXPECT_FALSE(Holds("x\xC3\x89tape", text::FoldedKey("\xC3\xA9tape"), true));
}

/// Rows: nod1 Line, nod2 Mark "a halt", nod3 Marker "halt", nod4 mark2 "Halt, halt", nod5 Stop "".
class TreeSearch : public testing::Test {
protected:
    TreeSearch() {
        Load("<Line><Mark>a halt</Mark><Marker>halt</Marker><mark2>Halt, halt</mark2><Stop/></Line>");
        rig.view.SetCaption("Caption");
    }
    void Load(const std::string& xml) {
        rig.document.document = document::ParseXml(xml);
        rig.document.KeyCounter = static_cast<document::NodeKey>(document::CountElements(rig.document.document.Top()));
        ++rig.document.changes;
    }
    void LoadRows(std::size_t count) {
        std::string xml = "<Rows>";
        for (std::size_t i = 1; i < count; ++i)
            xml += "<r/>";
        Load(xml + "</Rows>");
    }
    std::vector<std::string> Calls() { return std::exchange(rig.view.calls, {}); }
    void ExpectOneMessage(const std::string& text, Icon icon) {
        ASSERT_EQ(rig.ui.Messages().size(), 1U);
        EXPECT_EQ(rig.ui.Messages()[0].text, text);
        EXPECT_EQ(rig.ui.Messages()[0].icon, icon);
        EXPECT_EQ(rig.ui.Messages()[0].title, "Tamarind");
    }
    std::vector<std::string> Keys(const std::optional<std::vector<document::clsNode*>>& rows) {
        std::vector<std::string> keys;
        for (const document::clsNode* const node : rows.value())
            keys.push_back(node->NodeKeyText());
        return keys;
    }
    std::string Text(std::size_t child) {
        return std::string(rig.document.document.Top().ChildNodes.Item(child).NodeCharacters);
    }
    void FindRow(const std::string& text) { FindNextRow(rig.context, SearchIn::RowTexts, {text}); }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(TreeSearch, FindSelectsAndMarksTheFirstMatchAndStopsOnOk) {
    FindRow("MARK");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn"));
    EXPECT_EQ(rig.document.SelectedNode->NodeKeyText(), "nod2");
    EXPECT_EQ(rig.view.characters, "a halt");
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(TreeSearch, FindGoesOnWhenAskedTo) {
    rig.view.goOnTimes = 1;
    FindRow("mark");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn", "MarkRow nod3",
                                     "SelectRow nod3", "AskToGoOn"));
}

TEST_F(TreeSearch, FindTellsWhenTheLastRowIsPassed) {
    rig.view.goOnTimes = 3;
    FindRow("mark");
    ExpectOneMessage("Not found", Icon::None);
    EXPECT_EQ(rig.document.SelectedNode->NodeKeyText(), "nod4");
}

TEST_F(TreeSearch, FindGoesOnBehindTheRowFoundLastAndKeepsTheMarks) {
    FindRow("mark");
    Calls();
    FindRow("mark");
    EXPECT_THAT(Calls(), ElementsAre("MarkRow nod3", "SelectRow nod3", "AskToGoOn"));
}

TEST_F(TreeSearch, FindStartsWithTheFirstRowForAnotherText) {
    FindRow("mark");
    FindRow("mark");
    Calls();
    FindRow("Mar");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn"));
}

TEST_F(TreeSearch, FindStartsWithTheFirstRowAfterRowsHaveChanged) {
    FindRow("mark");
    FindRow("mark");
    FinishLabelEdit(rig.context, "Marker9");
    Calls();
    FindRow("mark");
    EXPECT_EQ(Calls()[1], "MarkRow nod2");
}

TEST_F(TreeSearch, FindStartsWithTheFirstRowAfterATextHasChangedOrIsTakenBack) {
    FindRow("mark");
    FindRow("mark");
    EditCharacters(rig.context, "other");
    Calls();
    FindRow("mark");
    EXPECT_EQ(Calls()[1], "MarkRow nod2");
    UndoEdit(rig.context);
    Calls();
    FindRow("mark");
    EXPECT_EQ(Calls()[1], "MarkRow nod2");
}

TEST_F(TreeSearch, FindGoesOnAfterItsOwnReplace) {
    FindRow("mark");
    ReplaceInShown(rig.context, "a halt", "halt", "stop");
    EXPECT_EQ(Text(1), "a stop");
    Calls();
    FindRow("mark");
    EXPECT_EQ(Calls()[0], "MarkRow nod3");
}

TEST_F(TreeSearch, FindStartsAnewAfterTheLastRow) {
    rig.view.goOnTimes = 3;
    FindRow("mark");
    Calls();
    FindRow("mark");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn"));
}

TEST_F(TreeSearch, FindEndsWhenTheRowsChangeWhileItAsks) {
    rig.view.goOnTimes = 9;
    rig.view.onAskToGoOn = [this] { Load("<Other/>"); };
    FindRow("mark");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn"));
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(TreeSearch, FindPassesOverPartsOfWordsWhenOnlyWholeOnesCount) {
    rig.view.goOnTimes = 1;
    FindNextRow(rig.context, SearchIn::RowTexts, {"mark", true});
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn", "MarkRow nod4",
                                     "SelectRow nod4", "AskToGoOn"));
}

TEST_F(TreeSearch, FindInTextLooksAtTheElementsTexts) {
    FindNextRow(rig.context, SearchIn::ElementTexts, {"halt", true});
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn"));
    EXPECT_EQ(rig.view.characters, "a halt");
}

TEST_F(TreeSearch, FindInTextHasSelectedTheLastRowWhenItHasPassedIt) {
    rig.view.goOnTimes = 9;
    FindNextRow(rig.context, SearchIn::ElementTexts, {"tram"});
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "SelectRow nod5"));
    ExpectOneMessage("Not found", Icon::None);
    FindNextRow(rig.context, SearchIn::ElementTexts, {"a halt"});
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "SelectRow nod2", "AskToGoOn", "SelectRow nod5"));
    EXPECT_EQ(rig.document.SelectedNode->NodeKeyText(), "nod5");
    EXPECT_EQ(rig.view.characters, "");
}

TEST_F(TreeSearch, FindInTextSelectsNothingBehindTheLastRow) {
    Load("<Line><Stop>halt</Stop></Line>");
    FindNextRow(rig.context, SearchIn::ElementTexts, {"halt"});
    Calls();
    FindNextRow(rig.context, SearchIn::ElementTexts, {"halt"});
    EXPECT_THAT(Calls(), ElementsAre());
    ExpectOneMessage("Not found", Icon::None);
}

TEST_F(TreeSearch, FindAllMarksEveryRowAndSelectsTheLast) {
    EXPECT_THAT(Keys(FindAllRows(rig.context, SearchIn::RowTexts, {"mark"})), ElementsAre("nod2", "nod3", "nod4"));
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "MarkRow nod3", "MarkRow nod4", "SelectRow nod4"));
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(TreeSearch, FindAllStartsBehindTheRowThatFindHasFound) {
    FindRow("mark");
    EXPECT_THAT(Keys(FindAllRows(rig.context, SearchIn::RowTexts, {"mark"})), ElementsAre("nod3", "nod4"));
}

TEST_F(TreeSearch, FindAllTellsWhenNothingMatches) {
    EXPECT_THAT(Keys(FindAllRows(rig.context, SearchIn::RowTexts, {"tram"})), ElementsAre());
    ExpectOneMessage("Not found", Icon::None);
}

TEST_F(TreeSearch, FindsAnEmptyTextInEveryRowThatHasOne) {
    EXPECT_THAT(Keys(FindAllRows(rig.context, SearchIn::ElementTexts, {""})), ElementsAre("nod2", "nod3", "nod4"));
}

TEST_F(TreeSearch, TellsNotFoundForAnEmptyTree) {
    rig.document.document = document::Document();
    FindRow("mark");
    ExpectOneMessage("Not found", Icon::None);
}

TEST_F(TreeSearch, Searches65500Rows) {
    LoadRows(65'500);
    EXPECT_EQ(FindAllRows(rig.context, SearchIn::RowTexts, {"r"}).value().size(), 65'500U);
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(TreeSearch, Refuses65501Rows) {
    LoadRows(65'501);
    FindRow("r");
    ExpectOneMessage(kTooLong, Icon::Exclamation);
    EXPECT_EQ(FindAllRows(rig.context, SearchIn::RowTexts, {"r"}), std::nullopt);
    FindNextRow(rig.context, SearchIn::ElementTexts, {"r"});
    ReplaceInAll(rig.context, {"r"}, "s");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre(kTooLong, kTooLong, kTooLong, kTooLong));
    EXPECT_TRUE(Calls().empty());
    EXPECT_FALSE(rig.document.isModified);
}

TEST_F(TreeSearch, ReplaceNeedsSomethingToPutThere) {
    ClickRow(rig.context, 2);
    ReplaceInShown(rig.context, "a halt", "halt", "");
    ExpectOneMessage("You have not entered anything in the Replace box?", Icon::Exclamation);
    EXPECT_EQ(Text(1), "a halt");
    ReplaceInAll(rig.context, {"halt"}, "");
    EXPECT_EQ(rig.ui.MessageTexts().back(), "You have not entered anything in the Replace box?");
    EXPECT_EQ(Text(1), "a halt");
}

TEST_F(TreeSearch, ReplaceChangesEveryPlaceInTheShownText) {
    ClickRow(rig.context, 4);
    ReplaceInShown(rig.context, "Halt, halt", "HALT", "stop");
    EXPECT_EQ(Text(3), "stop, stop");
    EXPECT_EQ(rig.view.characters, "stop, stop");
    EXPECT_TRUE(rig.document.isModified);
    EXPECT_EQ(rig.view.Caption(), "Caption*");
    EXPECT_EQ(Text(1), "a halt");
}

TEST_F(TreeSearch, ReplaceChangesNothingWithoutAMatchOrANode) {
    ReplaceInShown(rig.context, "a halt", "halt", "stop");
    ClickRow(rig.context, 2);
    ReplaceInShown(rig.context, "a halt", "tram", "stop");
    EXPECT_EQ(Text(1), "a halt");
    EXPECT_FALSE(rig.document.isModified);
}

TEST_F(TreeSearch, ReplaceAllChangesEveryTextThatMatches) {
    ReplaceInAll(rig.context, {"halt"}, "stop");
    EXPECT_EQ(Text(1), "a stop");
    EXPECT_EQ(Text(2), "stop");
    EXPECT_EQ(Text(3), "stop, stop");
    EXPECT_THAT(Calls(), ElementsAre("UnmarkRows", "MarkRow nod2", "MarkRow nod3", "MarkRow nod4", "SelectRow nod4"));
    EXPECT_EQ(rig.view.characters, "stop, stop");
    EXPECT_EQ(rig.view.Caption(), "Caption*");
    EXPECT_TRUE(rig.ui.Everything().empty());
}

TEST_F(TreeSearch, ReplaceAllReplacesPartsOfWordsInATextThatHoldsTheWholeOne) {
    Load("<Line><a>halts</a><b>halts halt</b></Line>");
    ReplaceInAll(rig.context, {"halt", true}, "stop");
    EXPECT_EQ(Text(1), "halts");
    EXPECT_EQ(Text(2), "stops stop");
}

TEST_F(TreeSearch, ReplaceAllTellsWhenNothingMatches) {
    ReplaceInAll(rig.context, {"tram"}, "stop");
    ExpectOneMessage("Not found", Icon::None);
    EXPECT_FALSE(rig.document.isModified);
}

TEST_F(TreeSearch, ReplaceAllIsTakenBackInOneStep) {
    ReplaceInAll(rig.context, {"halt"}, "stop");
    UndoEdit(rig.context);
    EXPECT_EQ(Text(1), "a halt");
    EXPECT_EQ(Text(2), "halt");
    EXPECT_EQ(Text(3), "Halt, halt");
    EXPECT_FALSE(CanUndo(rig.context));
}

} // namespace
} // namespace tamarind::editors
