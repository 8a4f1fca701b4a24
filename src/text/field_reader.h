#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamarind::text {

/// Takes fields off the front of a text, in the form in which our settings are written: a comma or a line break ends a
/// field; one in double quotes may hold both, and has no form for a double quote.
class FieldReader {
public:
    explicit FieldReader(std::string_view text) : text_(text) {}

    /// Without quotes, or, where there are none, without blanks around it. Throws InputPastEnd when nothing is left.
    std::string Next();

    /// The line, from 1, in which the field that was taken last begins; after InputPastEnd the last one.
    [[nodiscard]] std::size_t Line() const;

private:
    void SkipBlanks();
    void SkipSeparator();
    [[nodiscard]] std::string_view Rest() const { return text_.substr(at_); }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t fieldStart_ = 0;
};

/// The bytes of a file in that form: Windows-1252, or UTF-8 with a byte-order mark where the text does not fit it.
[[nodiscard]] std::string FieldFileBytes(std::string_view text);
/// The other way round.
[[nodiscard]] std::string FieldFileText(std::string_view bytes);

} // namespace tamarind::text
