#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamarind::tests {

inline constexpr const char* kDxt1 = "HC_IMAGE_FORMAT_COMPRESSED";
inline constexpr const char* kDxt3 = "HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA";
inline constexpr const char* kRgb = "HC_IMAGE_FORMAT_COL888";
inline constexpr const char* kArgb = "HC_IMAGE_FORMAT_COLA8888";

struct BlobText {
    std::string size;
    std::string hex;
};

/// A texture as the converter writes one; small, but with all that is looked for.
inline std::string TextureText(std::string_view format, std::string_view width, std::string_view height,
                               const std::vector<BlobText>& blobs) {
    std::string xml = "<cTexture d:id=\"1\">\r\n<Width d:type=\"n\">" + std::string(width) +
                      "</Width>\r\n<Height d:type=\"n\">" + std::string(height) + "</Height>\r\n<Format d:type=\"k\">" +
                      std::string(format) + "</Format>\r\n";
    for (const BlobText& blob : blobs)
        xml += "<d:blob d:size=\"" + blob.size + "\">" + blob.hex + "</d:blob>\r\n";
    return xml + "</cTexture>\r\n";
}

/// So many blobs of one byte each.
inline std::vector<BlobText> Blobs(std::size_t count) { return std::vector<BlobText>(count, {"1", "2A"}); }

} // namespace tamarind::tests
