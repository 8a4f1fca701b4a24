#include "convert/companion.h"

#include "convert/texture_xml.h"
#include "text/field_reader.h"
#include "text/numbers.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include <fmt/format.h>

namespace tamarind::convert {

using text::FieldReader;

namespace {

constexpr char kQuoteStandIn = '#';

/// A whole number from `lowest` to `highest`; nothing for any other text.
std::optional<std::int32_t> ReadWhole(const std::string& field, std::int32_t lowest, std::int32_t highest) {
    try {
        const double number = text::ReadNumber(field);
        if (number < lowest || number > highest || number != std::floor(number)) return std::nullopt;
        return static_cast<std::int32_t>(number);
    } catch (const text::RuntimeError&) {
        return std::nullopt;
    }
}

CompanionFault Parse(FieldReader& fields, Companion& companion) {
    std::string expected = fmt::format("the number of blobs, from 1 to {}", kMostBlobs);
    try {
        const auto count = ReadWhole(fields.Next(), 1, static_cast<std::int32_t>(kMostBlobs));
        if (!count) return {fields.Line(), expected};
        expected = "a piece of XML";
        while (companion.pieces.size() <= static_cast<std::size_t>(*count)) {
            std::string& piece = companion.pieces.emplace_back(fields.Next());
            std::replace(piece.begin(), piece.end(), kQuoteStandIn, '"');
        }
        expected = "the size of a blob, from 0 to 2147483647";
        while (companion.sizes.size() < static_cast<std::size_t>(*count)) {
            const auto size = ReadWhole(fields.Next(), 0, std::numeric_limits<std::int32_t>::max());
            if (!size) return {fields.Line(), expected};
            companion.sizes.push_back(*size);
        }
        expected = "the path of the game file";
        companion.original = fields.Next();
        return {companion.original.empty() ? fields.Line() : 0, expected};
    } catch (const text::RuntimeError&) { // the end
        return {fields.Line() + 1, expected};
    }
}

} // namespace

std::string FormatCompanion(const std::vector<std::string_view>& pieces, const std::vector<std::int32_t>& sizes,
                            std::string_view original) {
    std::string lines = fmt::format(" {}\r\n", sizes.size());
    for (const std::string_view piece : pieces) {
        lines += '"';
        std::replace_copy(piece.begin(), piece.end(), std::back_inserter(lines), '"', kQuoteStandIn);
        lines += "\"\r\n";
    }
    for (const std::int32_t size : sizes)
        lines += fmt::format("{}\r\n", size);
    lines += fmt::format("\"{}\"\r\n", original);
    return text::FieldFileBytes(lines);
}

std::variant<Companion, CompanionFault> ParseCompanion(std::string_view bytes) {
    const std::string lines = text::FieldFileText(bytes);
    FieldReader fields(lines);
    Companion companion;
    CompanionFault fault = Parse(fields, companion);
    if (fault.line > 0) return fault;
    return companion;
}

} // namespace tamarind::convert
