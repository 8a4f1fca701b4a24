#include "text/code_page.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tamarind::text {
namespace {

// Windows-1252 differs from Latin-1 in these 32 places only.
constexpr std::array<char16_t, 32> kHighControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr int kNoByte = -1;

int ToByte(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) return static_cast<int>(codePoint);
    const auto* const found = std::find(kHighControls.begin(), kHighControls.end(), codePoint);
    return found == kHighControls.end() ? kNoByte : static_cast<int>(0x80 + (found - kHighControls.begin()));
}

bool IsAsciiByte(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// Length of the part before the first byte that is not ASCII; eight bytes at a time, for texts of many megabytes.
std::size_t AsciiPrefix(std::string_view text) {
    constexpr std::uint64_t kHighBits = 0x8080808080808080U;
    std::size_t length = 0;
    for (std::uint64_t bytes = 0; length + sizeof bytes <= text.size(); length += sizeof bytes) {
        std::memcpy(&bytes, text.data() + length, sizeof bytes);
        if ((bytes & kHighBits) != 0) break;
    }
    while (length < text.size() && IsAsciiByte(text[length]))
        ++length;
    return length;
}

/// Length of the sequence that a first byte announces; 0 for a byte that cannot be first.
std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

bool IsShortest(char32_t value, std::size_t length) {
    return length < 3 || (length == 3 ? value >= 0x800 : value >= 0x10000);
}

bool IsSurrogate(char32_t value) { return value >= 0xD800 && value <= 0xDFFF; }

} // namespace

bool IsAscii(std::string_view text) { return AsciiPrefix(text) == text.size(); }

char32_t CodePageToUnicode(std::uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80U] : char32_t{byte};
}

void AppendUtf8(std::string& text, char32_t codePoint) {
    const auto add = [&text](char32_t bits) { text += static_cast<char>(static_cast<unsigned char>(bits)); };
    if (codePoint < 0x80) {
        add(codePoint);
    } else if (codePoint < 0x800) {
        add(0xC0 | codePoint >> 6);
        add(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        add(0xE0 | codePoint >> 12);
        add(0x80 | (codePoint >> 6 & 0x3F));
        add(0x80 | (codePoint & 0x3F));
    } else {
        add(0xF0 | codePoint >> 18);
        add(0x80 | (codePoint >> 12 & 0x3F));
        add(0x80 | (codePoint >> 6 & 0x3F));
        add(0x80 | (codePoint & 0x3F));
    }
}

CodePoint TakeCodePoint(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = SequenceLength(first);
    const CodePoint invalid{first, false};
    if (length == 1) {
        text.remove_prefix(1);
        return {first, true};
    }
    char32_t value = first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        if ((next & 0xC0U) != 0x80U) {
            text.remove_prefix(1);
            return invalid;
        }
        value = value << 6 | (next & 0x3FU);
    }
    if (length == 0 || !IsShortest(value, length) || IsSurrogate(value) || value > 0x10FFFF) {
        text.remove_prefix(1);
        return invalid;
    }
    text.remove_prefix(length);
    return {value, true};
}

std::string FromCodePage(std::string bytes) {
    const std::size_t plain = AsciiPrefix(bytes);
    if (plain == bytes.size()) return bytes;
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    text.append(bytes, 0, plain);
    for (std::size_t i = plain; i < bytes.size(); ++i) {
        if (IsAsciiByte(bytes[i])) {
            text += bytes[i];
        } else {
            AppendUtf8(text, CodePageToUnicode(static_cast<std::uint8_t>(bytes[i])));
        }
    }
    return text;
}

std::string ToCodePage(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::size_t plain = AsciiPrefix(text);
        bytes.append(text.substr(0, plain));
        text.remove_prefix(plain);
        if (text.empty()) break;
        const CodePoint next = TakeCodePoint(text);
        const int byte = next.valid ? ToByte(next.value) : kNoByte;
        bytes += byte == kNoByte ? '?' : static_cast<char>(static_cast<unsigned char>(byte));
    }
    return bytes;
}

bool FitsCodePage(std::string_view text) {
    while (!text.empty()) {
        text.remove_prefix(AsciiPrefix(text));
        if (text.empty()) return true;
        const CodePoint next = TakeCodePoint(text);
        if (!next.valid || ToByte(next.value) == kNoByte) return false;
    }
    return true;
}

std::string FromUtf16(std::string_view bytes) {
    const auto byteAt = [&bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const bool bigEndian = bytes.size() >= 2 && byteAt(0) == 0xFE && byteAt(1) == 0xFF;
    const bool marked = bigEndian || (bytes.size() >= 2 && byteAt(0) == 0xFF && byteAt(1) == 0xFE);
    if (marked) bytes.remove_prefix(2);
    const auto unitAt = [&](std::size_t i) {
        const auto low = byteAt(2 * i + (bigEndian ? 1 : 0));
        const auto high = byteAt(2 * i + (bigEndian ? 0 : 1));
        return static_cast<char32_t>(high << 8 | low);
    };
    const std::size_t units = bytes.size() / 2;
    std::string text;
    text.reserve(units);
    for (std::size_t i = 0; i < units; ++i) {
        char32_t value = unitAt(i);
        if (IsSurrogate(value)) {
            const char32_t low = i + 1 < units ? unitAt(i + 1) : 0;
            const bool pair = value < 0xDC00 && low >= 0xDC00 && low <= 0xDFFF;
            value = pair ? 0x10000 + ((value - 0xD800) << 10) + (low - 0xDC00) : 0xFFFD;
            if (pair) ++i;
        }
        AppendUtf8(text, value);
    }
    return text;
}

} // namespace tamarind::text
