// The preview of any text: a picture of the stated size, or a reason; never more pixels than the text can hold.
#include "convert/hex.h"
#include "convert/texture_picture.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind::convert;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// What the fuzzer need not find out: the frame of a texture. The first byte chooses format and level, the next two
/// the size; the rest is the blob.
std::string Framed(const std::uint8_t* data, std::size_t size) {
    static constexpr const char* kFormats[] = {"HC_IMAGE_FORMAT_COMPRESSED", "HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA",
                                               "HC_IMAGE_FORMAT_COL888", "HC_IMAGE_FORMAT_COLA8888"};
    std::string xml = "<t><Width>" + std::to_string(data[1] % 40) + "</Width><Height>" + std::to_string(data[2]) +
                      "</Height><Format>" + kFormats[data[0] % 4] + "</Format>";
    for (int blob = 0; blob < 2; ++blob) {
        xml += "<d:blob d:size=\"1\">";
        if (data[0] / 4 % 2 == 0) {
            xml.append(reinterpret_cast<const char*>(data) + 3, size - 3);
        } else {
            AppendHexLines(xml, {reinterpret_cast<const char*>(data) + 3, size - 3});
        }
        xml += "</d:blob>";
    }
    return xml;
}

void Check(const std::string& xml, std::size_t level) {
    const DecodedTexture decoded = DecodeTexture(xml, level);
    Require(decoded.picture.has_value() == decoded.problem.empty());
    if (!decoded.picture) {
        return;
    }
    const Picture& picture = *decoded.picture;
    Require(picture.width >= 1 && picture.height >= 1);
    const std::size_t pixels = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    Require(picture.rgba.size() == pixels * 4);
    // At best eight bytes, so sixteen digits, for sixteen pixels.
    Require(pixels <= xml.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Check(std::string(reinterpret_cast<const char*>(data), size), 0);
    if (size >= 3) {
        Check(Framed(data, size), data[0] / 8 % 3);
    }
    return 0;
}
