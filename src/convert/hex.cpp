#include "convert/hex.h"

#include "text/code_page.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

namespace tamarind::convert {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr int kNoDigit = -1;
constexpr int kLeftOut = -2; ///< blank, carriage return, line feed
constexpr int kNotAscii = -3;

constexpr std::size_t kGroup = 8; ///< bytes
constexpr std::size_t kGroupsOfLine = 4;
constexpr std::size_t kLine = kGroup * kGroupsOfLine;

/// What each byte of UTF-8 text means.
constexpr std::array<std::int8_t, 256> MakeMeanings() {
    std::array<std::int8_t, 256> meanings{};
    for (std::size_t c = 0; c < meanings.size(); ++c) {
        meanings[c] = c < 0x80 ? kNoDigit : kNotAscii;
    }
    for (std::size_t value = 0; value < kDigits.size(); ++value) {
        const auto digit = static_cast<unsigned char>(kDigits[value]);
        meanings[digit] = static_cast<std::int8_t>(value);
        meanings[digit | 0x20U] = static_cast<std::int8_t>(value); // small letters; digits have the bit already
    }
    for (const char c : {' ', '\r', '\n'})
        meanings[static_cast<unsigned char>(c)] = kLeftOut;
    return meanings;
}
constexpr std::array<std::int8_t, 256> kMeanings = MakeMeanings();

int MeaningOf(char c) { return kMeanings[static_cast<unsigned char>(c)]; }

/// Every byte as its two digits.
constexpr std::array<char, 512> MakePairs() {
    std::array<char, 512> pairs{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        pairs[2 * byte] = kDigits[byte / 16];
        pairs[2 * byte + 1] = kDigits[byte % 16];
    }
    return pairs;
}
constexpr std::array<char, 512> kPairs = MakePairs();

constexpr std::uint64_t Repeat(std::uint64_t byte) { return byte * 0x0101010101010101U; }

/// Eight characters in a number, the first one lowest: whether all of them are digits.
bool AreDigits(std::uint64_t characters) {
    // With the high bits out of the way, adding carries into a byte's high bit exactly from a limit on.
    const std::uint64_t low = characters & Repeat(0x7F);
    const std::uint64_t small = low | Repeat(0x20);
    const std::uint64_t digits = (low + Repeat(0x80 - '0')) & ~(low + Repeat(0x7F - '9'));
    const std::uint64_t letters = (small + Repeat(0x80 - 'a')) & ~(small + Repeat(0x7F - 'f'));
    return ((digits | letters) & ~characters & Repeat(0x80)) == Repeat(0x80);
}

/// Eight digits as four bytes, the first one lowest.
std::uint32_t BytesOf(std::uint64_t digits) {
    const std::uint64_t values = (digits & Repeat(0x0F)) + (digits >> 6 & Repeat(0x01)) * 9; // bit 6: a letter
    std::uint64_t bytes = (values << 4 | values >> 8) & 0x00FF00FF00FF00FFU;
    bytes = (bytes | bytes >> 8) & 0x0000FFFF0000FFFFU;
    return static_cast<std::uint32_t>(bytes | bytes >> 16);
}

/// Decodes clean digits off the front of `text`, sixteen at a time, for as long as there are sixteen and room for them.
/// Returns the number of bytes.
std::size_t TakeClean(std::string_view& text, std::span<std::uint8_t> bytes) {
    constexpr std::size_t kDigitsAtOnce = 2 * kGroup;
    if constexpr (std::endian::native != std::endian::little) return 0;
    std::size_t count = 0;
    const char* from = text.data();
    const char* const end = from + text.size();
    while (static_cast<std::size_t>(end - from) >= kDigitsAtOnce && bytes.size() - count >= kGroup) {
        std::array<std::uint64_t, 2> characters{};
        std::memcpy(characters.data(), from, kDigitsAtOnce);
        if (!AreDigits(characters[0]) || !AreDigits(characters[1])) break;
        const std::array<std::uint32_t, 2> decoded{BytesOf(characters[0]), BytesOf(characters[1])};
        std::memcpy(bytes.data() + count, decoded.data(), kGroup);
        count += kGroup;
        from += kDigitsAtOnce;
        // What mostly stands between two groups.
        if (from != end && *from == ' ') ++from;
    }
    text.remove_prefix(static_cast<std::size_t>(from - text.data()));
    return count;
}

} // namespace

std::int32_t Hex2Dec(std::string_view text) {
    std::vector<int> values;
    while (!text.empty()) {
        const text::CodePoint next = text::TakeCodePoint(text);
        const int meaning = next.value < 0x80 ? MeaningOf(static_cast<char>(next.value)) : kNoDigit;
        values.push_back(std::max(meaning, kNoDigit));
    }
    double number = 0;
    double weight = 1;
    for (auto value = values.rbegin(); value != values.rend(); ++value, weight *= 16) {
        number += *value * weight;
        if (number < std::numeric_limits<std::int32_t>::min() || number > std::numeric_limits<std::int32_t>::max()) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
    }
    return static_cast<std::int32_t>(number);
}

std::string Dec2Hex(std::int32_t number) {
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(number); rest != 0; rest /= 16)
        digits.insert(digits.begin(), kDigits[rest % 16]);
    return digits;
}

std::size_t DecodeHex(std::string_view text, std::span<std::uint8_t> bytes) {
    std::size_t count = 0;
    std::optional<int> first;
    while (!text.empty()) {
        if (!first) count += TakeClean(text, bytes.subspan(count));
        if (text.empty()) break;
        int value = MeaningOf(text.front());
        if (value == kNotAscii) {
            static_cast<void>(text::TakeCodePoint(text)); // one character, however many bytes it has
            value = kNoDigit;
        } else {
            text.remove_prefix(1);
        }
        if (value == kLeftOut) continue;
        if (!first) {
            first = value;
            continue;
        }
        if (count == bytes.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        bytes[count++] = static_cast<std::uint8_t>(static_cast<unsigned>(*first * 16 + value));
        first.reset();
    }
    return count;
}

void AppendHexLines(std::string& text, std::string_view bytes) {
    std::array<char, 2 * kLine + kGroupsOfLine> line{}; // its blanks, and the line feed
    while (!bytes.empty()) {
        const std::string_view ofLine = bytes.substr(0, kLine);
        std::size_t length = 0;
        for (std::size_t i = 0; i < ofLine.size(); ++i) {
            if (i % kGroup == 0 && i > 0) line[length++] = ' ';
            std::memcpy(&line[length], &kPairs[std::size_t{2} * static_cast<unsigned char>(ofLine[i])], 2);
            length += 2;
        }
        line[length++] = '\n';
        text.append(line.data(), length);
        bytes.remove_prefix(ofLine.size());
    }
}

std::size_t HexLinesLength(std::size_t bytes) {
    const auto roundUp = [bytes](std::size_t size) { return bytes / size + (bytes % size == 0 ? 0 : 1); };
    // Each group is followed by one character: a blank, or the line feed.
    return 2 * bytes + roundUp(kGroup);
}

} // namespace tamarind::convert
