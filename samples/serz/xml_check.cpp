#include "serz/xml_check.h"

#include <cstddef>
#include <vector>

namespace tamarind::samples {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kNone = std::string_view::npos;

/// Walks over the mark-up from "<" to "<".
class TagWalk {
public:
    explicit TagWalk(std::string_view text) : rest_(text) {}

    bool IsBalanced() {
        while (SkipText()) {
            if (!SkipMarkup()) {
                return false;
            }
        }
        return rest_.empty() && open_.empty() && hasRoot_;
    }

private:
    /// True when it stopped at a "<". Text outside the root element leaves `rest_` not empty and ends the walk.
    bool SkipText() {
        const std::size_t next = open_.empty() ? rest_.find_first_not_of(kBlanks) : rest_.find('<');
        rest_.remove_prefix(next == kNone ? rest_.size() : next);
        return rest_.starts_with('<');
    }

    bool SkipMarkup() {
        if (rest_.starts_with("<!--")) {
            return SkipPast("-->", 4);
        }
        if (rest_.starts_with("<![CDATA[")) {
            return !open_.empty() && SkipPast("]]>", 9);
        }
        if (rest_.starts_with("<?")) {
            return SkipPast("?>", 2);
        }
        if (rest_.starts_with("<!")) {
            return !hasRoot_ && SkipDeclaration();
        }
        return SkipTag();
    }

    bool SkipPast(std::string_view end, std::size_t from) {
        const std::size_t found = rest_.find(end, from);
        if (found == kNone) {
            return false;
        }
        rest_.remove_prefix(found + end.size());
        return true;
    }

    /// A document type, with the declarations that it may hold in brackets.
    bool SkipDeclaration() {
        const std::size_t end = rest_.find_first_of(">[");
        if (end == kNone) {
            return false;
        }
        if (rest_[end] == '>') {
            rest_.remove_prefix(end + 1);
            return true;
        }
        return SkipPast("]", end) && SkipPast(">", 0);
    }

    bool SkipTag() {
        const std::size_t end = TagEnd();
        if (end == kNone) {
            return false;
        }
        const std::string_view tag = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return tag.starts_with('/') ? CloseElement(tag.substr(1)) : OpenElement(tag);
    }

    /// The position of the ">" that ends the tag; one inside an attribute's value does not.
    [[nodiscard]] std::size_t TagEnd() const {
        std::size_t at = 1;
        while (true) {
            at = rest_.find_first_of("<>\"'", at);
            if (at == kNone || rest_[at] == '<') {
                return kNone;
            }
            if (rest_[at] == '>') {
                return at;
            }
            at = rest_.find(rest_[at], at + 1);
            if (at == kNone) {
                return kNone;
            }
            ++at;
        }
    }

    bool OpenElement(std::string_view tag) {
        const bool isEmptyElement = tag.ends_with('/');
        if (isEmptyElement) {
            tag.remove_suffix(1);
        }
        const std::string_view name = tag.substr(0, tag.find_first_of(kBlanks));
        if (name.empty() || (open_.empty() && hasRoot_)) {
            return false;
        }
        hasRoot_ = true;
        if (!isEmptyElement) {
            open_.push_back(name);
        }
        return true;
    }

    bool CloseElement(std::string_view tag) {
        const std::string_view name = tag.substr(0, tag.find_last_not_of(kBlanks) + 1);
        if (open_.empty() || open_.back() != name) {
            return false;
        }
        open_.pop_back();
        return true;
    }

    std::string_view rest_;
    std::vector<std::string_view> open_;
    bool hasRoot_ = false;
};

} // namespace

bool IsBalancedXml(std::string_view text) {
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    return TagWalk(text).IsBalanced();
}

} // namespace tamarind::samples
