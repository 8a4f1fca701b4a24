#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Searching the text page's text. Letter case is ignored; what is searched for is plain text.
namespace tamarind::editors {

struct TextRequest {
    std::string text;
    bool wholeWord = false; ///< no letter of any alphabet, digit or underscore beside it
};

/// In bytes from 0.
struct TextMatch {
    std::size_t start = 0;
    std::size_t length = 0;
    bool operator==(const TextMatch&) const = default;
};

/// The first match that starts at `from` or later, else the first of the text. Nothing when there is none, or nothing
/// to look for.
[[nodiscard]] std::optional<TextMatch> FindInText(std::string_view text, const TextRequest& request, std::size_t from);

/// All matches from the start of the text on, none overlapping another.
[[nodiscard]] std::vector<TextMatch> FindAllInText(std::string_view text, const TextRequest& request);

} // namespace tamarind::editors
