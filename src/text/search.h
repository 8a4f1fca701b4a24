#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Searches and cuts on UTF-8 text. Positions count bytes from 1; 0 means "not found". "NoCase" variants ignore
/// letter case of the Latin, Greek and Cyrillic alphabets.
namespace tamarind::text {

/// Position of `key` in `text` at or after `start`; 0 when there is none.
/// Throws InvalidProcedureCall when `start` is 0. An empty key is found at `start`, or not past the end.
[[nodiscard]] std::size_t Find(std::string_view text, std::string_view key, std::size_t start = 1);

/// Position of the last `key` that ends at or before `end`; 0 when there is none, or when `end` is 0.
[[nodiscard]] std::size_t FindLast(std::string_view text, std::string_view key,
                                   std::size_t end = std::string_view::npos);

/// The `length` bytes from position `start`, fewer where the text ends earlier.
/// Throws InvalidProcedureCall when `start` is below 1 or `length` is negative.
[[nodiscard]] std::string Cut(std::string_view text, std::int64_t start, std::int64_t length);

/// Every `key` replaced, from left to right, replacements not searched again. An empty key replaces nothing.
[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view key, std::string_view replacement);

/// A key to be looked for without regard to letter case, prepared once for many searches. It refers to the text that it
/// is made of.
class FoldedKey {
public:
    explicit constexpr FoldedKey(std::string_view key) : key_(key) {
        constexpr std::size_t kMostSkip = 255;
        const std::size_t length = key.size();
        skips_.fill(static_cast<std::uint8_t>(length < kMostSkip ? length : kMostSkip));
        for (std::size_t i = 0; i < length; ++i) {
            const auto byte = static_cast<unsigned char>(key[i]);
            isAscii_ = isAscii_ && byte < 0x80;
            if (i + 1 == length) {
                lastSkip_ = skips_[byte];
                SetSkip(byte, 0);
            } else if (length - 1 - i < kMostSkip) {
                SetSkip(byte, static_cast<std::uint8_t>(length - 1 - i));
            }
        }
    }

    [[nodiscard]] constexpr std::string_view Text() const { return key_; }
    [[nodiscard]] constexpr bool IsAscii() const { return isAscii_; }
    /// How far the key may move on when `byte` stands under its last byte; 0 when the two are equal.
    [[nodiscard]] constexpr std::size_t Skip(char byte) const { return skips_[static_cast<unsigned char>(byte)]; }
    /// The same when they are equal but another byte is not.
    [[nodiscard]] constexpr std::size_t SkipAfterLast() const { return lastSkip_; }

private:
    constexpr void SetSkip(unsigned char byte, std::uint8_t skip) {
        skips_[byte] = skip;
        const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
        if (isLetter) skips_[byte ^ 0x20U] = skip;
    }

    std::string_view key_;
    std::array<std::uint8_t, 256> skips_{};
    std::uint8_t lastSkip_ = 0;
    bool isAscii_ = true;
};

/// Find without regard to letter case. A key of ASCII letters finds ASCII letters alone.
[[nodiscard]] std::size_t FindNoCase(std::string_view text, const FoldedKey& key, std::size_t start = 1);
[[nodiscard]] std::size_t FindNoCase(std::string_view text, std::string_view key, std::size_t start = 1);

/// The number of bytes at the front of `text` that equal the key without regard to letter case; 0 when they differ.
[[nodiscard]] std::size_t MatchLengthNoCase(std::string_view text, std::string_view key);

/// FindLast without regard to letter case.
[[nodiscard]] std::size_t FindLastNoCase(std::string_view text, std::string_view key,
                                         std::size_t end = std::string_view::npos);

/// ReplaceAll that finds the key without regard to letter case.
[[nodiscard]] std::string ReplaceAllNoCase(std::string_view text, std::string_view key, std::string_view replacement);

/// The text with every letter in lower case, one code point for one code point.
[[nodiscard]] std::string ToLower(std::string_view text);

[[nodiscard]] bool EqualNoCase(std::string_view left, std::string_view right);
[[nodiscard]] bool StartsWithNoCase(std::string_view text, std::string_view beginning);
[[nodiscard]] bool EndsWithNoCase(std::string_view text, std::string_view ending);
/// Below 0, 0 or above 0 as `left` sorts before, with or after `right`.
[[nodiscard]] int CompareNoCase(std::string_view left, std::string_view right);

} // namespace tamarind::text
