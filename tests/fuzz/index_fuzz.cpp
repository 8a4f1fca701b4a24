// The scan of an index on any bytes: ids and names come in pairs, and each is part of the text.
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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<std::string> ids;
    std::vector<std::string> names;
    try {
        routes::ScanRecords(text, ids, names);
        Require(ids.size() == names.size());
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::InvalidProcedureCall);
        Require(ids.size() == names.size() || ids.size() == names.size() + 1);
    }
    for (const auto* const list : {&ids, &names}) {
        for (const std::string& entry : *list) {
            Require(text.find(entry) != std::string_view::npos);
            Require(entry.find('>') == std::string::npos);
        }
    }
    return 0;
}
