#include "platform/paths.h"
#include "platform/windows/wide.h"

#include <windows.h>

namespace tamarind::platform {

std::string FromNative(std::string_view nativePath) {
    const std::wstring wide = ToWide(nativePath);
    const DWORD size = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = GetFullPathNameW(wide.c_str(), size, full.data(), nullptr);
    if (size == 0 || length == 0 || length >= size) {
        return std::string(nativePath);
    }
    full.resize(length);
    return FromWide(WithoutLongPrefix(full));
}

std::string ToNative(std::string_view path) { return std::string(path); }

std::string ForDisplay(std::string_view path) { return std::string(path); }

std::string ExecutableFolder() {
    std::wstring executable(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, executable.data(), static_cast<DWORD>(executable.size()));
        if (length == 0) {
            ThrowSystemError(GetLastError(), "");
        }
        if (length < executable.size()) {
            executable.resize(length);
            return FolderOf(FromWide(WithoutLongPrefix(executable)));
        }
        executable.resize(executable.size() * 2);
    }
}

} // namespace tamarind::platform
