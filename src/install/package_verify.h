#pragma once

#include "install/package_reader.h"
#include "platform/file_system.h"

#include <string>
#include <vector>

namespace tamarind::install {

struct PackageRecord {
    std::string id;
    std::string name; ///< English, as it stands
};

/// What a package is and holds, and everything about it that is missing or odd.
struct PackageReport {
    InstallMode mode = InstallMode::Assets;
    std::vector<PackageRecord> records;
    std::vector<PackageContent::File> files; ///< paths from "Rail Simulator\" on
    std::vector<std::string> problems;       ///< a sentence each
};

/// Looks at a package without changing or installing anything.
[[nodiscard]] PackageReport VerifyPackage(const platform::Files& files, const std::string& packageFolder);

} // namespace tamarind::install
