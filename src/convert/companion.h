#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The ".dat" file beside an exported picture: all that is needed to make a texture's XML of an edited one. One item a
/// line, ended by CR LF: the count of blobs after a blank; the pieces of XML around their hex text, in double quotes,
/// each double quote inside replaced by "#"; the blobs' sizes; the game file's path, in double quotes.
namespace tamarind::convert {

struct Companion {
    std::vector<std::string> pieces; ///< of XML, one more than there are blobs
    std::vector<std::int32_t> sizes; ///< bytes of each blob
    std::string original;            ///< path of the game file
};

/// Where a file is not in that form.
struct CompanionFault {
    std::size_t line = 0; ///< from 1
    std::string expected; ///< what should be there, for people
};

[[nodiscard]] std::string FormatCompanion(const std::vector<std::string_view>& pieces,
                                          const std::vector<std::int32_t>& sizes, std::string_view original);

[[nodiscard]] std::variant<Companion, CompanionFault> ParseCompanion(std::string_view bytes);

} // namespace tamarind::convert
