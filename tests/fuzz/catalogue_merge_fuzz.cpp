// The merge of a route's record into any index: it is refused, or the record stands in the result and a second merge
// of a replaced record changes nothing more.
#include "install/catalogue_merge.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tamarind;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t border = bytes.find('\0');
    const std::string_view catalogue = bytes.substr(0, border);
    const std::string_view record = border == std::string_view::npos ? bytes : bytes.substr(border + 1);
    static_cast<void>(install::EnglishNameOf(record));
    try {
        const std::string merged = install::MergeRoute(catalogue, record);
        if (merged.find(record) == std::string::npos || merged.size() > catalogue.size() + record.size() + 4)
            std::abort();
    } catch (const text::RuntimeError& error) {
        if (error.Code() != text::ErrorNumber::InvalidProcedureCall) std::abort();
    }
    return 0;
}
