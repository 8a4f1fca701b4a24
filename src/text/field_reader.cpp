#include "text/field_reader.h"

#include "text/code_page.h"
#include "text/runtime_error.h"

#include <algorithm>

namespace tamarind::text {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kSeparators = ",\r\n";

} // namespace

std::string FieldReader::Next() {
    SkipBlanks();
    if (Rest().empty()) throw RuntimeError(ErrorNumber::InputPastEnd);
    fieldStart_ = at_;
    const bool quoted = Rest().front() == '"';
    if (quoted) ++at_;
    const std::string_view field =
        Rest().substr(0, Rest().find_first_of(quoted ? std::string_view("\"") : kSeparators));
    at_ += field.size();
    SkipSeparator();
    return std::string(quoted ? field : field.substr(0, field.find_last_not_of(" \t") + 1));
}

std::size_t FieldReader::Line() const {
    const std::string_view before = text_.substr(0, fieldStart_);
    return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

void FieldReader::SkipBlanks() { at_ += std::min(Rest().find_first_not_of(" \t"), Rest().size()); }

void FieldReader::SkipSeparator() {
    at_ += std::min(Rest().find_first_of(kSeparators), Rest().size());
    at_ += Rest().starts_with("\r\n") ? 2 : std::min<std::size_t>(1, Rest().size());
}

std::string FieldFileBytes(std::string_view text) {
    return FitsCodePage(text) ? ToCodePage(text) : std::string(kByteOrderMark).append(text);
}

std::string FieldFileText(std::string_view bytes) {
    const bool utf8 = bytes.starts_with(kByteOrderMark);
    return utf8 ? std::string(bytes.substr(kByteOrderMark.size())) : FromCodePage(std::string(bytes));
}

} // namespace tamarind::text
