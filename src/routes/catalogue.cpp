#include "routes/catalogue.h"

#include "text/runtime_error.h"
#include "text/search.h"

#include <array>
#include <utility>

namespace tamarind::routes {

using text::ErrorNumber;
using text::FindLast;
using text::FindLastNoCase;
using text::FindNoCase;
using text::FoldedKey;
using text::RuntimeError;

namespace {

constexpr FoldedKey kIdStart("<DevString");
constexpr FoldedKey kIdEnd("</DevString");

struct Language {
    FoldedKey start;
    FoldedKey end;
};

constexpr std::array<Language, 5> kLanguages{{{FoldedKey("<English"), FoldedKey("</English")},
                                              {FoldedKey("<French"), FoldedKey("</French")},
                                              {FoldedKey("<Italian"), FoldedKey("</Italian")},
                                              {FoldedKey("<German"), FoldedKey("</German")},
                                              {FoldedKey("<Spanish"), FoldedKey("</Spanish")}}};

/// The content of the element whose opening tag begins at `start` and whose closing tag at `end`, whatever attributes
/// it carries. Throws InvalidProcedureCall when there is no such element.
std::string Content(std::string_view text, std::size_t start, std::size_t end) {
    const std::size_t tagEnd = FindLast(text, ">", end);
    if (start == 0 || tagEnd < start) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return std::string(text.substr(tagEnd, end - tagEnd - 1));
}

/// The position of the character in front of the one at `position`.
std::size_t PreviousCharacter(std::string_view text, std::size_t position) {
    constexpr unsigned kContinuationMask = 0xC0;
    constexpr unsigned kContinuation = 0x80;
    do {
        --position;
    } while (position > 1 && (static_cast<unsigned char>(text[position - 1]) & kContinuationMask) == kContinuation);
    return position;
}

struct EntryTags {
    std::string_view open;
    std::string_view close;
};

constexpr EntryTags kRouteTags{"<cRouteProperties", "</cRouteProperties>"};
constexpr EntryTags kScenarioTags{"<cScenarioProperties", "</cScenarioProperties>"};

} // namespace

FoundName LocalisedName(std::string_view text, std::size_t start) {
    FoundName found;
    for (const Language& language : kLanguages) {
        start = FindNoCase(text, language.start, start);
        found.next = FindNoCase(text, language.end, start);
        found.name = Content(text, start, found.next);
        if (!found.name.empty()) break;
    }
    return found;
}

void ScanRecords(std::string_view text, std::vector<std::string>& ids, std::vector<std::string>& names) {
    std::size_t position = 1;
    while (const std::size_t start = FindNoCase(text, kIdStart, position)) {
        const std::size_t end = FindNoCase(text, kIdEnd, start);
        ids.push_back(Content(text, start, end));
        FoundName found = LocalisedName(text, end);
        names.push_back(std::move(found.name));
        position = found.next;
    }
}

std::string RemoveEntry(std::string_view indexText, std::string_view id, IndexKind kind) {
    const EntryTags& tags = kind == IndexKind::Routes ? kRouteTags : kScenarioTags;
    const std::size_t position = FindNoCase(indexText, id);
    const std::size_t start = FindLastNoCase(indexText, tags.open, position);
    if (position == 0 || start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    std::string result(indexText.substr(0, start - 1));
    const std::size_t next = FindNoCase(indexText, tags.open, position);
    if (next > 0) return result.append(indexText.substr(PreviousCharacter(indexText, next) - 1));
    const std::size_t close = FindNoCase(indexText, tags.close, position);
    if (close == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return result.append(indexText.substr(close - 1 + tags.close.size()));
}

} // namespace tamarind::routes
