#include "platform/windows/security.h"

#include <vector>
#include <windows.h>

namespace tamarind::platform {
namespace {

void CopyPart(const std::wstring& source, const std::wstring& target, SECURITY_INFORMATION part) {
    DWORD size = 0;
    GetFileSecurityW(source.c_str(), part, nullptr, 0, &size);
    std::vector<unsigned char> descriptor(size);
    if (size > 0 && GetFileSecurityW(source.c_str(), part, descriptor.data(), size, &size) != 0) {
        SetFileSecurityW(target.c_str(), part, descriptor.data());
    }
}

} // namespace

void CopySecurity(const std::wstring& source, const std::wstring& target) {
    // One by one: only administrators may give a file to somebody else, everybody may set the access list.
    CopyPart(source, target, OWNER_SECURITY_INFORMATION);
    CopyPart(source, target, GROUP_SECURITY_INFORMATION);
    CopyPart(source, target, DACL_SECURITY_INFORMATION);
}

} // namespace tamarind::platform
