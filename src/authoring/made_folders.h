#pragma once

#include "platform/file_system.h"

#include <string>
#include <vector>

namespace tamarind::authoring {

/// Folders that are made one after the other, and taken back together when one of them fails.
class MadeFolders {
public:
    explicit MadeFolders(platform::Files& files) : files_(files) {}

    /// Makes one folder. Errors as Files::CreateFolder; one that is there already is none of ours, and an error.
    void Make(const std::string& path);
    /// Removes, from the last on, those that were made here; what has come into one of them meanwhile keeps it. Returns
    /// the ones that stay.
    [[nodiscard]] std::vector<std::string> TakeBack();

private:
    platform::Files& files_;
    std::vector<std::string> made_;
};

} // namespace tamarind::authoring
