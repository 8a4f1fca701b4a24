#include "markers/marker_list.h"

#include "text/runtime_error.h"

#include <utility>

namespace tamarind::markers {
namespace {

// A list is shorter than its input unless markers stand inside each other; a short text may do that, a long one
// would fill the memory.
constexpr std::size_t kMostTimes = 4;
constexpr std::size_t kAlwaysAllowed = std::size_t{16} * 1024 * 1024;

} // namespace

ListWriter::ListWriter(std::size_t inputSize) : mostBytes_(inputSize * kMostTimes + kAlwaysAllowed) {}

void ListWriter::Add(std::string_view longitude, std::string_view latitude) {
    list_.text.append(longitude).append(",").append(latitude);
    EndLine();
}

void ListWriter::Add(std::string_view longitude, std::string_view latitude, std::string_view name) {
    list_.text.append(longitude).append(",").append(latitude).append(",").append(name);
    EndLine();
}

void ListWriter::AddLine(std::string_view line) {
    list_.text.append(line);
    EndLine();
}

void ListWriter::EndLine() {
    list_.text.append("\r\n");
    ++list_.count;
    if (list_.text.size() > mostBytes_) {
        throw text::RuntimeError(text::ErrorNumber::Overflow,
                                 "The markers of this file stand inside each other: their list would be many times "
                                 "longer than the file.");
    }
}

MarkerList ListWriter::Finish(std::string remark) {
    list_.remark = std::move(remark);
    return std::move(list_);
}

} // namespace tamarind::markers
