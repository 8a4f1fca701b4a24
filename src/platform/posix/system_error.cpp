#include "platform/posix/system_error.h"

#include "platform/paths.h"
#include "platform/posix/native_path.h"
#include "text/runtime_error.h"

#include <cerrno>
#include <optional>
#include <sys/stat.h>

namespace tamarind::platform {
namespace {

using text::ErrorNumber;

bool ParentIsFolder(const std::string& path) {
    const std::string trimmed = WithoutTrailingBackslash(path);
    if (trimmed.find('\\') == std::string::npos) {
        return !HasDrive(path); // in the current folder
    }
    const std::optional<std::string> parent = NativePath(FolderOf(trimmed) + "\\");
    struct stat status = {};
    return parent && stat(parent->c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

ErrorNumber NumberOf(int error, const std::string& path) {
    switch (error) {
    case ENOENT: return ParentIsFolder(path) ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound;
    case ENOTDIR: return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case ETXTBSY: return ErrorNumber::PermissionDenied;
    case EEXIST: return ErrorNumber::FileAlreadyExists;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return ErrorNumber::DiskFull;
    case EIO: return ErrorNumber::DeviceIoError;
    default: return ErrorNumber::PathAccessError;
    }
}

} // namespace

void ThrowSystemError(int error, const std::string& path) { throw text::RuntimeError(NumberOf(error, path), path); }

} // namespace tamarind::platform
