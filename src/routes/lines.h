#pragma once

#include <optional>
#include <string_view>

namespace tamarind::routes {

/// Takes a text apart by its lines, which end with LF or CR LF. The last one needs no end.
class Lines {
public:
    /// Starts in the middle of a line when `offset` (from 0) is not the start of one.
    explicit Lines(std::string_view text, std::size_t offset = 0) : text_(text), offset_(offset) {}

    /// The next line without its end; nothing behind the last one.
    std::optional<std::string_view> Next() {
        if (offset_ >= text_.size()) return std::nullopt;
        const std::size_t start = offset_;
        const std::size_t end = text_.find('\n', start);
        offset_ = end == std::string_view::npos ? text_.size() : end + 1;
        std::string_view line = text_.substr(start, end == std::string_view::npos ? end : end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    /// Where the next line starts, from 0.
    [[nodiscard]] std::size_t Offset() const { return offset_; }

private:
    std::string_view text_;
    std::size_t offset_;
};

/// Where the line starts that holds the byte at `offset`, both from 0; lines before `floor` are not looked at.
[[nodiscard]] inline std::size_t LineStart(std::string_view text, std::size_t offset, std::size_t floor) {
    const std::string_view before = text.substr(floor, offset - floor);
    const std::size_t end = before.rfind('\n');
    return end == std::string_view::npos ? floor : floor + end + 1;
}

} // namespace tamarind::routes
