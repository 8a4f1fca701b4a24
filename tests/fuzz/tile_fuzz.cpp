// The scan of a tile on any bytes; each reference is part of the text.
#include "routes/references.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamarind;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const routes::BlueprintReference& reference : routes::ScanTile(text).references) {
        Require(!reference.provider.empty() && reference.path.ends_with("bin"));
        Require(text.find(reference.provider) != std::string_view::npos);
        Require(text.find(reference.product) != std::string_view::npos);
        Require(reference.path.find('\n') == std::string::npos);
    }
    for (const std::string& entry : routes::ScanStock(text))
        Require(entry.find('\\') != std::string::npos);
    return 0;
}
