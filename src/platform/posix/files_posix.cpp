#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/posix/copy_attributes.h"
#include "platform/posix/native_path.h"
#include "platform/posix/open_files.h"
#include "platform/posix/system_error.h"
#include "platform/posix/trash.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tamarind::platform {
namespace {

/// The native path, or the error for a path that can exist nowhere on this system.
std::string Native(const std::string& path) {
    const std::optional<std::string> native = NativePath(path);
    if (!native) {
        ThrowSystemError(ENOENT, path);
    }
    return *native;
}

bool Look(const std::string& path, struct stat& status) {
    const std::optional<std::string> native = NativePath(path);
    return native && stat(native->c_str(), &status) == 0;
}

void Check(int result, const std::string& path) {
    if (result != 0) {
        ThrowSystemError(errno, path);
    }
}

std::string NativeFolderOf(const std::string& native) {
    const std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? "." : native.substr(0, std::max<std::size_t>(slash, 1));
}

/// 0, or the errno of a folder whose new names could not be brought to the disk.
int SyncFolderOf(const std::string& native) {
    const Descriptor folder = OpenDescriptor(NativeFolderOf(native), O_RDONLY | O_DIRECTORY);
    if (!folder.IsOpen()) {
        return errno == EACCES ? 0 : errno; // a folder that one may write in but not read
    }
    while (fsync(folder.Number()) != 0) {
        if (errno == EINVAL || errno == ENOTSUP || errno == EROFS) {
            return 0; // a file system that has nothing to sync
        }
        if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

/// rename() that never replaces, also on file systems that do not know the flag.
int RenameToNew(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        return -1;
    }
    struct stat status = {};
    if (lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return std::rename(from.c_str(), to.c_str());
}

bool IsFolderItself(const std::string& native) {
    struct stat status = {};
    return lstat(native.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// What an entry is, where the file system's list does not say.
unsigned char KindOf(const dirent& entry, const std::string& folder) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type;
    struct stat status = {};
    if (lstat(std::string(folder).append("/").append(entry.d_name).c_str(), &status) != 0) return DT_UNKNOWN;
    return static_cast<unsigned char>(IFTODT(status.st_mode));
}

/// The error of an operation on two names: about the first one where that is missing, else about the second.
[[noreturn]] void ThrowForPair(int error, const std::string& from, const std::string& to) {
    struct stat status = {};
    ThrowSystemError(error, lstat(Native(from).c_str(), &status) == 0 ? to : from);
}

class PosixFiles final : public Files {
public:
    bool EntryExists(const std::string& path) const override {
        const std::optional<std::string> native = NativePath(path);
        struct stat status = {};
        return native && lstat(native->c_str(), &status) == 0;
    }

    bool IsFolder(const std::string& path) const override {
        struct stat status = {};
        return Look(path, status) && S_ISDIR(status.st_mode);
    }

    std::optional<FileStamp> Stamp(const std::string& path) const override {
        struct stat status = {};
        if (!Look(path, status) || S_ISDIR(status.st_mode)) {
            return std::nullopt;
        }
        FileStamp stamp;
        stamp.modified = status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec;
        stamp.size = static_cast<std::uint64_t>(status.st_size);
        stamp.identity = status.st_ino ^ (status.st_dev << 48);
        return stamp;
    }

    std::unique_ptr<InputFile> Open(const std::string& path) const override { return OpenInput(Native(path), path); }

    std::vector<FolderEntry> List(const std::string& folder) const override;
    std::vector<std::string> Drives() const override { return {"\\"}; }
    std::string ResolveLinks(const std::string& path) const override;

    bool IsWriteProtected(const std::string& path) const override {
        struct stat status = {};
        if (!Look(path, status)) {
            return false;
        }
        const bool nobodyMay = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
        return nobodyMay || faccessat(AT_FDCWD, Native(path).c_str(), W_OK, AT_EACCESS) != 0;
    }

    std::unique_ptr<OutputFile> Create(const std::string& path, CreateMode mode) override {
        if (mode != CreateMode::AsWritten) return OpenOutput(Native(path), path, mode);
        const std::optional<std::string> native = NativePathWithNameAsWritten(path);
        if (!native) ThrowSystemError(ENOENT, path);
        return OpenOutput(*native, path, CreateMode::Overwrite);
    }

    void Rename(const std::string& from, const std::string& to) override {
        const std::string source = Native(from);
        std::string target = Native(to);
        if (target == source) { // only the letter case changes
            target = NativePathWithNameAsWritten(to).value_or(target);
        }
        if (target == source) {
            return;
        }
        if (RenameToNew(source, target) != 0) {
            ThrowForPair(errno, from, to);
        }
    }

    void Replace(const std::string& from, const std::string& to) override {
        const std::string source = Native(from);
        const std::string target = Native(to);
        struct stat status = {};
        if (stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
            ThrowSystemError(EISDIR, to); // never a folder or a device
        }
        Check(std::rename(source.c_str(), target.c_str()), to);
        const int error = SyncFolderOf(target);
        if (error != 0) {
            ThrowSystemError(error, to);
        }
    }

    void HardLink(const std::string& from, const std::string& to) override {
        const std::string source = Native(from);
        const std::string target = Native(to);
        if (link(source.c_str(), target.c_str()) != 0) {
            ThrowForPair(errno == EPERM ? EOPNOTSUPP : errno, from, to); // EPERM: no second names here
        }
        // Only speeds up what the next flush of this folder does anyway, so a failure is none of the caller's.
        static_cast<void>(SyncFolderOf(target));
    }

    void CopyAttributes(const std::string& from, const std::string& to) override {
        CopyNativeAttributes(Native(from), from, Native(to), to);
    }

    void MakeWritable(const std::string& path) override {
        const std::string native = Native(path);
        struct stat status = {};
        Check(lstat(native.c_str(), &status), path);
        if (!S_ISLNK(status.st_mode) && (status.st_mode & S_IWUSR) == 0) {
            Check(chmod(native.c_str(), (status.st_mode | S_IWUSR) & 07777), path);
        }
    }

    void Remove(const std::string& path, bool force) override {
        const std::string native = Native(path);
        if (IsFolderItself(native)) {
            ThrowSystemError(EISDIR, path);
        }
        struct stat status = {};
        if (!force && lstat(native.c_str(), &status) == 0 && S_ISREG(status.st_mode) && IsWriteProtected(path)) {
            ThrowSystemError(EACCES, path);
        }
        Check(unlink(native.c_str()), path);
    }

    void CreateFolder(const std::string& path) override { Check(mkdir(Native(path).c_str(), 0777), path); }

    void RemoveFolder(const std::string& path) override {
        const std::string native = Native(path);
        struct stat status = {};
        if (lstat(native.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && IsFolder(path)) {
            Check(unlink(native.c_str()), path);
            return;
        }
        Check(rmdir(native.c_str()), path);
    }

    bool MoveToTrash(const std::string& path) override { return MoveToNativeTrash(Native(path), path); }
};

std::vector<FolderEntry> PosixFiles::List(const std::string& folder) const {
    const std::string native = Native(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(native.c_str()), &closedir);
    if (!stream) {
        ThrowSystemError(errno == ENOENT ? ENOTDIR : errno, folder);
    }
    std::vector<FolderEntry> entries;
    errno = 0;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is ours alone
    while (const dirent* entry = readdir(stream.get())) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            const unsigned char type = KindOf(*entry, native);
            entries.push_back({ProgramSpelling(name), type == DT_DIR, type == DT_LNK, name.starts_with('.')});
        }
        errno = 0;
    }
    Check(errno, folder);
    std::sort(entries.begin(), entries.end(), [](const FolderEntry& left, const FolderEntry& right) {
        const int order = text::CompareNoCase(left.name, right.name);
        return order != 0 ? order < 0 : left.name < right.name;
    });
    return entries;
}

/// Follows the last link by hand, because realpath() knows no answer for a link that leads nowhere yet.
std::string PosixFiles::ResolveLinks(const std::string& path) const {
    const std::optional<std::string> native = NativePath(path);
    if (!native) {
        return path;
    }
    std::string current = *native;
    for (int follow = 0; follow < 40; ++follow) { // as many as the system itself follows
        const std::unique_ptr<char, void (*)(void*)> real(realpath(current.c_str(), nullptr), &std::free);
        if (real) {
            return ProgramSpelling(real.get());
        }
        char target[PATH_MAX];
        const ssize_t length = readlink(current.c_str(), target, sizeof target);
        if (length <= 0 || length == static_cast<ssize_t>(sizeof target)) {
            return follow == 0 ? path : ProgramSpelling(current);
        }
        const std::string next(target, static_cast<std::size_t>(length));
        current = next.front() == '/' ? next : NativeFolderOf(current).append("/").append(next);
    }
    return path;
}

} // namespace

std::unique_ptr<Files> MakeFiles() { return std::make_unique<PosixFiles>(); }

} // namespace tamarind::platform
