// The reader of .kml files on any bytes, and the picture of what it finds.
#include "markers/marker_readers.h"
#include "markers_fuzz.h"
#include "text/code_page.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamarind;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    constexpr bool kMayHoldLineEnds = true;
    fuzz::CheckReader([bytes] { return markers::ReadKml(text::FromCodePage(std::string(bytes))); }, kMayHoldLineEnds);
    return 0;
}
