#include "authoring/consists.h"

#include "authoring/record_fields.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <iterator>

namespace tamarind::authoring {

using text::Find;

namespace {

constexpr std::string_view kConsistStart = "<cConsist";
constexpr std::string_view kConsistEnd = "</cConsist";
constexpr std::string_view kDriver = "PlayerDriver";
constexpr std::string_view kControlled = "PlayerControlled";

std::string ServiceName(std::string_view consist) {
    std::size_t position = Find(consist, "<ServiceName>");
    return position == 0 ? "Loose Consist" : ReadLocalised(consist, position);
}

std::vector<std::string> VehicleNames(std::string_view consist) {
    std::vector<std::string> names;
    std::size_t position = 1;
    while (names.size() < kMostConsists) {
        std::string name;
        GetTag(consist, position, "Name", name);
        if (position == 0) break;
        names.push_back(std::move(name));
    }
    return names;
}

/// A driver that is not whole is none: that is told when somebody is to drive.
void FindDriver(std::string_view text, Consist& consist) {
    std::size_t position = 1;
    std::string value;
    try {
        while (!consist.isPlayerDriven) {
            GetTag(text, position, kDriver, value);
            if (position == 0) return;
            consist.hasDriver = true;
            consist.isPlayerDriven = value == "1";
        }
    } catch (const text::RuntimeError&) {
        return;
    }
}

} // namespace

std::vector<Consist> ScanConsists(std::string_view scenarioText) {
    std::vector<Consist> consists;
    std::size_t start = 1;
    while (consists.size() < kMostConsists) {
        const std::size_t end = Find(scenarioText, kConsistEnd, start + (consists.empty() ? 0 : 1));
        if (end == 0) break;
        const std::string_view text = scenarioText.substr(start - 1, end - start);
        Consist consist{.name = ServiceName(text), .vehicles = VehicleNames(text)};
        FindDriver(text, consist);
        consists.push_back(std::move(consist));
        start = end;
    }
    return consists;
}

std::vector<std::string> VehicleLines(const Consist& consist) {
    std::vector<std::string> lines;
    std::copy_if(consist.vehicles.begin(), consist.vehicles.end(), std::back_inserter(lines),
                 [](const std::string& name) { return !name.empty(); });
    if (lines.empty()) lines.emplace_back("Empty Consist");
    return lines;
}

std::string SetDriver(std::string_view scenarioText, int consist) {
    std::string text = PutEveryDetail(PutEveryDetail(scenarioText, kDriver, "0"), kControlled, "0");
    std::size_t position = 1;
    for (int passed = 0; passed <= consist; ++passed) {
        position = Find(text, kConsistStart, passed == 0 ? position : position + 1);
        if (position == 0) break;
    }
    PutDetail(text, position, kDriver, "1");
    return text;
}

std::optional<std::size_t> DrivenConsist(const std::vector<Consist>& consists, int chosen) {
    const auto first = consists.begin() + std::clamp<std::ptrdiff_t>(chosen, 0, std::ssize(consists));
    const auto found = std::find_if(first, consists.end(), [](const Consist& consist) { return consist.hasDriver; });
    if (found == consists.end()) return std::nullopt;
    return static_cast<std::size_t>(found - consists.begin());
}

} // namespace tamarind::authoring
