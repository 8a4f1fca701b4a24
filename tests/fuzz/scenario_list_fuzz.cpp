// "Scenario.yyy" of any bytes: no item holds what ends an item outside of quotes, and plain items come back as written.
#include "install/package_reader.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamarind::install;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const ScenarioList list = ParseScenarioList(bytes);
    const bool hasQuotes = bytes.find('"') != std::string_view::npos;
    std::string again = list.routeFolder + "\r\n";
    for (const std::string& id : list.ids) {
        if (!hasQuotes && id.find_first_of(",\r\n") != std::string::npos) std::abort();
        again += id + "\r\n";
    }
    if (hasQuotes) return 0;
    const ScenarioList same = ParseScenarioList(again);
    if (same.routeFolder != list.routeFolder || same.ids != list.ids) std::abort();
    return 0;
}
