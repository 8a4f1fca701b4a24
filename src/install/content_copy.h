#pragma once

#include "install/package_reader.h"
#include "platform/ui.h"

#include <functional>
#include <string>
#include <vector>

namespace tamarind::install {

/// What a copy has done; kept up to date while it runs.
struct CopyResult {
    std::vector<std::string> replaced; ///< paths relative to the target
    std::size_t added = 0;
    std::vector<std::string> failed; ///< a sentence each
    bool isCancelled = false;
};

/// Copies the package's content over the target folder, which is made where it is missing. Shows progress, and can be
/// cancelled between two files. An existing file stays whole until its new content is; a new one that cannot be filled
/// is removed. A file that cannot be copied is passed over, except that PermissionDenied, DiskFull and DeviceIoError,
/// which further files would meet as well, end the copy as errors.
void CopyContentOver(platform::Files& files, platform::UserInterface& ui, const PackageContent& content,
                     const std::string& target, CopyResult& result);

} // namespace tamarind::install
