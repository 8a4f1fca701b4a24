// The scans of blueprints and shapes on any bytes; a name comes from one line and has lost its bracket.
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
    for (const std::string& name : routes::ScanGeometryIds(text))
        Require(name.find_first_of("\n<") == std::string::npos);
    for (const std::string& texture : routes::ScanShape(text).textures) {
        Require(texture.find_first_of("\n<") == std::string::npos);
        const std::string file = routes::TextureFile("G", "G\\Assets\\P\\Q\\s.GeoPcDx", texture);
        Require(file.ends_with(".TgPcDx"));
    }
    return 0;
}
