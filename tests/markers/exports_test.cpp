// Files as mapping programs and GPS receivers write them, from their first byte to the list.
#include "markers/marker_file.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"
#include "support/utf16.h"
#include "text/search.h"

#include <gtest/gtest.h>

namespace tamarind::markers {
namespace {

using tests::Utf16;

constexpr const char* kUtf8Mark = "\xEF\xBB\xBF";

std::string WithCrLf(const std::string& text) { return text::ReplaceAll(text, "\n", "\r\n"); }

class Exports : public testing::Test {
protected:
    /// The list's file, byte for byte, made of a file with these bytes.
    std::string Converted(const std::string& name, const std::string& bytes) {
        files.contents[name] = bytes;
        files.contents.erase("list.csv");
        rig.ui.filePaths = {name, "list.csv"};
        ConvertMarkerFile(rig.context);
        return files.contents["list.csv"];
    }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

constexpr const char* kGlobeViewer = R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2" xmlns:gx="http://www.google.com/kml/ext/2.2">
<Document>
	<name>Alder Vale.kml</name>
	<Style id="sn_pushpin"><IconStyle><scale>1.1</scale></IconStyle></Style>
	<Folder>
		<name>Alder Vale</name>
		<open>1</open>
		<Placemark>
			<name>Old Mill</name>
			<LookAt>
				<longitude>-1.5499</longitude>
				<latitude>53.8008</latitude>
				<altitude>0</altitude>
				<range>1000</range>
			</LookAt>
			<styleUrl>#sn_pushpin</styleUrl>
			<Point>
				<coordinates>-1.549920000000000,53.80080000000000,0</coordinates>
			</Point>
		</Placemark>
		<Placemark>
			<name>Signal Box, East &amp; West</name>
			<LookAt>
				<longitude>-1.6</longitude>
				<latitude>53.9</latitude>
			</LookAt>
			<Point>
				<coordinates>-1.6,53.9,0</coordinates>
			</Point>
		</Placemark>
		<Placemark>
			<name>Łódź Fabryczna</name>
			<Point>
				<coordinates>19.47,51.77,0</coordinates>
			</Point>
		</Placemark>
	</Folder>
</Document>
</kml>
)";
constexpr const char* kGlobeViewerList = "-1.549920000000000,53.80080000000000,Old_Mill\r\n"
                                         "-1.6,53.9,Signal_Box,_East_&amp;_West\r\n"
                                         "19.47,51.77,Łódź_Fabryczna\r\n";

TEST_F(Exports, OfPlacemarksFromAGlobeViewer) {
    EXPECT_EQ(Converted("Places.kml", kGlobeViewer), kGlobeViewerList);
    EXPECT_EQ(Converted("Places.kml", WithCrLf(kGlobeViewer)), kGlobeViewerList);
    EXPECT_EQ(Converted("Places.kml", kUtf8Mark + WithCrLf(kGlobeViewer)), kGlobeViewerList);
}

std::string PathExport(const std::string& points) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2">
<Document>
	<name>Branch.kml</name>
	<Placemark>
		<name>Branch</name>
		<LineString>
			<tessellate>1</tessellate>
			<coordinates>
				)" +
           points + R"(
			</coordinates>
		</LineString>
	</Placemark>
</Document>
</kml>
)";
}

TEST_F(Exports, OfAPathFromAGlobeViewer) {
    const std::string text = PathExport("-1.5,53.80,0 -1.6,53.81,0 -1.7,53.82,0 ");
    const std::string list = "\t\t\t\t-1.5,53.80\r\n-1.6,53.81\r\n-1.7,53.82\r\n";
    EXPECT_EQ(Converted("Branch.kml", text), list);
    EXPECT_EQ(Converted("Branch.kml", kUtf8Mark + text), list);
    // Of the two characters of the line break only the first is dropped.
    EXPECT_EQ(Converted("Branch.kml", WithCrLf(text)), "\n" + list);
}

TEST_F(Exports, OfAPathWithAPointALineGiveNothingButARemark) {
    EXPECT_EQ(Converted("Branch.kml", PathExport("-1.5,53.80,0\n-1.6,53.81,0")), "");
    EXPECT_EQ(rig.ui.StatusLines().front(), "What stands behind the last \",0 \" of the path is left out.");
}

constexpr const char* kReceiver = R"(<?xml version="1.0" encoding="UTF-8" standalone="no"?>
<gpx xmlns="http://www.topografix.com/GPX/1/1" creator="Receiver" version="1.1">
  <metadata><time>2009-05-03T10:11:12Z</time></metadata>
  <wpt lat="53.700000" lon="-1.400000"><name>Start</name></wpt>
  <trk>
    <name>Walk</name>
    <trkseg>
      <trkpt lat="53.800800" lon="-1.549900">
        <ele>61.20</ele>
        <time>2009-05-03T10:11:12Z</time>
      </trkpt>
      <trkpt lat="53.800900" lon="-1.550100"><ele>61.40</ele></trkpt>
    </trkseg>
    <trkseg>
      <trkpt lat="53.801000" lon="-1.550300"/>
    </trkseg>
  </trk>
</gpx>
)";
constexpr const char* kReceiverList = "-1.549900,53.800800\r\n-1.550100,53.800900\r\n-1.550300,53.801000\r\n";

TEST_F(Exports, OfATrackFromAReceiver) {
    EXPECT_EQ(Converted("Walk.gpx", kReceiver), kReceiverList);
    EXPECT_EQ(Converted("Walk.gpx", WithCrLf(kReceiver)), kReceiverList);
    EXPECT_EQ(Converted("Walk.gpx", kUtf8Mark + WithCrLf(kReceiver)), kReceiverList);
}

TEST_F(Exports, OfATrackOnOneLine) {
    EXPECT_EQ(Converted("Walk.gpx", text::ReplaceAll(kReceiver, "\n", "")), kReceiverList);
}

constexpr const char* kWaypointList =
    "OziExplorer Waypoint File Version 1.1\nWGS 84\nReserved 2\nReserved 3\n"
    "1,1,  53.800800,  -1.549900,39571.42447,0,1,3,0,65535,Halt,0,0,0,200,6,0,17\n"
    "2,2,  53.800900,  -1.550100,39571.42448,0,1,3,0,65535,Café au lait,0,0,0,200,6,0,17\n";

TEST_F(Exports, OfWaypointsFromAMapProgram) {
    const std::string list = "  -1.549900,53.800800\r\n  -1.550100,53.800900\r\n";
    EXPECT_EQ(Converted("Halts.wpt", kWaypointList), list);
    EXPECT_EQ(Converted("Halts.wpt", WithCrLf(kWaypointList)), list);
    EXPECT_EQ(Converted("Halts.wpt", kUtf8Mark + WithCrLf(kWaypointList)), list);
}

TEST_F(Exports, OfWaypointsWithoutAHeadAndWithAMark) {
    EXPECT_EQ(Converted("Halts.wpt", kUtf8Mark + std::string("1,1,3,4,0\n")), "4,3\r\n");
}

constexpr std::u16string_view kMarkerFile = u"SIMISA@@@@@@@@@@JINX0m0t______\r\n\r\n"
                                            u"Marker ( -1.5499  53.8008 \"Old Mill\" 2 )\r\n"
                                            u"Marker ( -1.6000  53.9000 Köln/Ω 2 )\r\n";

TEST_F(Exports, OfASimulatorsMarkers) {
    // What the code page does not have becomes a question mark.
    const std::string list = "-1.5499,53.8008,\"Old Mill\"\r\n-1.6000,53.9000,K\xF6ln/?\r\n";
    EXPECT_EQ(Converted("Vale.mkr", "\xFF\xFE" + Utf16(kMarkerFile)), list);
    EXPECT_EQ(Converted("Vale.mkr", "\xFE\xFF" + Utf16(kMarkerFile, true)), list);
    EXPECT_EQ(Converted("Vale.mkr", Utf16(kMarkerFile)), list);
}

TEST_F(Exports, OfASimulatorsMarkersWithPlainLineEnds) {
    std::u16string text(kMarkerFile);
    std::erase(text, u'\r');
    EXPECT_EQ(Converted("Vale.mkr", "\xFF\xFE" + Utf16(text)),
              "-1.5499,53.8008,\"Old Mill\"\r\n-1.6000,53.9000,K\xF6ln/?\r\n");
}

TEST_F(Exports, InACodePageKeepEveryByte) {
    const std::string name = "K\xF6ln \x80\x81\xFF";
    EXPECT_EQ(Converted("Places.kml", "<longitude><Placemark><name>" + name + "</name><coordinates>1,2,0"),
              "1,2,K\xF6ln_\x80\x81\xFF\r\n");
}

TEST_F(Exports, OfOtherKindsUnderAMarkersNameGiveNothing) {
    const std::string picture("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
    EXPECT_EQ(Converted("Picture.wpt", picture), "");
    EXPECT_EQ(Converted("Picture.mkr", picture), "");
    EXPECT_EQ(Converted("Single.mkr", "x"), "");
}

TEST_F(Exports, ThatAreEmptyGiveAnEmptyFile) {
    for (const char* name : {"a.kml", "a.gpx", "a.wpt", "a.mkr"}) {
        EXPECT_EQ(Converted(name, ""), "") << name;
        EXPECT_TRUE(files.contents.contains("list.csv")) << name;
    }
}

} // namespace
} // namespace tamarind::markers
