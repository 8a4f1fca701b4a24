// The consists of any bytes: no more than can be listed, and a new driver is the one that the list tells of.
#include "authoring/consists.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const int chosen = static_cast<int>(data[0] % 8) - 1;
    try {
        const auto consists = authoring::ScanConsists(text);
        Require(consists.size() <= authoring::kMostConsists);
        for (const authoring::Consist& consist : consists) {
            Require(consist.vehicles.size() <= authoring::kMostConsists);
            Require(!authoring::VehicleLines(consist).empty());
        }
        const auto driven = authoring::DrivenConsist(consists, chosen);
        Require(!driven || (*driven < consists.size() && consists[*driven].hasDriver));
        const std::string changed = authoring::SetDriver(text, chosen);
        Require(authoring::SetDriver(changed, chosen) == changed);
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::InvalidProcedureCall);
    }
    return 0;
}
