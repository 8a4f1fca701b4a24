#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The binary form of the sample's game files. It is of our own invention: enough to be clearly binary, to hold every
/// byte of the XML, and to show when a file was cut short or changed.
///
/// | offset | bytes | content                                            |
/// |--------|-------|----------------------------------------------------|
/// | 0      | 4     | "TSRZ"                                             |
/// | 4      | 4     | version, 1                                         |
/// | 8      | 8     | length of the XML in bytes                         |
/// | 16     | 4     | CRC-32 of the XML                                  |
/// | 20     | n     | the XML, every byte combined with a mask by "xor"  |
///
/// Numbers are little-endian. The mask of the byte at position i (from 0) is the low byte of 31 * i + 167.
namespace tamarind::samples {

/// The CRC-32 of zip and png files.
[[nodiscard]] std::uint32_t Crc32(std::string_view bytes);

[[nodiscard]] std::string EncodeBinary(std::string_view xml);

/// Whether the bytes begin as a file of this format does.
[[nodiscard]] bool IsBinary(std::string_view bytes);

/// The XML in a binary file; nothing when the file is cut short, too long, changed, or of another version.
[[nodiscard]] std::optional<std::string> DecodeBinary(std::string_view bytes);

} // namespace tamarind::samples
