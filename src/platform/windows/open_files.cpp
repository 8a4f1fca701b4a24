#include "platform/windows/open_files.h"

#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

#include <algorithm>

namespace tamarind::platform {
namespace {

constexpr std::size_t kLargestTransfer = 1U << 24; // one call takes a 32-bit size

DWORD TransferSize(std::size_t size) { return static_cast<DWORD>(std::min(size, kLargestTransfer)); }

class WindowsInputFile final : public InputFile {
public:
    WindowsInputFile(Handle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    std::size_t Read(std::span<char> buffer) override {
        DWORD count = 0;
        if (ReadFile(file_.Get(), buffer.data(), TransferSize(buffer.size()), &count, nullptr) == 0) {
            const DWORD error = GetLastError();
            if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) {
                return 0;
            }
            ThrowSystemError(error, path_);
        }
        return count;
    }

private:
    Handle file_;
    std::string path_;
};

class WindowsOutputFile final : public OutputFile {
public:
    WindowsOutputFile(Handle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    void Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD count = 0;
            if (WriteFile(file_.Get(), bytes.data(), TransferSize(bytes.size()), &count, nullptr) == 0) {
                ThrowSystemError(GetLastError(), path_);
            }
            if (count == 0) {
                ThrowSystemError(ERROR_DISK_FULL, path_);
            }
            bytes.remove_prefix(count);
        }
    }

    void Flush() override {
        if (FlushFileBuffers(file_.Get()) == 0) {
            ThrowSystemError(GetLastError(), path_);
        }
    }

    void Close() override {
        if (file_.IsOpen() && CloseHandle(file_.Release()) == 0) {
            ThrowSystemError(GetLastError(), path_);
        }
    }

private:
    Handle file_;
    std::string path_;
};

bool IsFolderPath(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The error of an open that failed; for a folder the system says "access denied" where we promise another number.
[[noreturn]] void ThrowOpenError(const std::wstring& native, const std::string& path) {
    const DWORD error = GetLastError();
    if (path.empty()) {
        ThrowSystemError(ERROR_FILE_NOT_FOUND, path);
    }
    ThrowSystemError(IsFolderPath(native) && error != ERROR_FILE_EXISTS ? ERROR_INVALID_NAME : error, path);
}

} // namespace

std::unique_ptr<InputFile> OpenInput(const std::string& path) {
    const std::wstring native = SystemPath(path);
    Handle file(CreateFileW(native.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) {
        ThrowOpenError(native, path);
    }
    return std::make_unique<WindowsInputFile>(std::move(file), path);
}

std::unique_ptr<OutputFile> OpenOutput(const std::string& path, CreateMode mode) {
    const std::wstring native = SystemPath(path);
    const DWORD disposition = mode == CreateMode::New ? CREATE_NEW : CREATE_ALWAYS;
    Handle file(CreateFileW(native.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, disposition,
                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) {
        ThrowOpenError(native, path);
    }
    return std::make_unique<WindowsOutputFile>(std::move(file), path);
}

} // namespace tamarind::platform
