#include "serz/binary_format.h"

#include <array>
#include <cstddef>

namespace tamarind::samples {
namespace {

constexpr std::string_view kMagic = "TSRZ";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kVersionOffset = 4;
constexpr std::size_t kLengthOffset = 8;
constexpr std::size_t kChecksumOffset = 16;
constexpr std::size_t kHeaderSize = 20;

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t index = 0; index < table.size(); ++index) {
        std::uint32_t value = index;
        for (int bit = 0; bit < 8; ++bit) {
            value = (value & 1U) != 0 ? (value >> 1U) ^ 0xEDB88320U : value >> 1U;
        }
        table[index] = value;
    }
    return table;
}

constexpr std::array<std::uint32_t, 256> kCrcTable = MakeCrcTable();

void AppendNumber(std::string& bytes, std::uint64_t number, int count) {
    for (int index = 0; index < count; ++index) {
        bytes += static_cast<char>(number >> (8 * index) & 0xFFU);
    }
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t offset, std::size_t count) {
    std::uint64_t number = 0;
    for (std::size_t index = 0; index < count; ++index) {
        number |= std::uint64_t{static_cast<unsigned char>(bytes[offset + index])} << (8 * index);
    }
    return number;
}

/// Masks and unmasks alike.
void AppendMasked(std::string& target, std::string_view bytes) {
    unsigned mask = 167;
    for (const char byte : bytes) {
        target += static_cast<char>(static_cast<unsigned char>(byte) ^ (mask & 0xFFU));
        mask += 31;
    }
}

} // namespace

std::uint32_t Crc32(std::string_view bytes) {
    std::uint32_t value = 0xFFFFFFFFU;
    for (const char byte : bytes) {
        value = kCrcTable[(value ^ static_cast<unsigned char>(byte)) & 0xFFU] ^ (value >> 8U);
    }
    return ~value;
}

std::string EncodeBinary(std::string_view xml) {
    std::string bytes;
    bytes.reserve(kHeaderSize + xml.size());
    bytes += kMagic;
    AppendNumber(bytes, kVersion, 4);
    AppendNumber(bytes, xml.size(), 8);
    AppendNumber(bytes, Crc32(xml), 4);
    AppendMasked(bytes, xml);
    return bytes;
}

bool IsBinary(std::string_view bytes) { return bytes.starts_with(kMagic); }

std::optional<std::string> DecodeBinary(std::string_view bytes) {
    if (!IsBinary(bytes) || bytes.size() < kHeaderSize || NumberAt(bytes, kVersionOffset, 4) != kVersion ||
        NumberAt(bytes, kLengthOffset, 8) != bytes.size() - kHeaderSize) {
        return std::nullopt;
    }
    std::string xml;
    xml.reserve(bytes.size() - kHeaderSize);
    AppendMasked(xml, bytes.substr(kHeaderSize));
    if (Crc32(xml) != NumberAt(bytes, kChecksumOffset, 4)) {
        return std::nullopt;
    }
    return xml;
}

} // namespace tamarind::samples
