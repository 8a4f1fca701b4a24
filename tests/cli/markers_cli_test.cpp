#include "cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kPlaces = "<longitude><Placemark><name>Old Mill</name><coordinates>-1.5,53.8,0</coordinates>\r\n"
                                "<Placemark><name>Caf\xC3\xA9</name><coordinates>-1.6,53.9,0</coordinates>\r\n";
constexpr const char* kPlacesList = "-1.5,53.8,Old_Mill\r\n-1.6,53.9,Caf\xC3\xA9\r\n";

class CliMarkers : public CliTest {
protected:
    CliMarkers() : in_(Path("Places.kml")), out_(Path("Places.csv")), plot_(Path("Places.svg")) {
        WriteFile(in_, kPlaces);
    }

    fs::path in_;
    fs::path out_;
    fs::path plot_;
};

TEST_F(CliMarkers, WritesTheList) {
    const Ran ran = RunWords({"markers", Utf8(in_), Utf8(out_)});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, Utf8(out_) + "\t2\n");
    EXPECT_EQ(ran.errors, "");
    EXPECT_EQ(ReadFile(out_), kPlacesList);
}

TEST_F(CliMarkers, ReportsItsFileAndTheNumberOfPoints) {
    const json expected = {{"command", "markers"},
                           {"messages", json::array()},
                           {"result", {{"file", Utf8(out_)}, {"points", 2}}},
                           {"error", nullptr}};
    EXPECT_EQ(RunJson({"markers", Utf8(in_), Utf8(out_)}, 0), expected);
}

TEST_F(CliMarkers, WritesAPictureToo) {
    const json report = RunJson({"markers", Utf8(in_), Utf8(out_), "--plot", Utf8(plot_)}, 0);
    EXPECT_EQ(report["result"], json({{"file", Utf8(out_)}, {"points", 2}, {"plot", Utf8(plot_)}}));
    EXPECT_EQ(ReadFile(out_), kPlacesList);
    const std::string svg = ReadFile(plot_);
    EXPECT_THAT(svg, StartsWith("<svg "));
    EXPECT_THAT(svg, HasSubstr(">Start: Old_Mill</text>"));
    EXPECT_THAT(svg, HasSubstr(">End: Caf\xC3\xA9</text>"));
}

TEST_F(CliMarkers, TakesOtherKinds) {
    WriteFile(Path("a.GPX"), "<trkseg><trkpt lat=\"3\" lon=\"4\"/>");
    WriteFile(Path("a.wpt"), "head\n1,1,5,6,\n");
    WriteFile(Path("a.mkr"), std::string("\xFF\xFEM\0a\0r\0k\0e\0r\0 \0(\0 \0007\0 \0008\0 \0B\0.\0.\0)\0", 36));
    EXPECT_EQ(RunWords({"markers", "a.GPX", "a.csv"}, {}, folder_).output, "a.csv\t1\n");
    EXPECT_EQ(RunWords({"markers", "a.wpt", "b.csv"}, {}, folder_).output, "b.csv\t1\n");
    EXPECT_EQ(RunWords({"markers", "a.mkr", "c.csv"}, {}, folder_).output, "c.csv\t1\n");
    EXPECT_EQ(ReadFile(Path("a.csv")), "4,3\r\n");
    EXPECT_EQ(ReadFile(Path("b.csv")), "6,5\r\n");
    EXPECT_EQ(ReadFile(Path("c.csv")), "7,8,B\r\n");
}

TEST_F(CliMarkers, RefusesAnotherKindOfFile) {
    WriteFile(Path("Places.kmz"), kPlaces);
    const json report = RunJson({"markers", Utf8(Path("Places.kmz")), Utf8(out_)}, 1);
    const json message = {{"icon", "exclamation"},
                          {"title", "Tamarind"},
                          {"text", "You have not selected a .kml or .gpx file?"},
                          {"buttons", "ok"},
                          {"answer", "ok"}};
    EXPECT_EQ(report["messages"], json::array({message}));
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(CliMarkers, ReportsAnInvalidSearch) {
    WriteFile(in_, "<kml></kml>");
    const json report = RunJson({"markers", Utf8(in_), Utf8(out_), "--plot", Utf8(plot_)}, 1);
    EXPECT_EQ(report["error"], json({{"number", 5}, {"description", "Invalid procedure call or argument"}}));
    EXPECT_FALSE(fs::exists(out_));
    EXPECT_FALSE(fs::exists(plot_));
    EXPECT_THAT(RunWords({"markers", Utf8(in_), Utf8(out_)}).errors,
                HasSubstr("Run-time error 5: Invalid procedure call or argument\nThe file has no \"<coordinates>\"."));
}

TEST_F(CliMarkers, ReportsAnOverflowInALongTrack) {
    WriteFile(Path("a.gpx"), "<trkseg>" + std::string(40000, ' ') + "<trkpt lat=\"3\" lon=\"4\"/>");
    EXPECT_EQ(RunJson({"markers", Utf8(Path("a.gpx")), Utf8(out_)}, 1)["error"],
              json({{"number", 6}, {"description", "Overflow"}}));
}

TEST_F(CliMarkers, TellsOfAListThatIsEmpty) {
    const Ran ran = RunWords({"markers", "missing.kml", "a.csv"}, {}, folder_);
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.output, "a.csv\t0\n");
    EXPECT_EQ(ran.errors, "There is no marker in missing.kml\n");
    EXPECT_EQ(ReadFile(Path("a.csv")), "");
}

TEST_F(CliMarkers, TellsOfAFileThatIsCutOff) {
    WriteFile(in_, std::string(kPlaces) + "<Placemark><name>B</name>");
    const Ran ran = RunWords({"markers", Utf8(in_), Utf8(out_)});
    EXPECT_EQ(ran.exitCode, 0);
    EXPECT_EQ(ran.errors, "\"<coordinates>\" is missing for marker 3: the list ends before it.\n");
    EXPECT_EQ(ReadFile(out_), kPlacesList);
}

TEST_F(CliMarkers, ReportsAListThatCannotBeWritten) {
    const std::string list = Utf8(Path("missing") / "a.csv");
    const json report = RunJson({"markers", Utf8(in_), list}, 1);
    ASSERT_EQ(report["messages"].size(), 1U);
    EXPECT_EQ(report["messages"][0]["text"].get<std::string>(),
              "Path not found occurred in WriteUniFile while processing\r\nfile " + list);
    EXPECT_TRUE(report["result"].is_null());
}

TEST_F(CliMarkers, ReportsAPictureThatCannotBeWritten) {
    const json report = RunJson({"markers", Utf8(in_), Utf8(out_), "--plot", Utf8(Path("missing") / "a.svg")}, 1);
    EXPECT_EQ(report["error"]["number"], 76);
    EXPECT_TRUE(report["result"].is_null());
    EXPECT_EQ(ReadFile(out_), kPlacesList);
}

TEST_F(CliMarkers, DoesNotPutThePictureInThePlaceOfTheListOrTheInput) {
    for (const fs::path& place : {in_, out_}) {
        const json report = RunJson({"markers", Utf8(in_), Utf8(out_), "--plot", Utf8(place)}, 1);
        ASSERT_EQ(report["messages"].size(), 1U);
        EXPECT_EQ(report["messages"][0]["text"],
                  "The picture would take the place of " + Utf8(place) + ". Nothing was written.");
        EXPECT_EQ(ReadFile(in_), kPlaces);
        EXPECT_FALSE(fs::exists(out_));
    }
}

TEST_F(CliMarkers, DoesNotPutTheListInThePlaceOfTheInput) {
    for (const char* place : {"Places.kml", "./Places.kml"}) {
        const Ran ran = RunWords({"markers", Utf8(in_), place}, {}, folder_);
        EXPECT_EQ(ran.exitCode, 1) << place;
        EXPECT_EQ(ran.errors, std::string("The list would take the place of ") + place + ". Nothing was written.\n");
        EXPECT_EQ(ReadFile(in_), kPlaces) << place;
    }
}

TEST_F(CliMarkers, KnowsTheListAndTheInputInOtherSpellings) {
    fs::create_directory(Path("Maps"));
    for (const char* place :
         {"./Places.csv", "Maps/../Places.csv", "PLACES.CSV", "./Places.kml", "Maps/../Places.kml", "places.KML"}) {
        const Ran ran = RunWords({"markers", "Places.kml", "Places.csv", "--plot", place}, {}, folder_);
        EXPECT_EQ(ran.exitCode, 1) << place;
        EXPECT_EQ(ran.errors, std::string("The picture would take the place of ") + place + ". Nothing was written.\n");
        EXPECT_EQ(ReadFile(in_), kPlaces) << place;
        EXPECT_FALSE(fs::exists(out_)) << place;
    }
}

TEST_F(CliMarkers, WrongUsageIsTold) {
    EXPECT_EQ(RunWords({"markers"}).exitCode, 2);
    EXPECT_EQ(RunWords({"markers", "a.kml"}).exitCode, 2);
    EXPECT_EQ(RunWords({"markers", "a.kml", "b.csv", "c"}).exitCode, 2);
    EXPECT_EQ(RunWords({"markers", "a.kml", "b.csv", "--plot"}).exitCode, 2);
    EXPECT_THAT(RunWords({"markers", "--help"}).output, HasSubstr("--plot OUT.svg"));
}

} // namespace
} // namespace tamarind::tests
