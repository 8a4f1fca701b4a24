// The plainest program that makes a marker list: it reads, looks for the same keys, letter for letter, and writes.
//   plain_markers make places|path COUNT KML   writes an input of that many placemarks, or points of a path
//   plain_markers list KML CSV
#include "measure.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t kNone = std::string_view::npos;

std::string Read(const char* path) {
    std::FILE* const file = std::fopen(path, "rb");
    if (file == nullptr) return {};
    std::fseek(file, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(std::ftell(file)), '\0');
    std::rewind(file);
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
    std::fclose(file);
    return bytes;
}

bool Write(const char* path, std::string_view bytes) {
    std::FILE* const file = std::fopen(path, "wb");
    const bool written = file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return file != nullptr && std::fclose(file) == 0 && written;
}

std::string Coordinates(int i) {
    return std::to_string(-1.5 + i * 0.00001) + "," + std::to_string(53.8 + i % 1000 * 0.0001) + ",0";
}

std::string MakePlaces(int count) {
    std::string kml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kml>\n<Document>\n";
    for (int i = 0; i < count; ++i) {
        kml += "\t<Placemark>\n\t\t<name>Mile Post " + std::to_string(i) +
               "</name>\n\t\t<LookAt>\n\t\t\t<longitude>-1.5</longitude>\n\t\t\t<latitude>53.8</latitude>\n\t\t\t"
               "<range>1000</range>\n\t\t</LookAt>\n\t\t<styleUrl>#pin</styleUrl>\n\t\t<Point>\n\t\t\t<coordinates>" +
               Coordinates(i) + "</coordinates>\n\t\t</Point>\n\t</Placemark>\n";
    }
    return kml + "</Document>\n</kml>\n";
}

std::string MakePath(int count) {
    std::string kml = "<kml>\n<Placemark>\n<LineString>\n<coordinates>\n";
    for (int i = 0; i < count; ++i)
        kml += Coordinates(i) + " ";
    return kml + "\n</coordinates>\n</LineString>\n</Placemark>\n</kml>\n";
}

std::string ListPlaces(std::string_view kml) {
    std::string list;
    for (std::size_t at = kml.find("<Placemark>"); at != kNone; at = kml.find("<Placemark>", at)) {
        const std::size_t name = kml.find("name>", at) + 5;
        const std::size_t nameEnd = kml.find('<', name);
        const std::size_t longitude = kml.find("<coordinates>", nameEnd) + 13;
        const std::size_t comma = kml.find(',', longitude);
        at = kml.find(',', comma + 1);
        list.append(kml.substr(longitude, at - longitude)).append(",");
        for (const char c : kml.substr(name, nameEnd - name))
            list += c == ' ' ? '_' : c;
        list.append("\r\n");
    }
    return list;
}

std::string ListPath(std::string_view kml) {
    const std::size_t begin = kml.find("<coordinates>") + 14;
    const std::string_view points = kml.substr(begin, kml.find("</coor", begin) - begin);
    std::string list;
    std::size_t from = 0;
    for (std::size_t hit = points.find(",0 "); hit != kNone; hit = points.find(",0 ", from)) {
        list.append(points.substr(from, hit - from)).append("\r\n");
        from = hit + 3;
    }
    return list;
}

} // namespace

int main(int argc, char** argv) {
    const tamarind::bench::Measure measure;
    if (argc == 5 && std::strcmp(argv[1], "make") == 0) {
        const int count = std::atoi(argv[3]);
        return Write(argv[4], std::strcmp(argv[2], "path") == 0 ? MakePath(count) : MakePlaces(count)) ? 0 : 1;
    }
    if (argc != 4 || std::strcmp(argv[1], "list") != 0) {
        std::fputs("plain_markers make places|path COUNT KML | list KML CSV\n", stderr);
        return 2;
    }
    const std::string kml = Read(argv[2]);
    if (!Write(argv[3], kml.find("<longitude>") == std::string::npos ? ListPath(kml) : ListPlaces(kml))) return 1;
    measure.Print();
    return 0;
}
