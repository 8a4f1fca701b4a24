#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "support/memory_files.h"
#include "support/tree_text.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>
#include <string>

namespace tamarind::document {
namespace {

const std::string kDeclaration = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n";

std::string Written(const Document& document) {
    std::string text;
    WriteXml(document, [&](std::string_view bytes) { text += bytes; });
    return text;
}

/// What is written for a document after its declaration.
std::string Rewritten(std::string_view xml) {
    const std::string text = Written(ParseXml(xml));
    EXPECT_EQ(text.substr(0, kDeclaration.size()), kDeclaration);
    return text.substr(kDeclaration.size());
}

/// A document of nested elements, so many levels deep.
Document Nested(NodeKey levels) {
    Document document;
    clsNode* node = &document.Root();
    for (NodeKey key = 1; key <= levels; ++key) {
        node = &document.AddNode(*node, "n", "", key);
    }
    return document;
}

TEST(Writing, StartsWithTheFixedDeclaration) {
    EXPECT_EQ(Written(ParseXml("<?xml version='1.0' encoding='ISO-8859-1'?><a/>")),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<a></a>\r\n");
}

TEST(Writing, EmptyElementIsTwoTagsOnOneLine) { EXPECT_EQ(Rewritten("<Flag/>"), "<Flag></Flag>\r\n"); }

TEST(Writing, LeafStandsOnOneLineWithItsText) { EXPECT_EQ(Rewritten("<a>Abc</a>"), "<a>Abc</a>\r\n"); }

TEST(Writing, AttributesStandInOrderInDoubleQuotes) {
    EXPECT_EQ(Rewritten("<a z='1' d:id='2' b=''/>"), "<a z=\"1\" d:id=\"2\" b=\"\"></a>\r\n");
}

TEST(Writing, ChildrenStandAtTheColumnOfTheirLevel) {
    // Level 2 is column 2: one blank; level 3: two.
    EXPECT_EQ(Rewritten("<a><b><c/></b><d/></a>"), "<a>\r\n <b>\r\n  <c></c>\r\n </b>\r\n <d></d>\r\n</a>\r\n");
}

TEST(Writing, TextThatEndsBeforeTheColumnIsFilledUpWithBlanks) {
    EXPECT_EQ(Rewritten("<a><b><c/>\n</b>\n</a>"), "<a>\n <b>\n  <c></c>\r\n </b>\r\n</a>\r\n");
}

TEST(Writing, TextThatEndsAtTheColumnIsFollowedAtOnce) {
    // After LF and a tab the column is 2, which is the child's.
    EXPECT_EQ(Rewritten("<a><b/>\n\t</a>"), "<a>\n\t<b></b>\r\n</a>\r\n");
}

TEST(Writing, TextPastTheColumnIsEndedFirst) {
    EXPECT_EQ(Rewritten("<a><b/>\n\t\t</a>"), "<a>\n\t\t\r\n <b></b>\r\n</a>\r\n");
    EXPECT_EQ(Rewritten("<a><b/>text</a>"), "<a>text\r\n <b></b>\r\n</a>\r\n");
}

TEST(Writing, CarriageReturnIsAColumn) {
    EXPECT_EQ(Rewritten("<a><b/>\n&#13;</a>"), "<a>\n\r<b></b>\r\n</a>\r\n");
    EXPECT_EQ(Rewritten("<a><b><c/>\n&#13;</b></a>"), "<a>\r\n <b>\n\r <c></c>\r\n </b>\r\n</a>\r\n");
}

TEST(Writing, LetterOfTheCodePageIsOneColumn) {
    // Two bytes in memory, one column: after LF and the letter the column is 2.
    EXPECT_EQ(Rewritten("<a><b/>\n\xC3\xA9</a>"), "<a>\n\xE9<b></b>\r\n</a>\r\n");
}

TEST(Writing, LineFeedInAnAttributeStartsALine) {
    // After LF, the quote and ">" the column is 3, the grandchild's.
    EXPECT_EQ(Rewritten("<a><b x='&#10;'><c/></b></a>"), "<a>\r\n <b x=\"\n\"><c></c>\r\n </b>\r\n</a>\r\n");
}

TEST(Writing, LeafWithLinesInItsTextIsFollowedByItsEndTag) {
    EXPECT_EQ(Rewritten("<a><b>one\ntwo</b></a>"), "<a>\r\n <b>one\ntwo</b>\r\n</a>\r\n");
}

TEST(Writing, NothingIsEscaped) {
    EXPECT_EQ(Rewritten("<a b='&quot;&amp;&lt;'>&amp;&lt;x&gt;</a>"), "<a b=\"\"&<\">&<x></a>\r\n");
}

TEST(Writing, QuoteInAnAttributeBreaksTheFile) {
    const std::string text = Written(ParseXml("<a b='say &quot;yes&quot;'/>"));
    EXPECT_EQ(text, kDeclaration + "<a b=\"say \"yes\"\"></a>\r\n");
    EXPECT_THROW((void)ParseXml(text), XmlError);
}

TEST(Writing, PrefixesAndCommentsAreLostAndNamespaceDeclarationsKept) {
    EXPECT_EQ(Rewritten("<!-- c --><d:a xmlns:d='urn:x' d:id='1'><!-- c --><d:nil/></d:a>"),
              "<a xmlns:d=\"urn:x\" d:id=\"1\">\r\n <nil></nil>\r\n</a>\r\n");
}

TEST(Writing, TextIsInTheCodePage) {
    EXPECT_EQ(Rewritten("<\xC3\xA9 \xC3\xBC='\xE2\x82\xAC'>\xE2\x80\x93\xC5\xBE</\xC3\xA9>"),
              "<\xE9 \xFC=\"\x80\">\x96\x9E</\xE9>\r\n");
}

TEST(Writing, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(Rewritten("<a>\xD0\x96\xF0\x9F\x9A\x82.</a>"), "<a>??.</a>\r\n");
}

TEST(Writing, TabIndentedFileKeepsOrderAttributesAndTexts) {
    const Document document =
        ParseXml("<a x='1'>\r\n\t<b y='2' z='3'>text</b>\r\n\t<c>\r\n\t\t<d/>\r\n\t</c>\r\n</a>\r\n");
    EXPECT_EQ(Written(document), kDeclaration + "<a x=\"1\">\n <b y=\"2\" z=\"3\">text</b>\r\n <c>\n\t <d></d>\r\n"
                                                " </c>\r\n</a>\r\n");
}

TEST(Writing, LeavesAndAttributesComeBackAsTheyWere) {
    const std::string xml = "<a x='1'><b y='2' z='3'>text</b><c><d/><e>two\nlines</e></c></a>";
    const Document first = ParseXml(xml);
    Document second = ParseXml(Written(first));
    // Parents got the blanks before their end tags as their text, which is all that changed.
    Walk walk(second.Top());
    while (const clsNode* const node = walk.Next()) {
        if (node->ChildNodes.Count() > 0) {
            second.SetCharacters(*FindChildByKey(second.Root(), node->Key), "");
        }
    }
    EXPECT_EQ(tests::TreeText(second.Top()), tests::TreeText(first.Top()));
}

TEST(Writing, SecondRoundChangesNothing) {
    const std::string xml = "<a x='1'>\r\n\t<b y='2'>text</b>\r\n\t<c>\r\n\t\t<d/>\r\n\t</c>\r\n</a>\r\n";
    const std::string first = Written(ParseXml(xml));
    const std::string second = Written(ParseXml(first));
    EXPECT_EQ(Written(ParseXml(second)), second);
}

TEST(Writing, DocumentWithoutAnElementIsAnInvalidCall) {
    const Document document;
    try {
        (void)Written(document);
        FAIL() << "no error";
    } catch (const text::RuntimeError& error) {
        EXPECT_EQ(error.Code(), text::ErrorNumber::InvalidProcedureCall);
    }
}

TEST(Writing, LongTextsComeThroughWhole) {
    Document document;
    const std::string text(1'000'000, 'x');
    clsNode& top = document.AddNode(document.Root(), "a", text, 1);
    document.AddNode(top, "b", text, 2);
    EXPECT_EQ(Written(document), kDeclaration + "<a>" + text + "\r\n <b>" + text + "</b>\r\n</a>\r\n");
}

TEST(Writing, SinkGetsLargePieces) {
    Document document;
    clsNode& top = document.AddNode(document.Root(), "a", "", 1);
    for (NodeKey key = 2; key < 50'000; ++key) {
        document.AddNode(top, "b", "text", key);
    }
    std::size_t pieces = 0;
    std::size_t bytes = 0;
    WriteXml(document, [&](std::string_view piece) {
        ++pieces;
        bytes += piece.size();
    });
    EXPECT_GT(bytes / pieces, 65'536u);
    EXPECT_EQ(bytes,
              kDeclaration.size() + 5 + std::size_t{49'998} * 14 + 6); // <a> CR LF, lines of 14 bytes, </a> CR LF
}

TEST(DeepTree, Of32767LevelsIsWritten) {
    constexpr std::uint64_t kLevels = 32'767;
    const Document document = Nested(kLevels);
    std::uint64_t bytes = 0;
    WriteXml(document, [&](std::string_view piece) { bytes += piece.size(); });
    // A start tag and an end tag a level, each alone on its line but for the innermost pair, which shares one; the
    // start tags' blanks are 0 + 1 + ... + 32,766, the end tags' the same without the last.
    const std::uint64_t blanks = kLevels * (kLevels - 1) / 2;
    const std::uint64_t tags = kLevels * (3 + 4);
    const std::uint64_t lineEnds = 2 * (2 * kLevels - 1);
    EXPECT_EQ(bytes, kDeclaration.size() + tags + lineEnds + 2 * blanks - (kLevels - 1));
}

TEST(DeepTree, BeyondThatIsAnOverflowBeforeAnythingIsWritten) {
    for (const NodeKey levels : {32'768u, 1'000'000u}) {
        const Document document = Nested(levels);
        std::uint64_t pieces = 0;
        try {
            WriteXml(document, [&](std::string_view) { ++pieces; });
            FAIL() << "no error";
        } catch (const text::RuntimeError& error) {
            EXPECT_EQ(error.Code(), text::ErrorNumber::Overflow);
        }
        EXPECT_EQ(pieces, 0u);
    }
}

TEST(WriteXmlFile, ReplacesTheFile) {
    tests::MemoryFiles files;
    files.contents["a.xml"] = "old";
    WriteXmlFile(ParseXml("<a>new</a>"), files, "a.xml");
    EXPECT_EQ(files.contents, (std::map<std::string, std::string>{{"a.xml", kDeclaration + "<a>new</a>\r\n"}}));
}

TEST(WriteXmlFile, CreatesTheFile) {
    tests::MemoryFiles files;
    WriteXmlFile(ParseXml("<a/>"), files, "new.xml");
    EXPECT_EQ(files.contents.at("new.xml"), kDeclaration + "<a></a>\r\n");
}

TEST(WriteXmlFile, LeavesTheOldFileWhenTheTreeIsTooDeep) {
    tests::MemoryFiles files;
    files.contents["a.xml"] = "old";
    EXPECT_THROW(WriteXmlFile(Nested(32'768), files, "a.xml"), text::RuntimeError);
    EXPECT_EQ(files.contents, (std::map<std::string, std::string>{{"a.xml", "old"}}));
}

} // namespace
} // namespace tamarind::document
