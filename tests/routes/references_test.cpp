#include "routes/references.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using routes::BlueprintReference;
using routes::RemoveDuplicates;
using routes::ScanGeometryIds;
using routes::ScanShape;
using routes::ScanStock;
using routes::ScanTile;
using routes::TextureFile;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Reference(const std::string& provider, const std::string& product, const std::string& path,
                      const std::string& end = "\r\n") {
    return "\t<Provider d:type=\"text\">" + provider + "</Provider>" + end + "\t<Product d:type=\"text\">" + product +
           "</Product>" + end + "</Library>" + end + "</AssetSet>" + end + "\t<BlueprintID d:type=\"text\">" + path +
           "</BlueprintID>" + end;
}

TEST(TileScan, ReadsProviderProductAndPath) {
    EXPECT_THAT(ScanTile(Reference("P", "Q", "Scenery\\Mill.xml")).references,
                ElementsAre(BlueprintReference{"P", "Q", "Scenery\\Mill.bin"}));
}

TEST(TileScan, KeepsEveryReferenceInItsOrder) {
    const std::string text = Reference("P", "Q", "b.xml") + Reference("P", "Q", "a.xml") + Reference("P", "Q", "b.xml");
    EXPECT_THAT(ScanTile(text).references,
                ElementsAre(BlueprintReference{"P", "Q", "b.bin"}, BlueprintReference{"P", "Q", "a.bin"},
                            BlueprintReference{"P", "Q", "b.bin"}));
}

TEST(TileScan, ReadsLinesEndedByLineFeedAlone) {
    EXPECT_THAT(ScanTile(Reference("P", "Q", "a.xml", "\n")).references,
                ElementsAre(BlueprintReference{"P", "Q", "a.bin"}));
}

TEST(TileScan, ReadsALastLineWithoutAnEnd) {
    std::string text = Reference("P", "Q", "a.xml", "\n");
    text.pop_back();
    EXPECT_FALSE(ScanTile(text).isCutOff);
    EXPECT_EQ(ScanTile(text).references.size(), 1U);
}

TEST(TileScan, FindsTheProviderInAnyLetterCase) {
    EXPECT_THAT(ScanTile("<PROVIDER>P</PROVIDER>\n<x>Q</x>\n\n\n<y>a.xml</y>\n").references,
                ElementsAre(BlueprintReference{"P", "Q", "a.bin"}));
}

TEST(TileScan, TakesTheProviderBehindItsOwnTag) {
    EXPECT_THAT(ScanTile("<a>x</a><Provider>P</Provider>\n<b>Q</b>\n\n\n<c>a.xml</c>\n").references,
                ElementsAre(BlueprintReference{"P", "Q", "a.bin"}));
}

TEST(TileScan, PassesOverAnEmptyProvider) {
    // The line behind it may hold the next provider.
    EXPECT_THAT(ScanTile("<Provider></Provider>\n" + Reference("P", "Q", "a.xml")).references,
                ElementsAre(BlueprintReference{"P", "Q", "a.bin"}));
}

TEST(TileScan, PassesOverAnEmptyPath) {
    const routes::TileScan scan = ScanTile(Reference("P", "Q", "") + Reference("P", "Q", "a.xml"));
    EXPECT_THAT(scan.references, ElementsAre(BlueprintReference{"P", "Q", "a.bin"}));
}

TEST(TileScan, KeepsAReferenceWithoutProduct) {
    EXPECT_THAT(ScanTile(Reference("P", "", "a.xml")).references, ElementsAre(BlueprintReference{"P", "", "a.bin"}));
}

TEST(TileScan, LeavesEntitiesAsTheyStand) {
    EXPECT_EQ(ScanTile(Reference("P", "Q", "Mill &amp; Barn.xml")).references[0].path, "Mill &amp; Barn.bin");
}

TEST(TileScan, SaysWhereTheTextEndsInsideAReference) {
    const routes::TileScan scan = ScanTile(Reference("P", "Q", "a.xml") + "<Provider>P</Provider>\n<Product>Q\n");
    EXPECT_TRUE(scan.isCutOff);
    EXPECT_EQ(scan.references.size(), 1U);
}

TEST(TileScan, OfATextThatIsNoXmlFindsNothing) {
    EXPECT_THAT(ScanTile("").references, IsEmpty());
    EXPECT_THAT(ScanTile("no XML at all\n\n\n\n").references, IsEmpty());
    EXPECT_THAT(ScanTile("<Provider\n\n\n\n\n").references, IsEmpty());
}

TEST(GeometryScan, RemovesTheFourCharactersAtTheBracket) {
    EXPECT_THAT(ScanGeometryIds("<Name>x</Name>\r\n\t<GeometryID d:type=\"text\">P\\Q\\[00]Mill</GeometryID>\r\n"),
                ElementsAre("P\\Q\\Mill"));
}

TEST(GeometryScan, PassesOverANameWithoutABracket) {
    EXPECT_THAT(ScanGeometryIds("<GeometryID>P\\Q\\Mill</GeometryID>\n<GeometryID></GeometryID>\n"), IsEmpty());
}

TEST(GeometryScan, KeepsAllNamesInOrderAndInAnyLetterCaseOfTheTag) {
    EXPECT_THAT(ScanGeometryIds("<geometryid>[00]a</geometryid>\n<GEOMETRYID>[00]b</x>\n"), ElementsAre("a", "b"));
}

TEST(GeometryScan, TakesTheFirstContentOfTheLine) {
    EXPECT_THAT(ScanGeometryIds("<x>[00]first</x><GeometryID>[00]second</GeometryID>\n"), ElementsAre("first"));
}

TEST(GeometryScan, OfANameThatEndsAtItsBracketKeepsWhatStandsBefore) {
    EXPECT_THAT(ScanGeometryIds("<GeometryID>P\\[0</GeometryID>\n"), ElementsAre("P\\"));
}

std::string Textures(const std::string& lines) { return "<TextureByName>\r\n" + lines + "</TextureByName>\r\n"; }

TEST(ShapeScan, ReadsTheReferencesUpToTheClosingTag) {
    const auto scan = ScanShape(Textures("<e>..\\a</e>\r\n<x>no</x>\r\n<e d:type=\"text\">Textures\\b</e>\r\n") +
                                "<e>outside</e>\r\n");
    EXPECT_THAT(scan.textures, ElementsAre("..\\a", "Textures\\b"));
    EXPECT_FALSE(scan.isCutOff);
}

TEST(ShapeScan, RemovesFourCharactersAtABracketWhereverItStands) {
    EXPECT_THAT(ScanShape(Textures("<e>[00]..\\a</e>\n<e>..\\[00]b</e>\n")).textures, ElementsAre("..\\a", "..\\b"));
}

TEST(ShapeScan, ReadsEveryListInAnyLetterCase) {
    EXPECT_THAT(ScanShape("<TEXTUREBYNAME>\n<E>a</E>\n</texturebyname>\n" + Textures("<e>b</e>\n")).textures,
                ElementsAre("a", "b"));
}

TEST(ShapeScan, PassesOverALineWithBinaryData) {
    EXPECT_THAT(ScanShape("<d:blob d:size=\"1\"><TextureByName>\n<e>a</e>\n").textures, IsEmpty());
}

TEST(ShapeScan, PassesOverAReferenceWithoutAnEnd) {
    EXPECT_THAT(ScanShape(Textures("<e d:id=\"1\">\n<e>a</e>\n")).textures, ElementsAre("a"));
}

TEST(ShapeScan, SaysWhereTheTextEndsInsideAList) {
    const auto scan = ScanShape("<TextureByName>\n<e>a</e>\n");
    EXPECT_THAT(scan.textures, ElementsAre("a"));
    EXPECT_TRUE(scan.isCutOff);
}

TEST(StockScan, JoinsProviderProductAndPath) {
    EXPECT_THAT(ScanStock("<Provider>P</Provider><Product>Q</Product><BlueprintID d:type=\"text\">a.xml</BlueprintID>"),
                ElementsAre("P\\Q\\a.xml"));
}

TEST(StockScan, TakesTheLastProviderInFrontOfTheReference) {
    EXPECT_THAT(ScanStock("<Provider>P</Provider><Product>Q</Product><Provider>R</Provider><Product>S</Product>"
                          "<BlueprintID d:type=\"text\">a.xml</BlueprintID><BlueprintID d:type=\"text\">b.xml</x>"
                          "<Provider>T</Provider><Product>U</Product><BlueprintID d:type=\"text\">c.xml</x>"),
                ElementsAre("R\\S\\a.xml", "R\\S\\b.xml", "T\\U\\c.xml"));
}

TEST(StockScan, TakesTheFirstProductBehindTheProvider) {
    EXPECT_THAT(ScanStock("<Product>no</Product><Provider>P</Provider><BlueprintID d:type=\"text\">a.xml</BlueprintID>"
                          "<Product>Q</Product><Product>no</Product>"),
                ElementsAre("P\\Q\\a.xml"));
}

TEST(StockScan, FindsTagsInAnyLetterCaseAndOnAnyLine) {
    EXPECT_THAT(ScanStock("<PROVIDER>\r\nP</x>\n<product>Q</x>\n<blueprintid D:TYPE=\"text\">a.xml</x>"),
                ElementsAre("\r\nP\\Q\\a.xml"));
}

TEST(StockScan, KnowsOnlyReferencesWithAType) { EXPECT_THAT(ScanStock("<BlueprintID>a.xml</BlueprintID>"), IsEmpty()); }

TEST(StockScan, LeavesEmptyWhatIsNotThere) {
    EXPECT_THAT(ScanStock("<BlueprintID d:type=\"text\">a.xml</BlueprintID>"), ElementsAre("\\\\a.xml"));
    EXPECT_THAT(ScanStock("<Provider>P</Provider><BlueprintID d:type=\"text\">a.xml</BlueprintID>"),
                ElementsAre("P\\\\a.xml"));
}

TEST(CountUpLevels, CountsTheLeadingUps) {
    for (const auto& [path, expected] : std::vector<std::pair<std::string, int>>{{"..\\a", 1},
                                                                                 {"..\\..\\a", 2},
                                                                                 {"..\\..\\..\\a", 3},
                                                                                 {"..\\..\\..\\..\\a", 4},
                                                                                 {"..\\..\\..\\..\\..\\a", 5},
                                                                                 {"..\\..\\..\\..\\..\\..\\a", 5},
                                                                                 {"..\\a\\..\\b", 1}}) {
        int levels = 0;
        routes::CountUpLevels(path, levels);
        EXPECT_EQ(levels, expected) << path;
    }
}

TEST(CountUpLevels, LeavesTheCallersValueWhereThereIsNone) {
    for (const char* path : {"", "a", "..", "../a", "\\..\\a"}) {
        int levels = 7;
        routes::CountUpLevels(path, levels);
        EXPECT_EQ(levels, 7) << path;
    }
}

struct Decoded {
    bool any;
    std::string text;
    bool operator==(const Decoded&) const = default;
};

Decoded Decode(std::string text) {
    const bool any = routes::DecodeEntities(text);
    return {any, text};
}

TEST(DecodeEntities, ReplacesApostropheAndAmpersand) {
    EXPECT_EQ(Decode("Smith &amp; Son&apos;s"), (Decoded{true, "Smith & Son's"}));
}

TEST(DecodeEntities, SaysWhenThereIsNothingToReplace) {
    EXPECT_EQ(Decode("Smith & Son's &lt; &gt; &quot;"), (Decoded{false, "Smith & Son's &lt; &gt; &quot;"}));
}

TEST(DecodeEntities, ReplacesApostrophesFirst) { EXPECT_EQ(Decode("&amp;apos;"), (Decoded{true, "&apos;"})); }

TEST(DecodeEntities, KnowsNoLetterCase) { EXPECT_EQ(Decode("&AMP;&Apos;"), (Decoded{true, "&'"})); }

TEST(RemoveDuplicates, KeepsTheFirstOfEachRun) {
    EXPECT_THAT(RemoveDuplicates({"A", "a", "b", "B", "b", "c"}), ElementsAre("A", "b", "c"));
}

TEST(RemoveDuplicates, ComparesWithTheValueBeforeOnly) {
    EXPECT_THAT(RemoveDuplicates({"a", "b", "a"}), ElementsAre("a", "b", "a"));
}

TEST(RemoveDuplicates, OfAnEmptyListIsEmpty) { EXPECT_THAT(RemoveDuplicates({}), IsEmpty()); }

constexpr const char* kShape = "C:\\Game\\Assets\\P\\Q\\Scenery\\Mill.GeoPcDx";

TEST(TextureFile, CutsAFolderForEachUp) {
    EXPECT_EQ(TextureFile("C:\\Game", kShape, "..\\Textures\\Brick"), "C:\\Game\\Assets\\P\\Q\\Textures\\Brick.TgPcDx");
    // Three folders deep below the provider: two ups lead to the first of the three.
    EXPECT_EQ(TextureFile("C:\\G", "C:\\G\\Assets\\One\\Two\\Three\\s.GeoPcDx", "..\\..\\t"),
              "C:\\G\\Assets\\One\\t.TgPcDx");
}

TEST(TextureFile, ThatBeginsWithTextLiesBelowTheShapesFolder) {
    EXPECT_EQ(TextureFile("C:\\Game", kShape, "Textures\\Brick"),
              "C:\\Game\\Assets\\P\\Q\\Scenery\\Textures\\Brick.TgPcDx");
    EXPECT_EQ(TextureFile("C:\\Game", kShape, "TEXT"), "C:\\Game\\Assets\\P\\Q\\Scenery\\TEXT.TgPcDx");
}

TEST(TextureFile, OfAnyOtherNameLiesBelowTheAssets) {
    EXPECT_EQ(TextureFile("C:\\Game", kShape, "R\\S\\Brick"), "C:\\Game\\Assets\\R\\S\\Brick.TgPcDx");
}

TEST(BinaryEnding, TakesThePlaceOfThreeCharacters) {
    EXPECT_EQ(routes::WithBinaryEnding("a\\b.xml"), "a\\b.bin");
    EXPECT_EQ(routes::WithBinaryEnding("x"), "bin");
    EXPECT_EQ(routes::WithBinaryEnding("a\xC3\xA9\xC3\xA9\xC3\xA9"), "abin");
}

} // namespace
} // namespace tamarind::tests
