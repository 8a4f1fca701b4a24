#pragma once

#include <utility>
#include <windows.h>

namespace tamarind::platform {

/// Owns a system handle; INVALID_HANDLE_VALUE is none.
class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (IsOpen()) {
            CloseHandle(handle_);
        }
    }
    Handle(Handle&& other) noexcept : handle_(other.Release()) {}
    Handle& operator=(Handle&&) = delete;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    [[nodiscard]] HANDLE Get() const { return handle_; }
    [[nodiscard]] bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE && handle_ != nullptr; }
    HANDLE Release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

private:
    HANDLE handle_;
};

} // namespace tamarind::platform
