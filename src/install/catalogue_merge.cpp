#include "install/catalogue_merge.h"

#include "install/record_insert.h"
#include "text/runtime_error.h"
#include "text/search.h"

namespace tamarind::install {

using text::ErrorNumber;
using text::FindLastNoCase;
using text::FindNoCase;
using text::RuntimeError;

namespace {

/// What stands between the first opening tag and the closing tag that follows, whatever attributes the first carries.
std::string ContentOf(std::string_view text, std::string_view openTag, std::string_view closeTag) {
    const std::size_t open = FindNoCase(text, openTag);
    const std::size_t close = open == 0 ? 0 : FindNoCase(text, closeTag, open);
    const std::size_t tagEnd = text::FindLast(text, ">", close);
    if (close == 0 || tagEnd < open) return {};
    return std::string(text.substr(tagEnd, close - tagEnd - 1));
}

} // namespace

std::string EnglishNameOf(std::string_view record) { return ContentOf(record, "<English", "</English"); }

std::string KeyOf(std::string_view record) { return ContentOf(record, "<DevString", "</DevString"); }

std::string MergeRoute(std::string_view catalogue, std::string_view record) {
    const std::string key = KeyOf(record);
    if (key.empty() || !HoldsWholeRecords(record, kRouteOpenTag, kRouteCloseTag)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    const std::size_t found = FindNoCase(catalogue, key);
    if (found == 0) return InsertRecords(catalogue, record);
    const std::size_t start = FindLastNoCase(catalogue, kRouteOpenTag, found);
    const std::size_t end = FindNoCase(catalogue, kRouteCloseTag, found);
    if (start == 0 || end == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return JoinAround(catalogue.substr(0, start - 1), record, catalogue.substr(end - 1 + kRouteCloseTag.size()));
}

} // namespace tamarind::install
