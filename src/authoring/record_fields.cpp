#include "authoring/record_fields.h"

#include "text/runtime_error.h"
#include "text/search.h"

#include <array>
#include <optional>

namespace tamarind::authoring {

using text::ErrorNumber;
using text::Find;
using text::RuntimeError;

namespace {

constexpr std::array<std::string_view, 5> kLanguages{"English", "French", "Italian", "German", "Spanish"};

/// The content of an element, by offsets from 0.
struct Content {
    std::size_t begin;
    std::size_t end; ///< where the closing tag begins
};

std::size_t Required(std::size_t found) {
    if (found == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return found;
}

/// Finds the elements whose names begin with a key, without making its tags anew for each.
class ElementFinder {
public:
    explicit ElementFinder(std::string_view key) : open_("<" + std::string(key)), close_("</" + std::string(key)) {}

    /// The first element that begins at or after the position; nothing when none does.
    [[nodiscard]] std::optional<Content> Next(std::string_view text, std::size_t position) const {
        const std::size_t open = Find(text, open_, position);
        if (open == 0) return std::nullopt;
        const std::size_t tagEnd = Required(Find(text, ">", open));
        return Content{tagEnd, Required(Find(text, close_, tagEnd)) - 1};
    }

private:
    std::string open_;
    std::string close_;
};

/// One language's content. Its opening tag is not looked at: what counts is the last ">" in front of the closing one.
Content FindLanguage(std::string_view text, std::size_t position, std::string_view language) {
    const std::string name(language);
    const std::size_t open = Required(Find(text, "<" + name, position));
    const std::size_t close = Required(Find(text, "</" + name, open));
    const std::size_t tagEnd = text::FindLast(text, ">", close);
    if (tagEnd < open) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return {tagEnd, close - 1};
}

std::size_t Replace(std::string& text, const Content& content, std::string_view value) {
    text.replace(content.begin, content.end - content.begin, value);
    return content.begin + value.size() + 1;
}

} // namespace

void GetTag(std::string_view text, std::size_t& position, std::string_view key, std::string& value) {
    const auto content = ElementFinder(key).Next(text, position);
    if (!content) {
        position = 0;
        return;
    }
    value.assign(text.substr(content->begin, content->end - content->begin));
    position = content->end + 1;
}

void PutDetail(std::string& text, std::size_t& position, std::string_view key, std::string_view value) {
    const auto content = ElementFinder(key).Next(text, position);
    if (!content) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    position = Replace(text, *content, value);
}

std::string PutEveryDetail(std::string_view text, std::string_view key, std::string_view value) {
    const ElementFinder finder(key);
    std::string result;
    result.reserve(text.size());
    std::size_t taken = 0;
    while (const auto content = finder.Next(text, taken + 1)) {
        result.append(text.substr(taken, content->begin - taken)).append(value);
        taken = content->end;
    }
    return result.append(text.substr(taken));
}

std::string ReadLocalised(std::string_view text, std::size_t& position) {
    std::string value;
    for (const std::string_view language : kLanguages) {
        const Content content = FindLanguage(text, position, language);
        position = content.end + 1;
        value.assign(text.substr(content.begin, content.end - content.begin));
        if (!value.empty()) break;
    }
    return value;
}

void WriteLocalised(std::string& text, std::size_t& position, std::string_view value) {
    for (const std::string_view language : kLanguages)
        position = Replace(text, FindLanguage(text, position, language), value);
}

} // namespace tamarind::authoring
