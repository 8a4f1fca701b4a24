#include "markers/marker_file.h"

#include "markers/expect_error.h"
#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"
#include "support/utf16.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using tests::Utf16;
using text::ErrorNumber;

constexpr const char* kPlacemark = "<longitude><Placemark><name>A</name><coordinates>1,2,0</coordinates>";

class MarkerFile : public testing::Test {
protected:
    void Convert(const std::string& input, const std::string& output) {
        rig.ui.filePaths = {input, output};
        ConvertMarkerFile(rig.context);
    }
    /// A file that is refused: nobody is asked for a second one.
    void ConvertRefused(const std::string& input) {
        rig.ui.filePaths = {input};
        ConvertMarkerFile(rig.context);
    }
    void ExpectRefusal() {
        ASSERT_EQ(rig.ui.Messages().size(), 1U);
        const platform::Message message = rig.ui.Messages().front();
        EXPECT_EQ(message.text, "You have not selected a .kml or .gpx file?");
        EXPECT_EQ(message.title, "Tamarind");
        EXPECT_EQ(message.icon, platform::Icon::Exclamation);
        EXPECT_EQ(message.buttons, platform::Buttons::Ok);
        EXPECT_EQ(rig.ui.FileDialogs().size(), 1U);
    }

    MarkerFile() { files.folders = {"C:", "C:\\Maps"}; }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(MarkerFile, IsShownBeforeItIsSaved) {
    files.contents["C:\\Maps\\a.kml"] = kPlacemark;
    Convert("C:\\Maps\\a.kml", "C:\\Maps\\a.csv");
    EXPECT_THAT(rig.view.calls, ElementsAre("ShowMarkers 1,2,A\r\n"));
    EXPECT_EQ(files.contents["C:\\Maps\\a.csv"], "1,2,A\r\n");
}

TEST_F(MarkerFile, IsNotSavedWhenThePersonDoesNotLikeWhatIsShown) {
    files.contents["C:\\Maps\\a.kml"] = kPlacemark;
    rig.view.savesMarkers = false;
    rig.ui.filePaths = {"C:\\Maps\\a.kml"};
    ConvertMarkerFile(rig.context);
    EXPECT_EQ(rig.ui.FileDialogs().size(), 1U);
    EXPECT_EQ(files.contents.size(), 1U);
}

TEST_F(MarkerFile, IsSavedAtOnceWhenThePictureIsSwitchedOff) {
    files.contents["C:\\Maps\\a.kml"] = kPlacemark;
    rig.session.skipsMarkerPicture = true;
    Convert("C:\\Maps\\a.kml", "C:\\Maps\\a.csv");
    EXPECT_THAT(rig.view.calls, IsEmpty());
    EXPECT_EQ(files.contents["C:\\Maps\\a.csv"], "1,2,A\r\n");
}

TEST_F(MarkerFile, IsChosenAndSavedThroughTwoDialogs) {
    files.contents["C:\\Maps\\a.kml"] = kPlacemark;
    Convert("C:\\Maps\\a.kml", "C:\\Maps\\a.csv");
    ASSERT_EQ(rig.ui.FileDialogs().size(), 2U);
    const platform::FileDialog open = rig.ui.FileDialogs()[0];
    EXPECT_FALSE(open.save);
    EXPECT_EQ(open.title, "Open Marker file");
    EXPECT_EQ(open.filter, "Marker Files (*.kml;*.gpx;*.wpt;*.mkr)|*.kml;*.gpx;*.wpt;*.mkr");
    const platform::FileDialog save = rig.ui.FileDialogs()[1];
    EXPECT_TRUE(save.save);
    EXPECT_EQ(save.title, "Save Marker File");
    EXPECT_EQ(save.filter, "RailSim Marker Files (*.csv)|*.csv");
    EXPECT_EQ(save.defaultExtension, "csv");
    EXPECT_EQ(files.contents["C:\\Maps\\a.csv"], "1,2,A\r\n");
    EXPECT_THAT(rig.ui.Messages(), IsEmpty());
}

TEST_F(MarkerFile, ReplacesAnEarlierList) {
    files.contents["C:\\Maps\\a.kml"] = kPlacemark;
    files.contents["C:\\Maps\\a.csv"] = "an earlier and longer list";
    Convert("C:\\Maps\\a.kml", "C:\\Maps\\a.csv");
    EXPECT_EQ(files.contents["C:\\Maps\\a.csv"], "1,2,A\r\n");
}

TEST_F(MarkerFile, IsReadByTheKindOfItsName) {
    files.contents["a.kml"] = kPlacemark;
    files.contents["a.gpx"] = "<trkseg><trkpt lat=\"3\" lon=\"4\"/>";
    files.contents["a.wpt"] = "1,1,5,6,\n";
    files.contents["a.mkr"] = std::string("M\0a\0r\0k\0e\0r\0 \0(\0 \0007\0 \0008\0 \0B\0.\0.\0)\0", 34);
    for (const char* name : {"a.kml", "a.gpx", "a.wpt", "a.mkr"})
        Convert(name, std::string(name) + ".csv");
    EXPECT_EQ(files.contents["a.kml.csv"], "1,2,A\r\n");
    EXPECT_EQ(files.contents["a.gpx.csv"], "4,3\r\n");
    EXPECT_EQ(files.contents["a.wpt.csv"], "6,5\r\n");
    EXPECT_EQ(files.contents["a.mkr.csv"], "7,8,B\r\n");
}

TEST_F(MarkerFile, MayHaveItsEndingInCapitals) {
    files.contents["A.KML"] = kPlacemark;
    files.contents["A.Gpx"] = "<trkseg><trkpt lat=\"3\" lon=\"4\"/>";
    Convert("A.KML", "a.csv");
    Convert("A.Gpx", "b.csv");
    EXPECT_EQ(files.contents["a.csv"], "1,2,A\r\n");
    EXPECT_EQ(files.contents["b.csv"], "4,3\r\n");
}

TEST_F(MarkerFile, OfAnotherKindIsRefused) {
    files.contents["a.kmz"] = kPlacemark;
    ConvertRefused("a.kmz");
    ExpectRefusal();
}

TEST_F(MarkerFile, WhoseNameHasNoDotIsRefused) {
    files.contents["akml"] = kPlacemark;
    ConvertRefused("akml");
    ExpectRefusal();
}

TEST_F(MarkerFile, OfAShortNameIsRefused) {
    ConvertRefused("kml");
    ExpectRefusal();
}

TEST_F(MarkerFile, ThatNobodyChoseIsRefusedInTheSameWords) {
    ConvertRefused("");
    ExpectRefusal();
}

TEST_F(MarkerFile, IsNotWrittenWhenTheSecondDialogIsCancelled) {
    files.contents["a.kml"] = kPlacemark;
    Convert("a.kml", "");
    EXPECT_EQ(files.contents.size(), 1U);
    EXPECT_THAT(rig.ui.Messages(), IsEmpty());
}

TEST_F(MarkerFile, ThatIsMissingGivesAnEmptyList) {
    for (const char* name : {"a.kml", "a.gpx", "a.mkr"}) {
        Convert(name, std::string(name) + ".csv");
        EXPECT_EQ(files.contents.count(std::string(name) + ".csv"), 1U) << name;
        EXPECT_EQ(files.contents[std::string(name) + ".csv"], "") << name;
    }
}

TEST_F(MarkerFile, OfWaypointsThatIsMissingFails) {
    rig.ui.filePaths = {"a.wpt"};
    ExpectError(ErrorNumber::FileNotFound, "a.wpt", [this] {
        ConvertMarkerFile(rig.context);
        return 0;
    });
}

TEST_F(MarkerFile, ThatCannotBeReadWritesNothing) {
    files.contents["a.gpx"] = "<gpx></gpx>";
    files.contents["a.csv"] = "an earlier list";
    rig.ui.filePaths = {"a.gpx"};
    ExpectError(ErrorNumber::InvalidProcedureCall, "<trkseg>", [this] {
        ConvertMarkerFile(rig.context);
        return 0;
    });
    EXPECT_EQ(files.contents["a.csv"], "an earlier list");
    EXPECT_EQ(rig.ui.BusyDepth(), 0);
}

TEST_F(MarkerFile, ThatIsCutOffGivesWhatIsWholeAndSaysSo) {
    files.contents["a.kml"] = std::string(kPlacemark) + "<Placemark><name>B</name>";
    Convert("a.kml", "a.csv");
    EXPECT_EQ(files.contents["a.csv"], "1,2,A\r\n");
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("\"<coordinates>\" is missing for marker 2: the list ends before it.", "Saved a.csv"));
}

TEST_F(MarkerFile, WhoseLettersTheListCannotHoldSaysSo) {
    files.contents["a.mkr"] = Utf16(u"Marker ( 1 2 Caf\u00E9..)");
    Convert("a.mkr", "a.csv");
    EXPECT_EQ(files.contents["a.csv"], "1,2,Caf\xE9\r\n");
    files.contents["b.mkr"] = Utf16(u"Marker ( 1 2 E\u0142k..)");
    Convert("b.mkr", "b.csv");
    EXPECT_EQ(files.contents["b.csv"], "1,2,E?k\r\n");
    files.contents["c.mkr"] = Utf16(u"Marker ( 1 2 E\u0142k..)Marker (");
    Convert("c.mkr", "c.csv");
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("Saved a.csv", "Some letters are written as \"?\".", "Saved b.csv",
                            "\")\" is missing for marker 2: the list ends before it. Some letters are written as "
                            "\"?\".",
                            "Saved c.csv"));
}

TEST_F(MarkerFile, ThatCannotBeWrittenIsTold) {
    files.contents["a.kml"] = kPlacemark;
    Convert("a.kml", "C:\\Missing\\a.csv");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Path not found occurred in WriteUniFile while processing\r\nfile " +
                                                   platform::ForDisplay("C:\\Missing\\a.csv")));
    EXPECT_THAT(rig.ui.StatusLines(), IsEmpty());
}

} // namespace
} // namespace tamarind::markers
