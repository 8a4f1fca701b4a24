#include "platform/posix/trash.h"

#include "platform/posix/data_home.h"
#include "platform/posix/open_files.h"
#include "platform/posix/system_error.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

// Follows the trash specification of freedesktop.org: "files" holds what was deleted, "info" a note for each.
namespace tamarind::platform {
namespace {

/// The trash folder with all that belongs in it; nothing when there is none on the disk of `device`.
std::optional<std::string> TrashOn(dev_t device) {
    const std::string data = DataHome();
    if (data.empty()) return std::nullopt;
    const std::string trash = data + "/Trash";
    struct stat status = {};
    if (!MakeOwnFolders(trash + "/files") || !MakeOwnFolders(trash + "/info")) return std::nullopt;
    if (stat((trash + "/files").c_str(), &status) != 0 || status.st_dev != device) return std::nullopt;
    return trash;
}

std::string Escaped(std::string_view path) {
    constexpr std::string_view kPlain = "/-_.~ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    std::string escaped;
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            escaped += c;
        } else {
            escaped += fmt::format("%{:02X}", static_cast<unsigned char>(c));
        }
    }
    return escaped;
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local);
    return text.data();
}

/// The path with every link above its last name followed, so that the note is true wherever it is read.
std::string Absolute(const std::string& native) {
    const std::size_t slash = native.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : native.substr(0, slash + 1);
    const std::unique_ptr<char, void (*)(void*)> real(realpath(folder.c_str(), nullptr), &std::free);
    const std::string name = native.substr(slash == std::string::npos ? 0 : slash + 1);
    return (real ? std::string(real.get()) : folder) + "/" + name;
}

bool WriteAll(const Descriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file.Number(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return true;
}

/// Moves `native` into the trash under one name; 0, or the errno of what failed. EEXIST: that name is taken.
int MoveAs(const std::string& native, const std::string& trash, const std::string& name, const std::string& note) {
    constexpr unsigned kNoteRights = 0600;
    const std::string info = trash + "/info/" + name + ".trashinfo";
    const Descriptor file = OpenDescriptor(info, O_WRONLY | O_CREAT | O_EXCL, kNoteRights);
    if (!file.IsOpen()) return errno;
    const bool isMoved = WriteAll(file, note) && renameat2(AT_FDCWD, native.c_str(), AT_FDCWD,
                                                           (trash + "/files/" + name).c_str(), RENAME_NOREPLACE) == 0;
    if (isMoved) return 0;
    const int error = errno;
    unlink(info.c_str());
    return error;
}

} // namespace

bool MoveToNativeTrash(const std::string& native, const std::string& path) {
    struct stat status = {};
    if (lstat(native.c_str(), &status) != 0) ThrowSystemError(errno, path);
    const std::optional<std::string> trash = TrashOn(status.st_dev);
    if (!trash) return false;
    const std::string source = Absolute(native);
    const std::string base = source.substr(source.rfind('/') + 1);
    const std::string note = "[Trash Info]\nPath=" + Escaped(source) + "\nDeletionDate=" + Now() + "\n";
    std::string name = base;
    int error = MoveAs(source, *trash, name, note);
    for (int number = 2; error == EEXIST; ++number) {
        name = fmt::format("{}.{}", base, number);
        error = MoveAs(source, *trash, name, note);
    }
    if (error == EXDEV || error == EINVAL) return false; // another mount of the same disk; the trash inside the folder
    if (error != 0) ThrowSystemError(error, path);
    return true;
}

} // namespace tamarind::platform
