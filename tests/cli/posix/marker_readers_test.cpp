#include "cli/cli_program.h"

#include "system/program.h"

#include <cstdlib>
#include <sstream>

// Our marker lists beside those of a converter that reads the same files as XML: the same points in the same order.
namespace tamarind::tests {
namespace {

using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;

const fs::path kConverter = "/usr/bin/gpsbabel";

struct Point {
    double longitude;
    double latitude;
    bool operator==(const Point&) const = default;
};

void PrintTo(const Point& point, std::ostream* out) { *out << point.longitude << "," << point.latitude; }

std::vector<Point> PointsOf(const std::string& list) {
    std::vector<Point> points;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        char* rest = nullptr;
        const double longitude = std::strtod(line.c_str(), &rest);
        points.push_back({longitude, std::strtod(rest + 1, nullptr)});
    }
    return points;
}

class MarkerReaders : public CliTest {
protected:
    MarkerReaders() {
        EXPECT_TRUE(fs::exists(kConverter)) << kConverter << " is missing: run scripts/install-packages.sh";
        WriteFile(Path("points.style"), "FIELD_DELIMITER COMMA\nRECORD_DELIMITER NEWLINE\n"
                                        "OFIELD LON_DECIMAL,\"\",\"%.6f\"\nOFIELD LAT_DECIMAL,\"\",\"%.6f\"\n");
    }

    std::vector<Point> ByUs(const fs::path& file) {
        EXPECT_EQ(Run({"markers", Utf8(file), Utf8(Path("ours.csv"))}).exitCode, 0);
        return PointsOf(ReadFile(Path("ours.csv")));
    }
    /// `kind` is "-w" for places, "-t" for a path.
    std::vector<Point> ByTheConverter(const fs::path& file, const std::string& kind, const std::string& format) {
        samples::ChildProgram child(kConverter,
                                    {kind, "-i", format, "-f", Utf8(file), "-o",
                                     "xcsv,style=" + Utf8(Path("points.style")), "-F", Utf8(Path("theirs.csv"))},
                                    {}, {folder_, Path("output"), Path("errors")});
        EXPECT_EQ(child.WaitFor(samples::kLongTime).value_or(-1), 0) << ReadFile(Path("errors"));
        return PointsOf(ReadFile(Path("theirs.csv")));
    }
};

TEST_F(MarkerReaders, AgreeOnThePlacesOfAKml) {
    const fs::path file = Path("places.kml");
    WriteFile(file,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\n"
              "<Placemark><name>Old Mill</name><LookAt><longitude>-1.55</longitude><latitude>53.8</latitude>"
              "</LookAt><Point><coordinates>-1.55,53.8,0</coordinates></Point></Placemark>\n"
              "<Placemark><name>Quarry</name><Point><coordinates>-1.5,53.83,41</coordinates></Point></Placemark>\n"
              "<Placemark><name>Terminus</name><Point><coordinates>12.25,-33.5,0</coordinates></Point>"
              "</Placemark>\n</Document></kml>\n");
    const std::vector<Point> points = ByUs(file);
    EXPECT_EQ(points, (std::vector<Point>{{-1.55, 53.8}, {-1.5, 53.83}, {12.25, -33.5}}));
    EXPECT_EQ(points, ByTheConverter(file, "-w", "kml"));
}

TEST_F(MarkerReaders, AgreeOnThePathOfAKml) {
    const fs::path file = Path("path.kml");
    WriteFile(file,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml xmlns=\"http://www.opengis.net/kml/2.2\"><Document>\n"
              "<Placemark><name>Branch</name><LineString><coordinates>\n"
              "-1.55,53.8,0 -1.5425,53.8125,0 -1.5,53.83,0 \n"
              "</coordinates></LineString></Placemark>\n</Document></kml>\n");
    const std::vector<Point> points = ByUs(file);
    EXPECT_EQ(points, (std::vector<Point>{{-1.55, 53.8}, {-1.5425, 53.8125}, {-1.5, 53.83}}));
    EXPECT_EQ(points, ByTheConverter(file, "-t", "kml"));
}

TEST_F(MarkerReaders, AgreeOnATrack) {
    const fs::path file = Path("track.gpx");
    WriteFile(file, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<gpx version=\"1.1\" creator=\"Mapper\" xmlns=\"http://www.topografix.com/GPX/1/1\">\n"
                    "<trk><name>Branch line</name><trkseg>\n<trkpt lat=\"53.8\" lon=\"-1.55\"><ele>41</ele></trkpt>\n"
                    "<trkpt lat=\"53.8125\" lon=\"-1.5425\"><ele>42</ele></trkpt>\n"
                    "<trkpt lat=\"53.83\" lon=\"-1.5\"/>\n</trkseg></trk>\n</gpx>\n");
    const std::vector<Point> points = ByUs(file);
    EXPECT_EQ(points, (std::vector<Point>{{-1.55, 53.8}, {-1.5425, 53.8125}, {-1.5, 53.83}}));
    EXPECT_EQ(points, ByTheConverter(file, "-t", "gpx"));
}

} // namespace
} // namespace tamarind::tests
