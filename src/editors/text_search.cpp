#include "editors/text_search.h"

#include "text/code_page.h"
#include "text/search.h"

namespace tamarind::editors {
namespace {

constexpr unsigned kTopBits = 0xC0;
constexpr unsigned kContinues = 0x80;

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & kTopBits) == kContinues; }

/// Whether the character belongs to words. Beyond ASCII all do but the signs and the punctuation.
bool IsWordCharacter(char32_t c) {
    if (c < 0x80) return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
    if (c < 0xC0) return c == 0xAA || c == 0xB5 || c == 0xBA;
    return c != 0xD7 && c != 0xF7 && (c < 0x2000 || c > 0x206F) && (c < 0x3000 || c > 0x303F);
}

bool IsWordBefore(std::string_view text, std::size_t at) {
    if (at == 0) return false;
    std::size_t start = at - 1;
    while (start > 0 && ContinuesCharacter(text[start]))
        --start;
    std::string_view character = text.substr(start, at - start);
    return IsWordCharacter(text::TakeCodePoint(character).value);
}

bool IsWordAt(std::string_view text, std::size_t at) {
    std::string_view rest = text.substr(at);
    return !rest.empty() && IsWordCharacter(text::TakeCodePoint(rest).value);
}

/// Looks for one request in one text.
class Finder {
public:
    Finder(std::string_view text, const TextRequest& request)
        : text_(text), key_(request.text), wholeWord_(request.wholeWord) {}

    [[nodiscard]] std::optional<TextMatch> Next(std::size_t from) const {
        if (key_.Text().empty()) return std::nullopt;
        for (std::size_t position = text::FindNoCase(text_, key_, from + 1); position != 0;
             position = text::FindNoCase(text_, key_, position + 1)) {
            const TextMatch match{position - 1, text::MatchLengthNoCase(text_.substr(position - 1), key_.Text())};
            if (!wholeWord_ || IsWholeWord(match)) return match;
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] bool IsWholeWord(const TextMatch& match) const {
        return !IsWordBefore(text_, match.start) && !IsWordAt(text_, match.start + match.length);
    }

    std::string_view text_;
    text::FoldedKey key_;
    bool wholeWord_;
};

} // namespace

std::optional<TextMatch> FindInText(std::string_view text, const TextRequest& request, std::size_t from) {
    const Finder finder(text, request);
    const auto after = finder.Next(from);
    return after || from == 0 ? after : finder.Next(0);
}

std::vector<TextMatch> FindAllInText(std::string_view text, const TextRequest& request) {
    const Finder finder(text, request);
    std::vector<TextMatch> all;
    auto match = finder.Next(0);
    while (match) {
        all.push_back(*match);
        match = finder.Next(match->start + match->length);
    }
    return all;
}

} // namespace tamarind::editors
