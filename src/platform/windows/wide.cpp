#include "platform/windows/wide.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <windows.h>

namespace tamarind::platform {
namespace {

using text::ErrorNumber;

// Folders may be no longer than 248 characters, so that a file with a short name still fits in.
constexpr std::size_t kLongestPlainPath = 240;
constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongNetworkPrefix = L"\\\\?\\UNC\\";

std::wstring FullPath(const std::wstring& path) {
    std::wstring full(std::max<std::size_t>(path.size() + 2, MAX_PATH), L'\0');
    for (;;) {
        const DWORD size = GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (size == 0) {
            return path;
        }
        const bool fits = size < full.size();
        full.resize(size);
        if (fits) {
            return full;
        }
    }
}

ErrorNumber NumberOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND: return ErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY: return ErrorNumber::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE: return ErrorNumber::PermissionDenied;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return ErrorNumber::FileAlreadyExists;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_NOT_ENOUGH_QUOTA: return ErrorNumber::DiskFull;
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND: return ErrorNumber::DeviceIoError;
    default: return ErrorNumber::PathAccessError;
    }
}

} // namespace

std::wstring ToWide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), size);
    return wide;
}

std::string FromWide(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::wstring SystemPath(const std::string& path) {
    std::wstring wide = ToWide(path);
    if (wide.size() < kLongestPlainPath || wide.starts_with(kLongPrefix)) {
        return wide;
    }
    const std::wstring full = FullPath(wide);
    if (full.starts_with(L"\\\\")) {
        return std::wstring(kLongNetworkPrefix) + full.substr(2);
    }
    return std::wstring(kLongPrefix) + full;
}

std::wstring WithoutLongPrefix(const std::wstring& path) {
    if (path.starts_with(kLongNetworkPrefix)) {
        return L"\\\\" + path.substr(kLongNetworkPrefix.size());
    }
    return path.starts_with(kLongPrefix) ? path.substr(kLongPrefix.size()) : path;
}

void ThrowSystemError(unsigned long error, const std::string& path) { throw text::RuntimeError(NumberOf(error), path); }

} // namespace tamarind::platform
