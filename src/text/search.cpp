#include "text/search.h"

#include "text/code_page.h"
#include "text/runtime_error.h"

#include <algorithm>

namespace tamarind::text {
namespace {

char32_t LowerOfAccentedGreek(char32_t c) {
    if (c == 0x386) return 0x3AC;
    if (c >= 0x388 && c <= 0x38A) return c + 37;
    if (c == 0x38C) return 0x3CC;
    if (c >= 0x38E) return c + 63;
    return c;
}

/// Lower case of one code point in the Latin, Greek and Cyrillic alphabets; any other stays as it is.
char32_t LowerOf(char32_t c) {
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c <= 0xDE) return c >= 0xC0 && c != 0xD7 ? c + 32 : c;
    if (c == 0x178) return 0xFF;
    if (c == 0x130) return 'i';
    const bool evenCapitals = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177) || (c >= 0x460 && c <= 0x481) ||
                              (c >= 0x48A && c <= 0x4BF) || (c >= 0x4D0 && c <= 0x52F) ||
                              (c >= 0x1E00 && c <= 0x1E95) || (c >= 0x1EA0 && c <= 0x1EFF);
    if (evenCapitals) return c % 2 == 0 ? c + 1 : c;
    const bool oddCapitals = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    if (oddCapitals) return c % 2 == 1 ? c + 1 : c;
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2) return c + 32;
    if (c >= 0x386 && c <= 0x38F) return LowerOfAccentedGreek(c);
    if (c == 0x4C0) return 0x4CF;
    if (c >= 0x4C1 && c <= 0x4CE) return c % 2 == 1 ? c + 1 : c;
    if (c >= 0x410 && c <= 0x42F) return c + 32;
    if (c >= 0x400 && c <= 0x40F) return c + 80;
    return c;
}

/// Takes the next letter for comparing. A byte that is no UTF-8 sorts behind all letters and equals itself alone.
char32_t TakeLower(std::string_view& text) {
    constexpr char32_t kBeyondUnicode = 0x110000;
    const CodePoint next = TakeCodePoint(text);
    return next.valid ? LowerOf(next.value) : kBeyondUnicode + next.value;
}

constexpr std::size_t kNone = std::string_view::npos;

constexpr std::array<char, 256> kAsciiLower = [] {
    std::array<char, 256> lower{};
    for (std::size_t c = 0; c < lower.size(); ++c) {
        lower[c] = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    }
    return lower;
}();

char AsciiLower(char c) { return kAsciiLower[static_cast<unsigned char>(c)]; }

/// Whether the ASCII key stands at the front of `text`, which is not shorter.
bool StandsAt(const char* text, std::string_view key) {
    for (std::size_t i = 0; i < key.size(); ++i) {
        if (AsciiLower(text[i]) != AsciiLower(key[i])) return false;
    }
    return true;
}

/// Moves over the text by the skips of the key, so that most bytes are not looked at.
std::size_t FindAscii(std::string_view text, const FoldedKey& key, std::size_t from) {
    const std::size_t last = key.Text().size() - 1;
    std::size_t at = from + last;
    while (at < text.size()) {
        const std::size_t skip = key.Skip(text[at]);
        if (skip != 0) {
            at += skip;
        } else if (StandsAt(text.data() + (at - last), key.Text())) {
            return at - last;
        } else {
            at += key.SkipAfterLast();
        }
    }
    return kNone;
}

std::size_t FindLetters(std::string_view text, std::string_view key, std::size_t from) {
    std::string_view rest = text.substr(from);
    while (!rest.empty()) {
        if (MatchLengthNoCase(rest, key) > 0) return text.size() - rest.size();
        static_cast<void>(TakeCodePoint(rest));
    }
    return kNone;
}

} // namespace

std::size_t MatchLengthNoCase(std::string_view text, std::string_view key) {
    const std::size_t size = text.size();
    while (!key.empty()) {
        if (text.empty() || TakeLower(text) != TakeLower(key)) return 0;
    }
    return size - text.size();
}

std::size_t Find(std::string_view text, std::string_view key, std::size_t start) {
    if (start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const std::size_t found = start > text.size() ? kNone : text.find(key, start - 1);
    return found == kNone ? 0 : found + 1;
}

std::size_t FindLast(std::string_view text, std::string_view key, std::size_t end) {
    const std::size_t found = text.substr(0, std::min(end, text.size())).rfind(key);
    return found == kNone || end == 0 ? 0 : found + 1;
}

std::string Cut(std::string_view text, std::int64_t start, std::int64_t length) {
    if (start < 1 || length < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    const auto from = static_cast<std::size_t>(start - 1);
    return from >= text.size() ? std::string() : std::string(text.substr(from, static_cast<std::size_t>(length)));
}

std::string ReplaceAll(std::string_view text, std::string_view key, std::string_view replacement) {
    std::string result;
    if (key.empty()) return std::string(text);
    std::size_t from = 0;
    for (std::size_t hit = text.find(key); hit != kNone; hit = text.find(key, from)) {
        result.append(text.substr(from, hit - from)).append(replacement);
        from = hit + key.size();
    }
    return result.append(text.substr(from));
}

std::size_t FindNoCase(std::string_view text, const FoldedKey& key, std::size_t start) {
    if (key.Text().empty()) return Find(text, key.Text(), start);
    if (start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (start > text.size()) return 0;
    const std::size_t found =
        key.IsAscii() ? FindAscii(text, key, start - 1) : FindLetters(text, key.Text(), start - 1);
    return found == kNone ? 0 : found + 1;
}

std::size_t FindNoCase(std::string_view text, std::string_view key, std::size_t start) {
    return FindNoCase(text, FoldedKey(key), start);
}

std::size_t FindLastNoCase(std::string_view text, std::string_view key, std::size_t end) {
    if (key.empty()) return FindLast(text, key, end);
    const std::string_view before = text.substr(0, std::min(end, text.size()));
    if (!FoldedKey(key).IsAscii()) {
        for (std::size_t at = before.size(); at > 0; --at) {
            if (MatchLengthNoCase(before.substr(at - 1), key) > 0) return at;
        }
        return 0;
    }
    for (std::size_t at = before.size() < key.size() ? 0 : before.size() - key.size() + 1; at > 0; --at) {
        if (StandsAt(before.data() + (at - 1), key)) return at;
    }
    return 0;
}

std::string ReplaceAllNoCase(std::string_view text, std::string_view key, std::string_view replacement) {
    if (key.empty()) return std::string(text);
    const FoldedKey folded(key);
    std::string result;
    std::size_t from = 1;
    for (std::size_t hit = FindNoCase(text, folded); hit != 0; hit = FindNoCase(text, folded, from)) {
        result.append(text.substr(from - 1, hit - from)).append(replacement);
        from = hit + (folded.IsAscii() ? key.size() : MatchLengthNoCase(text.substr(hit - 1), key));
    }
    return result.append(text.substr(from - 1));
}

std::string ToLower(std::string_view text) {
    std::string lower;
    lower.reserve(text.size());
    while (!text.empty()) {
        const char raw = text.front();
        const CodePoint next = TakeCodePoint(text);
        if (next.valid) {
            AppendUtf8(lower, LowerOf(next.value));
        } else {
            lower += raw;
        }
    }
    return lower;
}

bool EqualNoCase(std::string_view left, std::string_view right) { return CompareNoCase(left, right) == 0; }

bool StartsWithNoCase(std::string_view text, std::string_view beginning) {
    return beginning.empty() || MatchLengthNoCase(text, beginning) > 0;
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && EqualNoCase(text.substr(text.size() - ending.size()), ending);
}

int CompareNoCase(std::string_view left, std::string_view right) {
    while (!left.empty() && !right.empty()) {
        const char32_t a = TakeLower(left);
        const char32_t b = TakeLower(right);
        if (a != b) return a < b ? -1 : 1;
    }
    if (left.empty()) return right.empty() ? 0 : -1;
    return 1;
}

} // namespace tamarind::text
