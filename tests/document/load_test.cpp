#include "document/clsXMLParse.h"
#include "support/memory_files.h"
#include "support/tree_text.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <gtest/gtest.h>
#include <string>

namespace tamarind::document {
namespace {

using tests::TreeText;

std::string Loaded(std::string_view bytes) { return TreeText(ParseXml(bytes).Top()); }

struct Failure {
    std::string description;
    std::uint64_t line = 0;
    std::uint64_t column = 0;
};

Failure FailureOf(std::string_view bytes) {
    try {
        (void)ParseXml(bytes);
    } catch (const XmlError& error) {
        return {error.what(), error.Line(), error.Column()};
    }
    return {"no error"};
}

std::string Utf16(std::string_view ascii, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char character : ascii) {
        bytes += bigEndian ? std::string{'\0', character} : std::string{character, '\0'};
    }
    return bytes;
}

TEST(Loading, TextOfALeafIsItsCharacters) { EXPECT_EQ(Loaded("<a>Abc</a>"), "1:a{Abc}()"); }

TEST(Loading, TextOfAParentIsWhatStandsBeforeItsEndTag) {
    EXPECT_EQ(Loaded("<a>first\n\t<b>Abc</b> between <c/>\n\t</a>"), "1:a{\n\t}(2:b{Abc}()3:c())");
}

TEST(Loading, EmptyRunReplacesNothing) {
    EXPECT_EQ(Loaded("<a>kept<b/></a>"), "1:a{kept}(2:b())");
    EXPECT_EQ(Loaded("<a>kept<b/><!-- nothing --><c/><?nothing?></a>"), "1:a{kept}(2:b()3:c())");
    EXPECT_EQ(Loaded("<a>kept<b/><![CDATA[]]></a>"), "1:a{kept}(2:b())");
}

TEST(Loading, LaterTextReplacesShorterAndLongerOnes) {
    EXPECT_EQ(Loaded("<a>long text here<b/>x<c/>longer than x</a>"), "1:a{longer than x}(2:b()3:c())");
    EXPECT_EQ(Loaded("<a>x<b/>longer<c/>y</a>"), "1:a{y}(2:b()3:c())");
}

TEST(Loading, ReplacedTextOfOneElementLeavesOthersAlone) {
    EXPECT_EQ(Loaded("<a>one<b>two</b>six<c>ten</c>end</a>"), "1:a{end}(2:b{two}()3:c{ten}())");
}

TEST(Loading, EntityDoesNotCutText) {
    EXPECT_EQ(Loaded("<a>Fish &amp; Chips</a>"), "1:a{Fish & Chips}()");
    EXPECT_EQ(Loaded("<a>&lt;&gt;&quot;&apos;&#65;&#x42;</a>"), "1:a{<>\"'AB}()");
}

TEST(Loading, CommentInstructionAndCdataDoNotCutText) {
    EXPECT_EQ(Loaded("<a>one<!-- lost -->two<?lost too?>three<![CDATA[<&four>]]>five</a>"),
              "1:a{onetwothree<&four>five}()");
}

TEST(Loading, InternalEntityIsPartOfTheText) {
    EXPECT_EQ(Loaded("<!DOCTYPE a [<!ENTITY name \"Tamarind\">]><a>The &name; text</a>"), "1:a{The Tamarind text}()");
}

TEST(Loading, TextOverSeveralLinesIsOnePiece) {
    EXPECT_EQ(Loaded("<a>one\ntwo\n\nthree</a>"), "1:a{one\ntwo\n\nthree}()");
}

TEST(Loading, TextLongerThanAnyPieceOfTheFileIsWhole) {
    const std::string text(3'000'000, 't');
    EXPECT_EQ(ParseXml("<a><b>" + text + "</b></a>").Top().ChildNodes.Item(1).NodeCharacters, text);
}

TEST(Loading, LineEndsArriveAsLineFeeds) {
    EXPECT_EQ(Loaded("<a>one\r\ntwo\rthree\nfour</a>"), "1:a{one\ntwo\nthree\nfour}()");
    EXPECT_EQ(Loaded("<a>&#13;&#10;</a>"), "1:a{\r\n}()");
}

TEST(Loading, ElementLosesItsPrefix) {
    EXPECT_EQ(Loaded("<d:nil/>"), "1:nil()");
    EXPECT_EQ(Loaded("<x:a><y:b:c/><d/></x:a>"), "1:a(2:b:c()3:d())");
    EXPECT_EQ(Loaded("<a:/>"), "1:a:()");
}

TEST(Loading, AttributeKeepsItsPrefixAndItsPlace) {
    EXPECT_EQ(Loaded("<a z='1' d:id='2' b='3'/>"), "1:a[z=1,d:id=2,b=3]()");
}

TEST(Loading, NamespaceDeclarationsAreAttributes) {
    EXPECT_EQ(Loaded("<a one='1' xmlns:d='http://example.org/delta' xmlns='http://example.org' d:two='2'/>"),
              "1:a[one=1,xmlns:d=http://example.org/delta,xmlns=http://example.org,d:two=2]()");
}

TEST(Loading, AttributeValueHasItsEntitiesResolved) {
    EXPECT_EQ(Loaded("<a b='&amp;&lt;&gt;&quot;&apos;&#233;'/>"), "1:a[b=&<>\"'\xC3\xA9]()");
}

TEST(Loading, KeysCountStartTagsFromOne) { EXPECT_EQ(Loaded("<a><b><c/></b><d/></a>"), "1:a(2:b(3:c())4:d())"); }

TEST(Loading, ParentsLeadBackToTheDocumentNode) {
    const Document document = ParseXml("<a><b/></a>");
    EXPECT_EQ(document.Top().ChildNodes.Item(1).ParentNode, &document.Top());
    EXPECT_EQ(document.Top().ParentNode, &document.Root());
    EXPECT_EQ(document.Root().ChildNodes.Count(), 1u);
    EXPECT_EQ(document.Root().NodeCharacters, "");
}

TEST(Loading, DeclarationAndWhatSurroundsTheTopElementAreLost) {
    EXPECT_EQ(Loaded("<?xml version=\"1.0\"?>\n<!-- before -->\n<a/>\n<?after?>\n"), "1:a()");
}

TEST(Loading, Utf8MayHaveAMark) { EXPECT_EQ(Loaded("\xEF\xBB\xBF<a>\xC3\xA9</a>"), "1:a{\xC3\xA9}()"); }

TEST(Loading, Utf16IsReadInBothOrders) {
    EXPECT_EQ(Loaded(Utf16("<a b='c'>text</a>", false)), "1:a[b=c]{text}()");
    EXPECT_EQ(Loaded(Utf16("<?xml version='1.0' encoding='UTF-16'?><a>text</a>", true)), "1:a{text}()");
    // U+20AC, then U+1F682 as the pair D83D DE82.
    EXPECT_EQ(Loaded(std::string("\xFF\xFE<\0a\0>\0\xAC\x20\x3D\xD8\x82\xDE<\0/\0a\0>\0", 22)),
              "1:a{\xE2\x82\xAC\xF0\x9F\x9A\x82}()");
}

TEST(Loading, Latin1IsRead) {
    EXPECT_EQ(Loaded("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE9\x80</a>"), "1:a{\xC3\xA9\xC2\x80}()");
}

TEST(Loading, AsciiIsRead) {
    EXPECT_EQ(Loaded("<?xml version='1.0' encoding='US-ASCII'?><a>e</a>"), "1:a{e}()");
    EXPECT_EQ(FailureOf("<?xml version='1.0' encoding='US-ASCII'?><a>\xE9</a>").description,
              "not well-formed (invalid token)");
}

TEST(Loading, EveryWindows1252ByteIsRead) {
    const std::string head = "<?xml version='1.0' encoding='windows-1252'?><a b='";
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const Document document = ParseXml(head + static_cast<char>(byte) + "'>" + static_cast<char>(byte) + "</a>");
        std::string expected;
        text::AppendUtf8(expected, text::CodePageToUnicode(static_cast<std::uint8_t>(byte)));
        EXPECT_EQ(document.Top().NodeCharacters, expected) << byte;
        EXPECT_EQ(document.Top().NodeAttributes.Item(1).AttribValue, expected) << byte;
    }
    // U+20AC, U+0178 and, of the undefined ones, U+0081.
    EXPECT_EQ(Loaded("<?xml version='1.0' encoding='Windows-1252'?><a>\x80\x9F\x81</a>"),
              "1:a{\xE2\x82\xAC\xC5\xB8\xC2\x81}()");
}

TEST(Loading, Windows1252NamesMayHaveLettersOfTheCodePage) {
    EXPECT_EQ(Loaded("<?xml version='1.0' encoding='windows-1252'?><\xE9t\xE9 \xFC='1'/>"),
              "1:\xC3\xA9t\xC3\xA9[\xC3\xBC=1]()");
}

TEST(Loading, OtherEncodingsAreRefused) {
    const Failure failure = FailureOf("<?xml version='1.0' encoding='windows-1251'?><a/>");
    EXPECT_EQ(failure.description, "unknown encoding");
    EXPECT_EQ(failure.line, 1u);
}

TEST(Loading, AttributesWithDefaultsAreReported) {
    EXPECT_EQ(Loaded("<!DOCTYPE a [<!ATTLIST a given CDATA 'x' other CDATA 'y'>]><a given='z'/>"),
              "1:a[given=z,other=y]()");
}

TEST(MalformedXml, IsReportedWithLineAndColumn) {
    // The end tag's name starts in column 5 of line 2.
    const Failure failure = FailureOf("<a>\n  </b>\n</a>");
    EXPECT_EQ(failure.description, "mismatched tag");
    EXPECT_EQ(failure.line, 2u);
    EXPECT_EQ(failure.column, 5u);
}

TEST(MalformedXml, ColumnCountsFromOne) {
    const Failure failure = FailureOf("x");
    EXPECT_EQ(failure.description, "syntax error");
    EXPECT_EQ(failure.line, 1u);
    EXPECT_EQ(failure.column, 1u);
}

TEST(MalformedXml, ColumnCountsCharacters) {
    // The end tag's name is the eighth character, the euro sign before it being three bytes.
    EXPECT_EQ(FailureOf("<a>\xE2\x82\xAC.</b>").column, 8u);
}

TEST(MalformedXml, PlaceIsRightFarIntoTheFile) {
    std::string text = "<a>\r\n";
    for (int line = 0; line < 100'000; ++line) {
        text += "\t<b/>\r\n";
    }
    const Failure failure = FailureOf(text + "\t& \r\n</a>");
    EXPECT_EQ(failure.description, "not well-formed (invalid token)");
    EXPECT_EQ(failure.line, 100'002u);
    EXPECT_EQ(failure.column, 3u); // what follows the "&" is no name
}

TEST(MalformedXml, EmptyFileHasNoElement) {
    EXPECT_EQ(FailureOf("").description, "no element found");
    EXPECT_EQ(FailureOf(" \n").description, "no element found");
    EXPECT_EQ(FailureOf("<?xml version='1.0'?><!-- nothing -->").description, "no element found");
}

TEST(MalformedXml, TruncatedFileIsRefused) {
    EXPECT_EQ(FailureOf("<a><b>text</b>").description, "no element found");
    EXPECT_EQ(FailureOf("<a><b").description, "unclosed token");
}

TEST(MalformedXml, SecondTopElementIsRefused) {
    EXPECT_EQ(FailureOf("<a/><b/>").description, "junk after document element");
}

TEST(MalformedXml, AttributeTwiceIsRefused) {
    EXPECT_EQ(FailureOf("<a b='1' b='2'/>").description, "duplicate attribute");
}

TEST(MalformedXml, ByteThatIsNoUtf8IsRefused) {
    EXPECT_EQ(FailureOf("<a>\xE9</a>").description, "not well-formed (invalid token)");
}

TEST(MalformedXml, UnknownEntityIsRefused) { EXPECT_EQ(FailureOf("<a>&nothing;</a>").description, "undefined entity"); }

TEST(EntityBomb, IsRefused) {
    std::string text = "<!DOCTYPE a [<!ENTITY e0 \"0123456789\">";
    for (int level = 1; level <= 9; ++level) {
        text += "<!ENTITY e" + std::to_string(level) + " \"";
        for (int repeat = 0; repeat < 10; ++repeat) {
            text += "&e" + std::to_string(level - 1) + ";";
        }
        text += "\">";
    }
    EXPECT_EQ(FailureOf(text + "]><a>&e9;</a>").description,
              "limit on input amplification factor (from DTD and entities) breached");
}

TEST(EntityBomb, EntityWithinItselfIsRefused) {
    EXPECT_EQ(FailureOf("<!DOCTYPE a [<!ENTITY b '&c;'><!ENTITY c '&b;'>]><a>&b;</a>").description,
              "recursive entity reference");
}

/// A chain of entities, each naming the one before; the document names the last.
std::string EntityChain(int entities) {
    std::string text = "<!DOCTYPE a [\n<!ENTITY e1 'x'>\n";
    for (int entity = 2; entity <= entities; ++entity) {
        text += "<!ENTITY e" + std::to_string(entity) + " '&e" + std::to_string(entity - 1) + ";'>\n";
    }
    return text + "]><a b='&e" + std::to_string(entities) + ";'>&e" + std::to_string(entities) + ";</a>";
}

TEST(EntityDeclarations, AreReadUpToTwoThousand) { EXPECT_EQ(Loaded(EntityChain(2000)), "1:a[b=x]{x}()"); }

TEST(EntityDeclarations, AreRefusedBeyondTwoThousand) {
    const Failure failure = FailureOf(EntityChain(2001));
    EXPECT_EQ(failure.description, "the document declares more than 2,000 entities");
    EXPECT_EQ(failure.line, 2002u); // one line before the first declaration
}

TEST(ExternalEntity, IsNotFetched) {
    tests::MemoryFiles files;
    files.contents["secret.txt"] = "secret";
    files.contents["a.xml"] = "<!DOCTYPE a [<!ENTITY s SYSTEM 'secret.txt'>]><a>[&s;]</a>";
    EXPECT_EQ(TreeText(LoadXml(files, "a.xml").Top()), "1:a{[]}()");
}

TEST(ExternalDefinition, IsNotFetched) {
    EXPECT_EQ(Loaded("<!DOCTYPE a SYSTEM 'missing.dtd'><a>[&unknown;]</a>"), "1:a{[]}()");
}

TEST(LoadXml, ReadsAFilePieceByPiece) {
    std::string text = "<a>";
    std::string expected = "1:a{ }(";
    for (int element = 2; element < 5000; ++element) {
        text += "<b id='" + std::to_string(element) + "'>text\xC3\xA9</b> ";
        expected += std::to_string(element) + ":b[id=" + std::to_string(element) + "]{text\xC3\xA9}()";
    }
    tests::MemoryFiles files;
    files.contents["a.xml"] = text + "</a>";
    EXPECT_EQ(TreeText(LoadXml(files, "a.xml").Top()), expected + ")");
}

TEST(LoadXml, ReportsTheErrorOfAMissingFile) {
    const tests::MemoryFiles files;
    try {
        (void)LoadXml(files, "missing.xml");
        FAIL() << "no error";
    } catch (const text::RuntimeError& error) {
        EXPECT_EQ(error.Code(), text::ErrorNumber::FileNotFound);
    }
}

TEST(LoadXml, ReportsTheErrorOfAFolder) {
    tests::MemoryFiles files;
    files.folders.insert("folder");
    try {
        (void)LoadXml(files, "folder");
        FAIL() << "no error";
    } catch (const text::RuntimeError& error) {
        EXPECT_EQ(error.Code(), text::ErrorNumber::PathAccessError);
    }
}

class BrokenFile : public platform::InputFile {
public:
    std::size_t Read(std::span<char> buffer) override {
        if (reads_++ == 2) {
            throw text::RuntimeError(text::ErrorNumber::DeviceIoError);
        }
        std::fill(buffer.begin(), buffer.end(), ' ');
        return buffer.size();
    }

private:
    int reads_ = 0;
};

class BrokenFiles : public tests::MemoryFiles {
public:
    [[nodiscard]] std::unique_ptr<platform::InputFile> Open(const std::string&) const override {
        return std::make_unique<BrokenFile>();
    }
};

TEST(LoadXml, ReportsAnErrorWhileReading) {
    const BrokenFiles files;
    try {
        (void)LoadXml(files, "a.xml");
        FAIL() << "no error";
    } catch (const text::RuntimeError& error) {
        EXPECT_EQ(error.Code(), text::ErrorNumber::DeviceIoError);
    }
}

TEST(AMillionLevels, AreLoadedAndFreed) {
    constexpr std::size_t kLevels = 1'000'000;
    std::string text;
    for (std::size_t level = 0; level < kLevels; ++level) {
        text += "<n>";
    }
    for (std::size_t level = 0; level < kLevels; ++level) {
        text += "</n>";
    }
    const Document document = ParseXml(text);
    EXPECT_EQ(CountElements(document.Top()), kLevels);
    Walk walk(document.Top());
    const clsNode* last = nullptr;
    while (const clsNode* const node = walk.Next()) {
        last = node;
    }
    EXPECT_EQ(last->Key, kLevels);
}

} // namespace
} // namespace tamarind::document
