#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// The colours of XML text.
namespace tamarind::editors {

enum class Colour : std::uint8_t { Blue = 1, Red = 2 };

/// Characters that lie together and have one colour; what lies in no run keeps the usual one.
struct ColourRun {
    std::size_t start = 0; ///< from 0, in bytes of the text
    std::size_t length = 0;
    Colour colour = Colour::Blue;
    bool operator==(const ColourRun&) const = default;
};

/// The runs of the whole text in order, none touching another of its colour:
///   each "<" with the name that follows it, up to the first blank, ">" or line end: blue
///   each ">": blue
///   "=" and the words "version" and "encoding", in any letter case and anywhere: red, over the blue
/// A text without any "<" has none. Linear in the text.
[[nodiscard]] std::vector<ColourRun> HighlightXml(std::string_view text);

/// The same for whole lines out of a text that has a "<" somewhere.
[[nodiscard]] std::vector<ColourRun> HighlightLines(std::string_view lines);

} // namespace tamarind::editors
