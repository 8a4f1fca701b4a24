#include "platform/posix/shared_installation.h"

#include "platform/posix/data_home.h"
#include "platform/posix/native_path.h"
#include "platform/posix/system_error.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tamarind::platform {
namespace {

constexpr std::array kBroughtAlong{"BluePrints", "RouteSetup.exe", "Tamarind.chm", "help"};
/// Every installation has it.
constexpr const char* kTerminalProgram = "tamarind-cli";

bool Exists(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0;
}

/// Nothing when the entry is no link.
std::optional<std::string> TargetOf(const std::string& link) {
    std::string target(PATH_MAX, '\0');
    const ssize_t length = readlink(link.c_str(), target.data(), target.size());
    if (length < 0) return std::nullopt;
    target.resize(static_cast<std::size_t>(length));
    return target;
}

/// Whether a link of ours, to an installation that has moved, gone or been followed by another, stands at `link`.
bool IsOutdated(const std::string& link, const std::string& wanted) {
    const std::optional<std::string> target = TargetOf(link);
    if (!target || *target == wanted || !target->starts_with('/')) return false;
    const std::string folder = target->substr(0, target->rfind('/') + 1);
    return !Exists(*target) || Exists(folder + kTerminalProgram);
}

void Link(const std::string& target, const std::string& link) {
    if (symlink(target.c_str(), link.c_str()) == 0) return;
    if (errno != EEXIST) ThrowSystemError(errno, ProgramSpelling(link));
    if (!IsOutdated(link, target)) return;
    // Another run may be doing the same: each has a name of its own, and the last rename holds.
    const std::string fresh = link + "." + std::to_string(getpid());
    if (symlink(target.c_str(), fresh.c_str()) != 0) ThrowSystemError(errno, ProgramSpelling(fresh));
    if (std::rename(fresh.c_str(), link.c_str()) == 0) return;
    const int error = errno;
    unlink(fresh.c_str());
    ThrowSystemError(error, ProgramSpelling(link));
}

} // namespace

bool IsSharedInstallation(const std::string& folder) {
    return Exists(folder + "/" + kSharedMark) || faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) != 0;
}

std::string OwnProgramFolder() {
    const std::string data = DataHome();
    return data.empty() ? "" : data + "/tamarind";
}

void LinkInstalledFiles(const std::string& installation, const std::string& own) {
    if (!MakeOwnFolders(own)) ThrowSystemError(errno, ProgramSpelling(own));
    for (const char* const name : kBroughtAlong) {
        const std::string target = installation + "/" + name;
        if (Exists(target)) Link(target, own + "/" + name);
    }
}

} // namespace tamarind::platform
