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
        meanings[c] = static_cast<std::int8_t>(c < 0x80 ? kNoDigit : kNotAscii);
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

// Sixteen digits are worked on at once, in the compiler's own vectors: every processor that we build for has registers
// of that size, and on any other the compiler takes them apart. A group's digits lie in a vector as in memory.
using Characters = signed char __attribute__((vector_size(16)));
using Units = std::uint16_t __attribute__((vector_size(16)));
using GroupBytes = std::uint8_t __attribute__((vector_size(8)));
constexpr std::size_t kGroupDigits = 2 * kGroup;
constexpr bool kFirstByteIsLowest = std::endian::native == std::endian::little;

template <class To, class From> To As(const From& from) { return std::bit_cast<To>(from); }

/// Turns sixteen digits into eight bytes; false, and nothing done, when one of them is no digit.
bool DecodeGroup(const char* digits, std::uint8_t* bytes) {
    Characters characters;
    std::memcpy(&characters, digits, sizeof characters);
    const Characters small = characters | 0x20;
    const Characters isDigit = (characters >= '0') & (characters <= '9');
    const Characters isLetter = (small >= 'a') & (small <= 'f');
    const auto isEither = As<std::array<std::uint64_t, 2>>(isDigit | isLetter);
    if ((isEither[0] & isEither[1]) != ~std::uint64_t{0}) return false;
    const auto values = As<Units>((characters & 0x0F) + (isLetter & 9));
    const auto group = __builtin_convertvector((values << 4 | values >> 8) & 0xFF, GroupBytes);
    std::memcpy(bytes, &group, sizeof group);
    return true;
}

/// Turns eight bytes into sixteen digits.
void EncodeGroup(const char* bytes, char* digits) {
    GroupBytes group;
    std::memcpy(&group, bytes, sizeof group);
    const auto units = __builtin_convertvector(group, Units);
    const auto values = As<Characters>(units >> 4 | (units & 0x0F) << 8);
    const Characters characters = values + '0' + ((values > 9) & ('A' - '9' - 1));
    std::memcpy(digits, &characters, sizeof characters);
}

/// Decodes clean digits off the front of `text`, sixteen at a time, for as long as there are sixteen and room for them.
/// Returns the number of bytes.
std::size_t TakeClean(std::string_view& text, std::span<std::uint8_t> bytes) {
    if constexpr (!kFirstByteIsLowest) return 0;
    std::size_t count = 0;
    const char* from = text.data();
    const char* const end = from + text.size();
    while (static_cast<std::size_t>(end - from) >= kGroupDigits && bytes.size() - count >= kGroup &&
           DecodeGroup(from, bytes.data() + count)) {
        count += kGroup;
        from += kGroupDigits;
        // What mostly stands between two groups.
        if (from != end && *from == ' ') ++from;
    }
    text.remove_prefix(static_cast<std::size_t>(from - text.data()));
    return count;
}

/// Writes the digits of at most one group; returns where they end.
char* AppendDigits(char* to, std::string_view bytes) {
    if (kFirstByteIsLowest && bytes.size() == kGroup) {
        EncodeGroup(bytes.data(), to);
        return to + kGroupDigits;
    }
    for (const char c : bytes) {
        *to++ = kDigits[static_cast<unsigned char>(c) / 16];
        *to++ = kDigits[static_cast<unsigned char>(c) % 16];
    }
    return to;
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
    std::array<char, 2 * kLine + kGroupsOfLine> line{}; // with its blanks, and the line feed
    while (!bytes.empty()) {
        std::string_view ofLine = bytes.substr(0, kLine);
        bytes.remove_prefix(ofLine.size());
        char* to = line.data();
        while (!ofLine.empty()) {
            to = AppendDigits(to, ofLine.substr(0, kGroup));
            ofLine.remove_prefix(std::min(kGroup, ofLine.size()));
            *to++ = ofLine.empty() ? '\n' : ' ';
        }
        text.append(line.data(), static_cast<std::size_t>(to - line.data()));
    }
}

std::size_t HexLinesLength(std::size_t bytes) {
    const auto roundUp = [bytes](std::size_t size) { return bytes / size + (bytes % size == 0 ? 0 : 1); };
    // Each group is followed by one character: a blank, or the line feed.
    return 2 * bytes + roundUp(kGroup);
}

} // namespace tamarind::convert
