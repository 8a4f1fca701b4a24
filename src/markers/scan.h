#pragma once

#include "text/search.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tamarind::markers {

/// Walks forwards through a text from key to key, without regard to letter case. Once a key is missing it is lost: it
/// finds nothing more, and all that it cuts is empty.
class Scan {
public:
    explicit Scan(std::string_view text) : text_(text) {}

    /// Goes on to the next `key` that begins at or behind the place where it stands; false when there is none.
    bool To(const text::FoldedKey& key);
    /// Goes on by that many characters, or to the end of the text.
    void Skip(std::size_t characters);
    /// The text up to the next `end`, an ASCII character, at which it then stands.
    std::string_view TextUpTo(char end);

    [[nodiscard]] bool IsLost() const { return !missing_.empty(); }
    /// The key or end that was not found; empty while it is not lost.
    [[nodiscard]] const std::string& Missing() const { return missing_; }
    /// Where it stands: bytes in front of it.
    [[nodiscard]] std::size_t Offset() const { return offset_; }

private:
    std::string_view text_;
    std::size_t offset_ = 0;
    std::string missing_;
};

} // namespace tamarind::markers
