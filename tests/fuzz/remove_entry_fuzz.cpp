// The removal of an entry from any bytes; the first line is the id. What is left is the front and the back of the text.
#include "routes/catalogue.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void Try(std::string_view text, std::string_view id, routes::IndexKind kind) {
    try {
        const std::string left = routes::RemoveEntry(text, id, kind);
        // Where the id lies inside of a tag, the seam's character may come twice.
        Require(left.size() <= text.size() + 1);
        std::size_t front = 0;
        while (front < left.size() && front < text.size() && left[front] == text[front])
            ++front;
        Require(text.ends_with(std::string_view(left).substr(front)));
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::InvalidProcedureCall);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\n');
    if (end == std::string_view::npos) {
        return 0;
    }
    Try(input.substr(end + 1), input.substr(0, end), routes::IndexKind::Routes);
    Try(input.substr(end + 1), input.substr(0, end), routes::IndexKind::Scenarios);
    return 0;
}
