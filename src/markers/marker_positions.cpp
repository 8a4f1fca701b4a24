#include "markers/marker_positions.h"

#include "text/code_page.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>

namespace tamarind::markers {
namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr double kMostLongitude = 360;
constexpr double kMostLatitude = 90;

std::optional<double> Degrees(std::string_view field) {
    constexpr std::string_view kWhite = " \t\r\n";
    const std::size_t first = field.find_first_not_of(kWhite);
    if (first == kNone) return std::nullopt;
    field = field.substr(first, field.find_last_not_of(kWhite) - first + 1);
    if (field.starts_with('+') && !field.starts_with("+-")) field.remove_prefix(1);
    double number = 0;
    const char* const end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, number);
    if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

void AddLine(Positions& positions, std::string_view line) {
    const std::size_t first = line.find(',');
    const std::size_t second = first == kNone ? kNone : line.find(',', first + 1);
    const auto longitude = Degrees(line.substr(0, first));
    const auto latitude =
        first == kNone ? std::nullopt : Degrees(line.substr(first + 1, second == kNone ? kNone : second - first - 1));
    if (!longitude || !latitude) {
        ++positions.withoutNumbers;
    } else if (std::abs(*longitude) > kMostLongitude || std::abs(*latitude) > kMostLatitude) {
        ++positions.outsideTheEarth;
    } else {
        positions.known.push_back(
            {*longitude, *latitude, second == kNone ? std::string_view() : line.substr(second + 1)});
    }
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!text::TakeCodePoint(bytes).valid) return false;
    }
    return true;
}

} // namespace

Positions PositionsOf(const MarkerList& list) {
    Positions positions;
    positions.known.reserve(list.count);
    std::string_view rest = list.text;
    while (!rest.empty()) {
        const std::size_t end = rest.find("\r\n");
        AddLine(positions, rest.substr(0, end));
        rest.remove_prefix(end == kNone ? rest.size() : end + 2);
    }
    return positions;
}

std::string NameForPeople(std::string_view name) {
    if (text::IsAscii(name) || !text::FitsCodePage(name)) return std::string(name);
    std::string bytes = text::ToCodePage(name);
    return IsUtf8(bytes) ? bytes : std::string(name);
}

} // namespace tamarind::markers
