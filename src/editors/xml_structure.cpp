#include "editors/xml_structure.h"

namespace tamarind::editors {
namespace {

using Inside = FoldState::Inside;
constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kComment = "<!--";
constexpr std::string_view kCommentEnd = "-->";
constexpr std::string_view kData = "<![CDATA[";
constexpr std::string_view kDataEnd = "]]>";
/// A caret this far from a tag's "<" is taken to be outside of tags.
constexpr std::size_t kLongestTag = 65536;

class LineReader {
public:
    LineReader(std::string_view line, FoldState state) : line_(line), state_(state) {}

    FoldState Run() {
        while (at_ < line_.size())
            Step();
        return state_;
    }

private:
    void Step() {
        switch (state_.inside) {
        case Inside::Text: TakeText(); break;
        case Inside::Tag:
        case Inside::EndTag: TakeTag(); break;
        case Inside::Comment: TakeUntil(kCommentEnd); break;
        case Inside::CharacterData: TakeUntil(kDataEnd); break;
        case Inside::Instruction: TakeUntil(">"); break;
        }
    }

    void TakeText() {
        const std::size_t open = line_.find('<', at_);
        if (open == kNone) {
            at_ = line_.size();
            return;
        }
        const std::string_view rest = line_.substr(open);
        if (rest.starts_with(kComment)) {
            Enter(Inside::Comment, open + kComment.size());
        } else if (rest.starts_with(kData)) {
            Enter(Inside::CharacterData, open + kData.size());
        } else if (rest.starts_with("<?") || rest.starts_with("<!")) {
            Enter(Inside::Instruction, open + 2);
        } else if (rest.starts_with("</")) {
            Enter(Inside::EndTag, open + 2);
        } else {
            Enter(Inside::Tag, open + 1);
        }
    }

    void Enter(Inside inside, std::size_t at) {
        state_.inside = inside;
        at_ = at;
    }

    void TakeUntil(std::string_view end) {
        const std::size_t found = line_.find(end, at_);
        if (found == kNone) {
            at_ = line_.size();
        } else {
            Enter(Inside::Text, found + end.size());
        }
    }

    void TakeTag() {
        const char c = line_[at_];
        if (state_.quote != 0) {
            if (c == state_.quote) state_.quote = 0;
        } else if (c == '"' || c == '\'') {
            state_.quote = c;
        } else if (c == '<') { // the tag before was never closed
            Count();
            state_.inside = Inside::Text;
            return;
        } else if (c == '>') {
            if (at_ == 0 || line_[at_ - 1] != '/' || state_.inside == Inside::EndTag) Count();
            state_.inside = Inside::Text;
        }
        ++at_;
    }

    void Count() {
        if (state_.inside == Inside::EndTag) {
            if (state_.depth > 0) --state_.depth;
        } else if (state_.depth < kDeepestFold) {
            ++state_.depth;
        }
    }

    std::string_view line_;
    FoldState state_;
    std::size_t at_ = 0;
};

bool EndsName(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '>' || c == '/'; }

enum class TagKind { Start, End, Alone, Other };

struct Tag {
    TagKind kind = TagKind::Other;
    TagRange name;
    std::size_t end = 0; ///< behind the ">"; the text's end where there is none
};

/// Behind the ">" of a tag, values in quotes passed over; the text's end where there is none.
std::size_t EndOfTag(std::string_view text, std::size_t at) {
    char quote = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        } else if (c == '<') {
            return at;
        }
    }
    return at;
}

std::size_t Behind(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == kNone ? text.size() : found + end.size();
}

/// The tag that starts with the "<" at `start`.
Tag ReadTag(std::string_view text, std::size_t start) {
    const std::string_view rest = text.substr(start);
    if (rest.starts_with(kComment)) return {TagKind::Other, {}, Behind(text, kCommentEnd, start + kComment.size())};
    if (rest.starts_with(kData)) return {TagKind::Other, {}, Behind(text, kDataEnd, start + kData.size())};
    if (rest.starts_with("<?") || rest.starts_with("<!")) return {TagKind::Other, {}, Behind(text, ">", start)};
    Tag tag;
    tag.kind = rest.starts_with("</") ? TagKind::End : TagKind::Start;
    std::size_t nameEnd = start + (tag.kind == TagKind::End ? 2 : 1);
    while (nameEnd < text.size() && !EndsName(text[nameEnd]))
        ++nameEnd;
    tag.name = {start, nameEnd};
    tag.end = EndOfTag(text, nameEnd);
    const bool isClosed = tag.end > start && text[tag.end - 1] == '>';
    if (tag.kind == TagKind::Start && isClosed && text[tag.end - 2] == '/') tag.kind = TagKind::Alone;
    return tag;
}

std::optional<TagRange> PartnerBehind(std::string_view text, std::size_t at) {
    std::size_t depth = 1;
    for (at = text.find('<', at); at != kNone; at = text.find('<', at)) {
        const Tag tag = ReadTag(text, at);
        if (tag.kind == TagKind::Start) ++depth;
        if (tag.kind == TagKind::End && --depth == 0) return tag.name;
        at = tag.end;
    }
    return std::nullopt;
}

/// The "<" of the tag, comment or the like that ends before `at`, read from its end.
std::size_t StartBefore(std::string_view text, std::size_t at) {
    const std::size_t close = text.rfind('>', at - 1);
    const std::size_t open = text.rfind('<', at - 1);
    if (open == kNone || close == kNone || close < open) return open;
    const std::string_view before = text.substr(0, close + 1);
    if (before.ends_with(kCommentEnd)) return text.rfind(kComment, close);
    if (before.ends_with(kDataEnd)) return text.rfind(kData, close);
    return open;
}

std::optional<TagRange> PartnerBefore(std::string_view text, std::size_t at) {
    std::size_t depth = 1;
    while (at > 0) {
        const std::size_t start = StartBefore(text, at);
        if (start == kNone) return std::nullopt;
        const Tag tag = ReadTag(text, start);
        if (tag.kind == TagKind::End) ++depth;
        if (tag.kind == TagKind::Start && --depth == 0) return tag.name;
        at = start;
    }
    return std::nullopt;
}

} // namespace

FoldState FoldLine(std::string_view line, FoldState state) { return LineReader(line, state).Run(); }

std::optional<TagPair> FindTagPair(std::string_view text, std::size_t caret) {
    if (caret >= text.size() || text[caret] != '<') {
        // Behind a ">" the caret still belongs to that tag.
        const std::size_t from = caret > 0 && text[caret - 1] == '>' ? caret - 1 : caret;
        if (from == 0) return std::nullopt;
        const std::size_t open = text.find_last_of("<>", from - 1);
        if (open == kNone || text[open] != '<' || caret - open > kLongestTag) return std::nullopt;
        caret = open;
    }
    const Tag tag = ReadTag(text, caret);
    if (tag.kind == TagKind::Start) return TagPair{tag.name, PartnerBehind(text, tag.end)};
    if (tag.kind == TagKind::End) return TagPair{tag.name, PartnerBefore(text, caret)};
    return std::nullopt;
}

} // namespace tamarind::editors
