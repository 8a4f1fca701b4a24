// The reader of a picture's companion on any bytes; what it accepts comes back the same after writing and reading.
#include "convert/companion.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind::convert;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// A quote inside an unquoted path, or a line break or blank at its ends, has no form in the file.
bool HasForm(const Companion& companion) { return companion.original.find('"') == std::string::npos; }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto parsed = ParseCompanion(bytes);
    if (const auto* const fault = std::get_if<CompanionFault>(&parsed)) {
        const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 2;
        Require(fault->line >= 1 && fault->line <= lines && !fault->expected.empty());
        return 0;
    }
    const auto& companion = std::get<Companion>(parsed);
    Require(companion.pieces.size() == companion.sizes.size() + 1);
    if (!HasForm(companion)) {
        return 0;
    }
    const std::vector<std::string_view> pieces(companion.pieces.begin(), companion.pieces.end());
    const auto again = ParseCompanion(FormatCompanion(pieces, companion.sizes, companion.original));
    Require(std::holds_alternative<Companion>(again));
    const auto& same = std::get<Companion>(again);
    Require(same.pieces == companion.pieces && same.sizes == companion.sizes && same.original == companion.original);
    return 0;
}
