#include "platform/posix/copy_attributes.h"

#include "platform/posix/system_error.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace tamarind::platform {
namespace {

/// Access lists, and what other programs keep there. What is refused stays behind: the access rights proper are
/// copied by chmod() and checked.
void CopyExtendedAttributes(const std::string& from, const std::string& to) {
    const ssize_t listSize = listxattr(from.c_str(), nullptr, 0);
    if (listSize <= 0) {
        return;
    }
    std::vector<char> names(static_cast<std::size_t>(listSize) + 1, '\0');
    const ssize_t filled = listxattr(from.c_str(), names.data(), names.size() - 1);
    for (ssize_t at = 0; at < filled;) {
        const char* name = names.data() + at;
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
        const ssize_t size = getxattr(from.c_str(), name, nullptr, 0);
        std::vector<char> value(size > 0 ? static_cast<std::size_t>(size) : 0);
        const ssize_t got = size < 0 ? -1 : getxattr(from.c_str(), name, value.data(), value.size());
        if (got >= 0) {
            static_cast<void>(setxattr(to.c_str(), name, value.data(), static_cast<std::size_t>(got), 0));
        }
    }
}

} // namespace

void CopyNativeAttributes(const std::string& from, const std::string& fromPath, const std::string& to,
                          const std::string& toPath) {
    struct stat source = {};
    struct stat target = {};
    if (stat(from.c_str(), &source) != 0) {
        ThrowSystemError(errno, fromPath);
    }
    if (stat(to.c_str(), &target) != 0) {
        ThrowSystemError(errno, toPath);
    }
    bool ownerKept = source.st_uid == target.st_uid && source.st_gid == target.st_gid;
    if (!ownerKept) {
        ownerKept = chown(to.c_str(), source.st_uid, source.st_gid) == 0;
        // Often the group alone may be given.
        const bool groupKept = ownerKept || chown(to.c_str(), static_cast<uid_t>(-1), source.st_gid) == 0;
        static_cast<void>(groupKept);
    }
    CopyExtendedAttributes(from, to);
    // Rights to run as the owner belong to that owner only.
    const mode_t rights = source.st_mode & (ownerKept ? 07777U : 0777U);
    if (stat(to.c_str(), &target) == 0 && (target.st_mode & 07777) == rights) {
        return; // some file systems refuse even to leave them as they are
    }
    if (chmod(to.c_str(), rights) != 0) {
        ThrowSystemError(errno, toPath);
    }
}

} // namespace tamarind::platform
