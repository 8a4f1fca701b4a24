// The search for a texture's parts on any text: every part lies inside the text, and the pieces with the hex text
// between them are the text again.
#include "convert/texture_xml.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void ReadNumbers(const convert::Blob& blob) {
    try {
        Require(convert::BlobSize(blob) >= 0);
        Require(convert::ReadDimension(blob.size) <= 32767);
    } catch (const text::RuntimeError& error) {
        const auto code = error.Code();
        Require(code == text::ErrorNumber::Overflow || code == text::ErrorNumber::SubscriptOutOfRange ||
                code == text::ErrorNumber::TypeMismatch);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view xml(reinterpret_cast<const char*>(data), size);
    const convert::Blobs found = convert::FindBlobs(xml);
    Require(found.blobs.size() <= convert::kMostBlobs + 1);
    Require(found.pieces.size() == (found.blobs.empty() ? 0 : found.blobs.size() + 1));
    std::string joined;
    for (std::size_t i = 0; i < found.pieces.size(); ++i) {
        joined += found.pieces[i];
        if (i < found.blobs.size()) {
            joined += found.blobs[i].hex;
            ReadNumbers(found.blobs[i]);
        }
    }
    Require(found.blobs.empty() || joined == xml);
    const auto format = convert::FormatText(xml);
    Require(!format || xml.find(*format) != std::string_view::npos);
    static_cast<void>(convert::NumberText(xml, "<Width"));
    static_cast<void>(convert::IsTexture(xml));
    return 0;
}
