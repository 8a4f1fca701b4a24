#include "platform/posix/data_home.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>

namespace tamarind::platform {
namespace {

constexpr mode_t kOwnerOnly = 0700;

std::string Variable(const char* name) {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

} // namespace

std::string DataHome() {
    // A relative path in either is to be ignored.
    std::string data = Variable("XDG_DATA_HOME");
    if (data.starts_with('/')) return data;
    const std::string home = Variable("HOME");
    return home.starts_with('/') ? home + "/.local/share" : "";
}

bool MakeOwnFolders(const std::string& folder) {
    if (mkdir(folder.c_str(), kOwnerOnly) == 0) return true;
    if (errno == EEXIST) return true;
    const std::size_t slash = folder.rfind('/');
    if (errno != ENOENT || slash == 0 || slash == std::string::npos) return false;
    return MakeOwnFolders(folder.substr(0, slash)) && mkdir(folder.c_str(), kOwnerOnly) == 0;
}

} // namespace tamarind::platform
