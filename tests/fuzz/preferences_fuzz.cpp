// The settings reader on any bytes; what it accepts comes back the same after writing and reading.
#include "shell/preferences.h"
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

bool HasQuote(const shell::Preferences& read) {
    const auto hasQuote = [](const std::string& path) { return path.find('"') != std::string::npos; };
    return hasQuote(read.textureEditorPath) || hasQuote(read.viewerPath) || hasQuote(read.railSimPath);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const shell::Preferences read = shell::ParsePreferences({reinterpret_cast<const char*>(data), size});
        // A quote inside an unquoted field has no form in the file.
        if (HasQuote(read)) {
            return 0;
        }
        const std::string written = shell::FormatPreferences(read);
        Require(written.ends_with("\r\n"));
        const shell::Preferences again = shell::ParsePreferences(written);
        Require(again.window == read.window && again.xmlEditorDefault == read.xmlEditorDefault);
        Require(again.textureEditorPath == read.textureEditorPath && again.viewerPath == read.viewerPath &&
                again.railSimPath == read.railSimPath);
        Require(shell::FormatPreferences(again) == written);
    } catch (const text::RuntimeError& error) {
        const auto code = error.Code();
        Require(code == text::ErrorNumber::InputPastEnd || code == text::ErrorNumber::TypeMismatch ||
                code == text::ErrorNumber::Overflow);
    }
    return 0;
}
