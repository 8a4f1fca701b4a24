#include "platform/windows/recycle_bin.h"

#include "platform/windows/wide.h"

#include <windows.h>

#include <shellapi.h>

namespace tamarind::platform {

bool MoveToRecycleBin(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        ThrowSystemError(GetLastError(), path);
    }
    std::wstring names = ToWide(path);
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 || names.size() >= MAX_PATH) {
        return false;
    }
    names += L'\0'; // a list of names, ended by an empty one
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = names.c_str();
    operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    if (SHFileOperationW(&operation) != 0 || operation.fAnyOperationsAborted != FALSE) {
        ThrowSystemError(ERROR_ACCESS_DENIED, path); // the shell's own codes say no more
    }
    return true;
}

} // namespace tamarind::platform
