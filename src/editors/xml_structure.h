#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Which tags belong together, told from the text alone, which need be no complete XML.
namespace tamarind::editors {

/// Between two lines.
struct FoldState {
    enum class Inside : std::uint8_t { Text, Tag, EndTag, Comment, CharacterData, Instruction };
    Inside inside = Inside::Text;
    char quote = 0;          ///< within a tag: the quote that is open, else 0
    std::uint16_t depth = 0; ///< elements that are open, as many as are counted
    bool operator==(const FoldState&) const = default;
};

/// Elements that are open, deeper ones count as many.
inline constexpr std::uint16_t kDeepestFold = 1000;

/// The state behind a line, its line end included.
[[nodiscard]] FoldState FoldLine(std::string_view line, FoldState state);

/// In bytes from 0.
struct TagRange {
    std::size_t start = 0; ///< of the "<"
    std::size_t end = 0;   ///< behind the name
    bool operator==(const TagRange&) const = default;
};
struct TagPair {
    TagRange here; ///< the one at the caret
    std::optional<TagRange> partner;
    bool operator==(const TagPair&) const = default;
};

/// The tag round `caret` and the one that belongs to it, as far as it lies in the text. Nothing outside of tags, and
/// for one that stands alone.
[[nodiscard]] std::optional<TagPair> FindTagPair(std::string_view text, std::size_t caret);

} // namespace tamarind::editors
