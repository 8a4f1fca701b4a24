#include "editors/highlighter.h"

#include "text/search.h"

#include <array>

namespace tamarind::editors {
namespace {

constexpr std::string_view kVersion = "version";
constexpr std::string_view kEncoding = "encoding";

/// What a byte may begin or end.
enum class Mark : std::uint8_t { None, Open, Close, Equals, NameEnd, Version, Encoding };

constexpr std::array<Mark, 256> kMarks = [] {
    std::array<Mark, 256> marks{};
    marks['<'] = Mark::Open;
    marks['>'] = Mark::Close;
    marks['='] = Mark::Equals;
    marks[' '] = marks['\r'] = marks['\n'] = Mark::NameEnd;
    marks['v'] = marks['V'] = Mark::Version;
    marks['e'] = marks['E'] = Mark::Encoding;
    return marks;
}();

class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::vector<ColourRun> Run() {
        while (at_ < text_.size())
            Step(kMarks[static_cast<unsigned char>(text_[at_])]);
        return std::move(runs_);
    }

private:
    void Step(Mark mark) {
        switch (mark) {
        case Mark::None: TakePlain(); break;
        case Mark::Open:
            isInName_ = true;
            Take(1, Colour::Blue);
            break;
        case Mark::Close:
            isInName_ = false;
            Take(1, Colour::Blue);
            break;
        case Mark::Equals: Take(1, Colour::Red); break;
        case Mark::NameEnd:
            isInName_ = false;
            ++at_;
            break;
        case Mark::Version: TakeWord(kVersion); break;
        case Mark::Encoding: TakeWord(kEncoding); break;
        }
    }

    /// All that is of no meaning, in one step.
    void TakePlain() {
        std::size_t end = at_ + 1;
        while (end < text_.size() && kMarks[static_cast<unsigned char>(text_[end])] == Mark::None)
            ++end;
        if (isInName_) {
            Take(end - at_, Colour::Blue);
        } else {
            at_ = end;
        }
    }

    void TakeWord(std::string_view word) {
        if (text::StartsWithNoCase(text_.substr(at_, word.size()), word)) {
            Take(word.size(), Colour::Red);
        } else {
            TakePlain();
        }
    }

    void Take(std::size_t length, Colour colour) {
        if (!runs_.empty() && runs_.back().colour == colour && runs_.back().start + runs_.back().length == at_) {
            runs_.back().length += length;
        } else {
            runs_.push_back({at_, length, colour});
        }
        at_ += length;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    bool isInName_ = false;
    std::vector<ColourRun> runs_;
};

} // namespace

std::vector<ColourRun> HighlightLines(std::string_view lines) { return Scanner(lines).Run(); }

std::vector<ColourRun> HighlightXml(std::string_view text) {
    return text.find('<') == std::string_view::npos ? std::vector<ColourRun>() : HighlightLines(text);
}

} // namespace tamarind::editors
