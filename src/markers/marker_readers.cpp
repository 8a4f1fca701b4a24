#include "markers/marker_readers.h"

#include "markers/scan.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tamarind::markers {
namespace {

using text::ErrorNumber;
using text::FoldedKey;
using text::RuntimeError;

constexpr std::size_t kNone = std::string_view::npos;

constexpr FoldedKey kLongitudeTag("<longitude>");
constexpr FoldedKey kPlacemark("<Placemark>");
constexpr FoldedKey kName("name>");
constexpr FoldedKey kCoordinates("<coordinates>");
constexpr FoldedKey kCoordinatesEnd("</coor");
constexpr FoldedKey kZeroAltitude(",0 ");
constexpr FoldedKey kTrackSegment("<trkseg>");
constexpr FoldedKey kTrackPoint("<trkpt");
constexpr FoldedKey kLatitude("lat=");
constexpr FoldedKey kLongitude("lon=");
constexpr FoldedKey kMarker("Marker (");

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == kNone) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

/// Why the list ends where it does; empty where nothing more was begun.
std::string RemarkOnLost(const Scan& scan, const ListWriter& list, const FoldedKey& beginning) {
    if (!scan.IsLost() || scan.Missing() == beginning.Text()) return {};
    return Quoted(scan.Missing()) + " is missing for marker " + std::to_string(list.Count() + 1) +
           ": the list ends before it.";
}

MarkerList ReadPlacemarks(std::string_view text) {
    ListWriter list(text.size());
    Scan scan(text);
    std::string name;
    while (scan.To(kPlacemark)) {
        scan.To(kName);
        scan.Skip(kName.Text().size());
        name = Trimmed(scan.TextUpTo('<'));
        std::replace(name.begin(), name.end(), ' ', '_');
        scan.To(kCoordinates);
        scan.Skip(kCoordinates.Text().size());
        const std::string_view longitude = scan.TextUpTo(',');
        scan.Skip(1);
        const std::string_view latitude = scan.TextUpTo(',');
        if (scan.IsLost()) break;
        list.Add(longitude, latitude, name);
    }
    return list.Finish(RemarkOnLost(scan, list, kPlacemark));
}

/// The points between the tags of a path, without the line break that follows the first tag.
std::string_view PathText(std::string_view text) {
    Scan begin(text);
    begin.To(kCoordinates);
    Scan end = begin;
    if (!end.To(kCoordinatesEnd)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "The path has no end: \"</coordinates>\" is missing.");
    }
    begin.Skip(kCoordinates.Text().size() + 1);
    if (begin.Offset() > end.Offset()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "The path has no points.");
    }
    return text.substr(begin.Offset(), end.Offset() - begin.Offset());
}

MarkerList ReadPath(std::string_view text) {
    const std::string_view points = PathText(text);
    ListWriter list(text.size());
    list.Expect(points.size());
    std::size_t from = 1;
    while (const std::size_t hit = text::FindNoCase(points, kZeroAltitude, from)) {
        list.AddLine(points.substr(from - 1, hit - from));
        from = hit + kZeroAltitude.Text().size();
    }
    const bool hasMore = points.find_first_not_of(" \t\r\n", from - 1) != kNone;
    return list.Finish(hasMore ? "What stands behind the last \",0 \" of the path is left out." : "");
}

/// Tells the number of a character from its offset in bytes; the offsets asked for only grow.
class CharacterCount {
public:
    explicit CharacterCount(std::string_view text) : text_(text) {}

    /// Characters in front of the offset.
    std::size_t Before(std::size_t offset) {
        for (; offset_ < offset; ++offset_)
            count_ += (static_cast<unsigned char>(text_[offset_]) & 0xC0U) != 0x80U ? 1U : 0U;
        return count_;
    }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
    std::size_t count_ = 0;
};

/// Positions in tracks are numbers of 16 bits.
void CheckPosition(const Scan& scan, CharacterCount& characters, const ListWriter& list) {
    if (scan.IsLost()) return;
    if (characters.Before(scan.Offset()) + 1 <= std::size_t{std::numeric_limits<std::int16_t>::max()}) return;
    throw RuntimeError(ErrorNumber::Overflow, "Point " + std::to_string(list.Count() + 1) +
                                                  " of the track stands beyond character 32767 of the file.");
}

/// The value of the attribute at which `scan` stands: behind the equals sign and the quote.
std::string_view AttributeValue(Scan& scan, const FoldedKey& attribute) {
    scan.Skip(attribute.Text().size() + 1);
    return scan.TextUpTo('"');
}

/// One field off the front of a line; nothing when no comma ends it.
bool TakeField(std::string_view& line, std::string_view& field) {
    const std::size_t comma = line.find(',');
    if (comma == kNone) return false;
    field = line.substr(0, comma);
    line.remove_prefix(comma + 1);
    return true;
}

void AddWaypoint(ListWriter& list, std::string_view line) {
    std::string_view dropped;
    for (int i = 0; i < 2; ++i) {
        if (!TakeField(line, dropped)) return;
    }
    line = Trimmed(line);
    std::string_view latitude;
    std::string_view longitude;
    if (TakeField(line, latitude) && TakeField(line, longitude)) list.Add(longitude, latitude);
}

/// One line off the front of a text, without its end: CR, LF or both.
std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    return line;
}

/// Every double blank becomes one, in one pass and in place.
void HalveBlanks(std::string& text) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        text[kept++] = text[i];
        if (text[i] == ' ' && i + 1 < text.size() && text[i + 1] == ' ') ++i;
    }
    text.resize(kept);
}

/// Without the last `count` characters.
std::string_view WithoutLast(std::string_view text, int count) {
    const auto isInside = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    for (; count > 0 && !text.empty(); --count) {
        while (text.size() > 1 && isInside(text.back()))
            text.remove_suffix(1);
        text.remove_suffix(1);
    }
    return text;
}

/// What stands between the brackets, from the second character on.
std::string_view InsideBrackets(std::string_view piece) {
    Scan scan(piece);
    scan.TextUpTo('(');
    if (scan.IsLost()) return {};
    scan.Skip(2);
    return Trimmed(piece.substr(scan.Offset()));
}

void AddMarker(ListWriter& list, std::string_view piece) {
    const std::string_view inside = InsideBrackets(piece);
    const std::size_t first = inside.find(' ');
    const std::size_t second = first == kNone ? kNone : inside.find(' ', first + 1);
    if (second == kNone) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "Marker " + std::to_string(list.Count() + 1) +
                                                                  " has fewer than two blanks between its brackets.");
    }
    list.Add(inside.substr(0, first), Trimmed(inside.substr(first + 1, second - first - 1)),
             Trimmed(inside.substr(second + 1)));
}

} // namespace

MarkerList ReadKml(std::string_view text) {
    if (text.empty()) return {};
    if (text::FindNoCase(text, kCoordinates) == 0) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "The file has no \"<coordinates>\".");
    }
    return text::FindNoCase(text, kLongitudeTag) == 0 ? ReadPath(text) : ReadPlacemarks(text);
}

MarkerList ReadGpx(std::string_view text) {
    if (text.empty()) return {};
    ListWriter list(text.size());
    Scan scan(text);
    if (!scan.To(kTrackSegment)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, "The file has no \"<trkseg>\".");
    }
    CharacterCount characters(text);
    while (scan.To(kTrackPoint)) {
        scan.To(kLatitude);
        CheckPosition(scan, characters, list);
        Scan value = scan;
        const std::string_view latitude = AttributeValue(value, kLatitude);
        // From "lat=" on, whatever stands in its quotes; the next point is looked for from "lon=" on.
        scan.To(kLongitude);
        CheckPosition(scan, characters, list);
        if (!value.IsLost()) value = scan;
        const std::string_view longitude = AttributeValue(value, kLongitude);
        if (value.IsLost()) {
            scan = value;
            break;
        }
        list.Add(longitude, latitude);
    }
    return list.Finish(RemarkOnLost(scan, list, kTrackPoint));
}

MarkerList ReadWpt(std::string_view text) {
    ListWriter list(text.size());
    bool hasBegun = false;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        hasBegun = hasBegun || line.find("1,1,") != kNone;
        if (hasBegun) AddWaypoint(list, line);
    }
    return list.Finish();
}

MarkerList ReadMkr(std::string text) {
    HalveBlanks(text);
    ListWriter list(text.size());
    Scan scan(text);
    while (scan.To(kMarker)) {
        constexpr int kBeforeBracket = 2;
        constexpr std::size_t kNextSearch = 5;
        Scan end = scan;
        const std::string_view piece = end.TextUpTo(')');
        if (end.IsLost()) {
            scan = end;
            break;
        }
        AddMarker(list, WithoutLast(piece, kBeforeBracket));
        scan.Skip(kNextSearch);
    }
    return list.Finish(RemarkOnLost(scan, list, kMarker));
}

} // namespace tamarind::markers
