#include "fixture.h"
#include "game/content.h"
#include "serz/binary_format.h"
#include "serz/xml_check.h"
#include "system/program.h"

#include <chrono>
#include <filesystem>

namespace tamarind::samples {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::string_view kXml = "<?xml version=\"1.0\"?>\r\n<a b=\"1 > 0\">\xE9\r\n\t<c/>text</a>\r\n";

// "123456789" is the customary check text of CRC-32; its value is CBF43926.
TEST(Crc32, GivesTheCheckValueOfItsDefinition) { EXPECT_EQ(Crc32("123456789"), 0xCBF43926U); }

TEST(EncodeBinary, BeginsWithMagicVersionLengthAndChecksum) {
    const std::string bytes = EncodeBinary("123456789");
    ASSERT_EQ(bytes.size(), 29U);
    EXPECT_EQ(bytes.substr(0, 4), "TSRZ");
    EXPECT_EQ(bytes.substr(4, 4), std::string("\x01\0\0\0", 4));
    EXPECT_EQ(bytes.substr(8, 8), std::string("\x09\0\0\0\0\0\0\0", 8));
    EXPECT_EQ(bytes.substr(16, 4), "\x26\x39\xF4\xCB");
}

// Mask bytes: 167 = A7, 198 = C6, 229 = E5; "1" is 31, "2" is 32, "3" is 33.
TEST(EncodeBinary, MasksEveryByteByItsPosition) { EXPECT_EQ(EncodeBinary("123").substr(20), "\x96\xF4\xD6"); }

TEST(DecodeBinary, GivesBackAllByteValues) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    EXPECT_EQ(DecodeBinary(EncodeBinary(bytes)), bytes);
}

TEST(DecodeBinary, RefusesEveryShorterFile) {
    const std::string bytes = EncodeBinary(kXml);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(DecodeBinary(bytes.substr(0, length))) << length;
    }
}

TEST(DecodeBinary, RefusesEverySingleChangedByte) {
    const std::string bytes = EncodeBinary(kXml);
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        std::string changed = bytes;
        changed[index] = static_cast<char>(changed[index] ^ 0x10);
        EXPECT_FALSE(DecodeBinary(changed)) << index;
    }
}

TEST(DecodeBinary, RefusesBytesAfterTheEnd) { EXPECT_FALSE(DecodeBinary(EncodeBinary(kXml) + "x")); }

TEST(IsBalancedXml, IsTrueForElementsInsideEachOther) {
    EXPECT_TRUE(IsBalancedXml("<a/>"));
    EXPECT_TRUE(IsBalancedXml("<a><b></b ><b x='>'/></a>\r\n"));
    EXPECT_TRUE(IsBalancedXml("\xEF\xBB\xBF \t\r\n<a>1 > 0</a>"));
    EXPECT_TRUE(IsBalancedXml("<?xml version=\"1.0\"?><!-- <b> --><!DOCTYPE a [<!ENTITY e \"<x>\">]><a/><!-- end -->"));
    EXPECT_TRUE(IsBalancedXml("<a><![CDATA[</b>]]></a>"));
}

TEST(IsBalancedXml, IsFalseForTagsThatDoNotMatch) {
    for (const std::string_view text : {"<a>", "<a></b>", "</a>", "<a><b></a></b>", "<a/><b/>", "<a></a></a>"}) {
        EXPECT_FALSE(IsBalancedXml(text)) << text;
    }
}

TEST(IsBalancedXml, IsFalseForUnfinishedMarkup) {
    for (const std::string_view text : {"<", "<a", "<a b=\"", "<a b=\"1></a>", "<a><!-- </a>", "<a><![CDATA[</a>",
                                        "<?xml", "<a><b</a>", "<>", "< a/>"}) {
        EXPECT_FALSE(IsBalancedXml(text)) << text;
    }
}

TEST(IsBalancedXml, IsFalseForTextOutsideTheElement) {
    for (const std::string_view text : {"", " \r\n", "text", "x<a/>", "<a/>x", "<!-- only -->", "<![CDATA[x]]>"}) {
        EXPECT_FALSE(IsBalancedXml(text)) << text;
    }
}

TEST(IsBalancedXml, TakesAMillionLevels) {
    constexpr int kLevels = 1'000'000;
    std::string open;
    std::string close;
    for (int level = 0; level < kLevels; ++level) {
        open += "<a>";
        close += "</a>";
    }
    EXPECT_TRUE(IsBalancedXml(open + close));
    EXPECT_FALSE(IsBalancedXml(open + close.substr(4)));
}

class SerzTest : public SampleTest {
protected:
    void ExpectRefused(const std::string& bytes) {
        WriteFile(Path("in.bin"), bytes);
        EXPECT_EQ(Serz(Path("in.bin"), "xml:", Path("out.xml")), 1);
        EXPECT_FALSE(fs::exists(Path("out.xml")));
    }
};

TEST_F(SerzTest, TurnsXmlIntoBinaryAndBackExactly) {
    WriteFile(Path("a.xml"), kXml);
    ASSERT_EQ(Serz(Path("a.xml"), "bin:", Path("a.bin")), 0);
    EXPECT_EQ(ReadFile(Path("a.bin")), EncodeBinary(kXml));
    ASSERT_EQ(Serz(Path("a.bin"), "xml:", Path("b.xml")), 0);
    EXPECT_EQ(ReadFile(Path("b.xml")), kXml);
}

TEST_F(SerzTest, DecidesByTheInputWhateverTheSwitch) {
    WriteFile(Path("in.xml"), kXml);
    WriteFile(Path("in.bin"), EncodeBinary(kXml));
    for (const std::string form : {"xml:", "bin:", "/bin:", "/xml:"}) {
        ASSERT_EQ(Serz(Path("in.xml"), form, Path("out")), 0) << form;
        EXPECT_EQ(ReadFile(Path("out")), EncodeBinary(kXml)) << form;
        ASSERT_EQ(Serz(Path("in.bin"), form, Path("out")), 0) << form;
        EXPECT_EQ(ReadFile(Path("out")), kXml) << form;
    }
}

TEST_F(SerzTest, TakesBlanksAndForeignLettersInPaths) {
    const fs::path folder = Path("B\xC3\xA4ume und \xE6\xA3\xAE");
    fs::create_directories(folder);
    WriteFile(folder / "a b.xml", kXml);
    ASSERT_EQ(Serz(folder / "a b.xml", "bin:", folder / "c d.bin"), 0);
    EXPECT_EQ(ReadFile(folder / "c d.bin"), EncodeBinary(kXml));
}

// Only the files' paths are that long: C++ cannot list, and so not tidy up, a folder beyond the limit on Windows.
TEST_F(SerzTest, TakesPathsOfMoreThan260Characters) {
    constexpr std::size_t kFolderLength = 220;
    ASSERT_LT(Utf8(folder_).size(), kFolderLength);
    const fs::path folder = folder_ / std::string(kFolderLength - Utf8(folder_).size(), 'x');
    const fs::path xml = folder / (std::string(60, 'a') + ".xml");
    const fs::path binary = folder / (std::string(60, 'b') + ".bin");
    fs::create_directories(Reachable(folder));
    WriteFile(xml, kXml);
    ASSERT_EQ(Serz(xml, "bin:", binary), 0);
    EXPECT_EQ(ReadFile(binary), EncodeBinary(kXml));
}

TEST_F(SerzTest, RefusesAFileCutShort) {
    const std::string bytes = EncodeBinary(kXml);
    ExpectRefused(bytes.substr(0, 4));
    ExpectRefused(bytes.substr(0, 20));
    ExpectRefused(bytes.substr(0, bytes.size() - 1));
}

TEST_F(SerzTest, RefusesAWrongChecksum) {
    std::string bytes = EncodeBinary(kXml);
    bytes[16] = static_cast<char>(bytes[16] ^ 1);
    ExpectRefused(bytes);
}

TEST_F(SerzTest, RefusesWhatIsNoXml) {
    ExpectRefused("");
    ExpectRefused("some words");
    ExpectRefused("<a><b></a>");
}

TEST_F(SerzTest, RefusesAMissingInputAndAFolder) {
    EXPECT_EQ(Serz(Path("none.bin"), "xml:", Path("out.xml")), 1);
    EXPECT_EQ(Serz(folder_, "xml:", Path("out.xml")), 1);
    EXPECT_FALSE(fs::exists(Path("out.xml")));
}

TEST_F(SerzTest, LeavesAnEarlierOutputAsItIsWhenItRefuses) {
    WriteFile(Path("out.xml"), "<old/>");
    WriteFile(Path("in.bin"), "bad");
    EXPECT_EQ(Serz(Path("in.bin"), "xml:", Path("out.xml")), 1);
    EXPECT_EQ(ReadFile(Path("out.xml")), "<old/>");
}

TEST_F(SerzTest, FailsWhereItCannotWrite) {
    WriteFile(Path("in.xml"), kXml);
    EXPECT_EQ(Serz(Path("in.xml"), "bin:", Path("none") / "out.bin"), 1);
}

TEST_F(SerzTest, RefusesOtherArguments) {
    WriteFile(Path("in.xml"), kXml);
    EXPECT_EQ(Serz(Path("in.xml"), "dds:", Path("out")), 2);
    EXPECT_EQ(Serz(Path("in.xml"), "bin:", ""), 2);
    EXPECT_FALSE(fs::exists(Path("out")));
}

TEST_F(SerzTest, WaitsAsLongAsTheDelaySays) {
    WriteFile(Path("in.xml"), kXml);
    const auto start = Clock::now();
    ASSERT_EQ(Serz(Path("in.xml"), "bin:", Path("out"), {{"TAMARIND_SERZ_DELAY_MS", "400"}}), 0);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(400));
    EXPECT_EQ(ReadFile(Path("out")), EncodeBinary(kXml));
}

TEST_F(SerzTest, WritesNothingWhenToldToFail) {
    WriteFile(Path("in.xml"), kXml);
    EXPECT_EQ(Serz(Path("in.xml"), "bin:", Path("out"), {{"TAMARIND_SERZ_FAIL", "1"}}), 1);
    EXPECT_FALSE(fs::exists(Path("out")));
}

TEST_F(SerzTest, WritesHalfWhenToldTo) {
    WriteFile(Path("in.bin"), EncodeBinary("<a>1234</a>")); // 11 bytes, 5 of them are half
    ASSERT_EQ(Serz(Path("in.bin"), "xml:", Path("out"), {{"TAMARIND_SERZ_PARTIAL", "1"}}), 0);
    EXPECT_EQ(ReadFile(Path("out")), "<a>12");
}

TEST_F(SerzTest, HangsUntilStoppedWhenToldTo) {
    WriteFile(Path("in.xml"), kXml);
    ChildProgram serz(ProgramFolder() / SERZ_NAME, {Utf8(Path("in.xml")), "bin:" + Utf8(Path("out"))},
                      {{"TAMARIND_SERZ_HANG", "1"}});
    EXPECT_FALSE(serz.WaitFor(std::chrono::milliseconds(1500)));
    serz.Stop();
    EXPECT_FALSE(fs::exists(Path("out")));
}

TEST_F(SerzTest, LogsTheArgumentsOfEveryRun) {
    WriteFile(Path("in.xml"), kXml);
    const Environment environment{{"TAMARIND_SERZ_LOG", Utf8(Path("log.txt"))}};
    ASSERT_EQ(Serz(Path("in.xml"), "bin:", Path("out.bin"), environment), 0);
    ASSERT_EQ(Serz(Path("none"), "/xml:", Path("out.xml"), environment), 1);
    EXPECT_EQ(ReadFile(Path("log.txt")), Utf8(Path("in.xml")) + "\tbin:" + Utf8(Path("out.bin")) + "\n" +
                                             Utf8(Path("none")) + "\t/xml:" + Utf8(Path("out.xml")) + "\n");
}

TEST_F(SerzTest, RoundTripsEveryBinaryFileOfTheSampleGame) {
    const fs::path game = WriteSampleGame(folder_);
    int count = 0;
    for (const auto& [name, bytes] : ReadTree(game)) {
        if (!IsBinary(bytes)) {
            continue;
        }
        const std::u8string relative(name.begin(), name.end());
        ASSERT_EQ(Serz(game / relative, "xml:", Path("round.xml")), 0) << name;
        EXPECT_TRUE(ReadFile(Path("round.xml")).starts_with("<?xml ")) << name;
        ASSERT_EQ(Serz(Path("round.xml"), "bin:", Path("round.bin")), 0) << name;
        EXPECT_EQ(ReadFile(Path("round.bin")), bytes) << name;
        ++count;
    }
    EXPECT_GE(count, 40);
}

} // namespace
} // namespace tamarind::samples
