#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamarind::markers {

/// The game's list of markers.
struct MarkerList {
    std::string text;      ///< a line a marker: longitude, latitude and, where there is one, name; CR LF behind each
    std::size_t count = 0; ///< markers
    std::string remark;    ///< what a person should know of it, in a sentence; mostly empty
};

/// Puts a list together, a line at a time.
class ListWriter {
public:
    /// `inputSize` is that of the text from which the list is made, in bytes.
    explicit ListWriter(std::size_t inputSize);

    /// Makes room, so that a list of about this many bytes does not move while it grows.
    void Expect(std::size_t bytes) { list_.text.reserve(bytes); }
    /// Fields as they stand. Throws Overflow when the list has become many times longer than its input, which
    /// only markers inside each other can bring about.
    void Add(std::string_view longitude, std::string_view latitude);
    void Add(std::string_view longitude, std::string_view latitude, std::string_view name);
    /// A line that holds its commas already.
    void AddLine(std::string_view line);

    [[nodiscard]] std::size_t Count() const { return list_.count; }
    /// The list; nothing can be added to it any more.
    [[nodiscard]] MarkerList Finish(std::string remark = {});

private:
    void EndLine();

    MarkerList list_;
    std::size_t mostBytes_;
};

} // namespace tamarind::markers
