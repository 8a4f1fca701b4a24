#pragma once

#include <string>
#include <string_view>

/// UTF-8 program text as the system's UTF-16, and its errors as ours.
namespace tamarind::platform {

/// A byte that is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring ToWide(std::string_view text);
/// A lone surrogate, which a file name may hold, becomes U+FFFD.
[[nodiscard]] std::string FromWide(std::wstring_view text);

/// The path for a system call: long ones get the prefix that lifts the limit of 260 characters.
[[nodiscard]] std::wstring SystemPath(const std::string& path);
/// A path from the system without that prefix.
[[nodiscard]] std::wstring WithoutLongPrefix(const std::wstring& path);

/// Throws the RuntimeError that belongs to a system error code; its details name `path`.
[[noreturn]] void ThrowSystemError(unsigned long error, const std::string& path);

} // namespace tamarind::platform
