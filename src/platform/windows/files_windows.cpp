#include "platform/platform.h"
#include "platform/windows/handle.h"
#include "platform/windows/open_files.h"
#include "platform/windows/recycle_bin.h"
#include "platform/windows/security.h"
#include "platform/windows/wide.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <windows.h>

namespace tamarind::platform {
namespace {

constexpr DWORD kProtection = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
// What SetFileAttributesW takes of what GetFileAttributesW gives.
constexpr DWORD kSettable = kProtection | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED |
                            FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_TEMPORARY;

DWORD AttributesOf(const std::wstring& path) { return GetFileAttributesW(path.c_str()); }

bool Has(DWORD attributes, DWORD wanted) {
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == wanted;
}

bool SetAttributes(const std::wstring& path, DWORD attributes) {
    const DWORD settable = attributes & kSettable;
    return SetFileAttributesW(path.c_str(), settable == 0 ? FILE_ATTRIBUTE_NORMAL : settable) != 0;
}

void Check(BOOL succeeded, const std::string& path) {
    if (succeeded == 0) {
        ThrowSystemError(GetLastError(), path);
    }
}

/// The error of an operation on two names: about the first one where that is missing, else about the second.
[[noreturn]] void ThrowForPair(DWORD error, const std::string& from, const std::string& to) {
    ThrowSystemError(error, AttributesOf(SystemPath(from)) == INVALID_FILE_ATTRIBUTES ? from : to);
}

/// Opens a file or folder to ask about it, through links.
Handle OpenToAsk(const std::string& path) {
    return Handle(CreateFileW(SystemPath(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::uint64_t Join(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

/// Whether the path or a folder above it is a link.
bool HoldsLink(const std::string& path) {
    for (std::size_t end = path.size(); end != std::string::npos && end > 0; end = path.rfind('\\', end - 1)) {
        if (Has(AttributesOf(SystemPath(path.substr(0, end))), FILE_ATTRIBUTE_REPARSE_POINT)) {
            return true;
        }
    }
    return false;
}

/// Puts a file in another one's place. Scanners and indexers hold new files open for a moment, so a refusal is not
/// taken at once. Returns the system's error code, 0 for none.
DWORD MoveOver(const std::wstring& source, const std::wstring& target) {
    constexpr int kAttempts = 10;
    constexpr DWORD kPause = 20; // milliseconds
    for (int attempt = 1;; ++attempt) {
        if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            return ERROR_SUCCESS;
        }
        const DWORD error = GetLastError();
        const bool mayPass = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
        if (!mayPass || attempt == kAttempts) {
            return error;
        }
        Sleep(kPause);
    }
}

class WindowsFiles final : public Files {
public:
    bool EntryExists(const std::string& path) const override {
        if (AttributesOf(SystemPath(path)) != INVALID_FILE_ATTRIBUTES) {
            return true;
        }
        const DWORD error = GetLastError();
        return error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
    }

    bool IsFolder(const std::string& path) const override {
        const DWORD attributes = AttributesOf(SystemPath(path));
        if (Has(attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) {
            return OpenToAsk(path).IsOpen(); // a link to a folder that is there
        }
        return Has(attributes, FILE_ATTRIBUTE_DIRECTORY);
    }

    std::optional<FileStamp> Stamp(const std::string& path) const override {
        const Handle file = OpenToAsk(path);
        BY_HANDLE_FILE_INFORMATION information = {};
        if (!file.IsOpen() || GetFileInformationByHandle(file.Get(), &information) == 0 ||
            Has(information.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY)) {
            return std::nullopt;
        }
        FileStamp stamp;
        const FILETIME& written = information.ftLastWriteTime;
        stamp.modified = static_cast<std::int64_t>(Join(written.dwHighDateTime, written.dwLowDateTime)) * 100;
        stamp.size = Join(information.nFileSizeHigh, information.nFileSizeLow);
        stamp.identity = Join(information.nFileIndexHigh, information.nFileIndexLow) ^
                         std::uint64_t{information.dwVolumeSerialNumber} << 32;
        return stamp;
    }

    std::unique_ptr<InputFile> Open(const std::string& path) const override { return OpenInput(path); }

    std::vector<FolderEntry> List(const std::string& folder) const override;
    std::vector<std::string> Drives() const override;
    std::string ResolveLinks(const std::string& path) const override;

    bool IsWriteProtected(const std::string& path) const override {
        const DWORD attributes = AttributesOf(SystemPath(path));
        return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kProtection) != 0;
    }

    std::unique_ptr<OutputFile> Create(const std::string& path, CreateMode mode) override {
        return OpenOutput(path, mode);
    }

    void Rename(const std::string& from, const std::string& to) override {
        if (MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), MOVEFILE_WRITE_THROUGH) == 0) {
            ThrowForPair(GetLastError(), from, to);
        }
    }

    void Replace(const std::string& from, const std::string& to) override;

    void HardLink(const std::string& from, const std::string& to) override {
        const std::wstring source = SystemPath(from);
        // All names of a file share its attributes: a read-only file could not be replaced under one name without
        // losing that attribute under the other.
        if (Has(AttributesOf(source), FILE_ATTRIBUTE_READONLY) && !EntryExists(to)) {
            ThrowSystemError(ERROR_NOT_SUPPORTED, to);
        }
        // Where another program keeps the file from being replaced, it would keep the second name from being removed.
        const Handle replaceable(
            CreateFileW(source.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!replaceable.IsOpen()) {
            ThrowSystemError(GetLastError(), from);
        }
        if (CreateHardLinkW(SystemPath(to).c_str(), source.c_str(), nullptr) == 0) {
            ThrowForPair(GetLastError(), from, to);
        }
    }

    void CopyAttributes(const std::string& from, const std::string& to) override {
        const std::wstring source = SystemPath(from);
        const std::wstring target = SystemPath(to);
        const DWORD attributes = AttributesOf(source);
        if (attributes == INVALID_FILE_ATTRIBUTES) {
            ThrowSystemError(GetLastError(), from);
        }
        CopySecurity(source, target);
        Check(SetAttributes(target, attributes), to);
    }

    void MakeWritable(const std::string& path) override {
        const std::wstring native = SystemPath(path);
        const DWORD attributes = AttributesOf(native);
        if (attributes == INVALID_FILE_ATTRIBUTES) {
            ThrowSystemError(GetLastError(), path);
        }
        if ((attributes & kProtection) != 0 && !Has(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) {
            Check(SetAttributes(native, attributes & ~kProtection), path);
        }
    }

    void Remove(const std::string& path, bool force) override;
    void CreateFolder(const std::string& path) override {
        Check(CreateDirectoryW(SystemPath(path).c_str(), nullptr), path);
    }

    void RemoveFolder(const std::string& path) override {
        const std::wstring native = SystemPath(path);
        const DWORD attributes = AttributesOf(native);
        if (Has(attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) {
            SetAttributes(native, attributes & ~DWORD{FILE_ATTRIBUTE_READONLY}); // on a folder it protects nothing
        }
        Check(RemoveDirectoryW(native.c_str()), path);
    }
    bool MoveToTrash(const std::string& path) override { return MoveToRecycleBin(path); }
};

/// A read-only target is made writable for the moment of the move, because the system refuses to replace it; the
/// attribute comes back on whichever file then stands there.
void WindowsFiles::Replace(const std::string& from, const std::string& to) {
    const std::wstring source = SystemPath(from);
    const std::wstring target = SystemPath(to);
    const DWORD old = AttributesOf(target);
    if (Has(old, FILE_ATTRIBUTE_DIRECTORY)) {
        ThrowSystemError(ERROR_INVALID_NAME, to);
    }
    const bool protectedTarget = Has(old, FILE_ATTRIBUTE_READONLY);
    if (protectedTarget) {
        Check(SetAttributes(target, old & ~DWORD{FILE_ATTRIBUTE_READONLY}), to);
    }
    const DWORD error = MoveOver(source, target);
    if (protectedTarget) {
        SetAttributes(target, AttributesOf(target) | FILE_ATTRIBUTE_READONLY);
    }
    if (error != ERROR_SUCCESS) {
        ThrowForPair(error, from, to);
    }
}

void WindowsFiles::Remove(const std::string& path, bool force) {
    const std::wstring native = SystemPath(path);
    const DWORD attributes = AttributesOf(native);
    if (Has(attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) {
        Check(RemoveDirectoryW(native.c_str()), path); // a link to a folder
        return;
    }
    if (Has(attributes, FILE_ATTRIBUTE_DIRECTORY)) {
        ThrowSystemError(ERROR_INVALID_NAME, path);
    }
    const bool isProtected = Has(attributes, FILE_ATTRIBUTE_READONLY);
    if (force && isProtected) {
        SetAttributes(native, attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    if (DeleteFileW(native.c_str()) == 0) {
        const DWORD error = GetLastError();
        if (force && isProtected) {
            SetAttributes(native, attributes);
        }
        ThrowSystemError(error, path);
    }
}

std::vector<FolderEntry> WindowsFiles::List(const std::string& folder) const {
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW(SystemPath(folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_NOT_FOUND && IsFolder(folder)) {
            return {}; // the root of an empty drive has not even "."
        }
        ThrowSystemError(error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : error, folder);
    }
    std::vector<FolderEntry> entries;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") {
            // Not every reparse point is a link: a folder kept in the cloud is a folder like any other.
            const bool isLink = Has(found.dwFileAttributes, FILE_ATTRIBUTE_REPARSE_POINT) &&
                                IsReparseTagNameSurrogate(found.dwReserved0);
            const bool isFolder = Has(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY) && !isLink;
            const bool isHidden = (found.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
            entries.push_back({FromWide(name), isFolder, isLink, isHidden});
        }
    } while (FindNextFileW(search, &found) != 0);
    const DWORD error = GetLastError();
    FindClose(search);
    if (error != ERROR_NO_MORE_FILES) {
        ThrowSystemError(error, folder);
    }
    std::sort(entries.begin(), entries.end(), [](const FolderEntry& left, const FolderEntry& right) {
        const int order = text::CompareNoCase(left.name, right.name);
        return order != 0 ? order < 0 : left.name < right.name;
    });
    return entries;
}

std::vector<std::string> WindowsFiles::Drives() const {
    std::vector<std::string> drives;
    DWORD mask = GetLogicalDrives();
    for (char letter = 'A'; mask != 0; ++letter, mask >>= 1) {
        if ((mask & 1) != 0) drives.push_back({letter, ':'});
    }
    return drives;
}

/// Paths without links stay as they are: the system's answer would name a mapped drive by its server.
std::string WindowsFiles::ResolveLinks(const std::string& path) const {
    const Handle file = OpenToAsk(path);
    if (!file.IsOpen() || !HoldsLink(path)) {
        return path;
    }
    const DWORD size = GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring resolved(size, L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file.Get(), resolved.data(), size, FILE_NAME_NORMALIZED);
    if (size == 0 || length == 0 || length >= size) {
        return path;
    }
    resolved.resize(length);
    return FromWide(WithoutLongPrefix(resolved));
}

} // namespace

std::unique_ptr<Files> MakeFiles() { return std::make_unique<WindowsFiles>(); }

} // namespace tamarind::platform
