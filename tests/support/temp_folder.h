#pragma once

#include "platform/file_system.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::tests {

/// A fresh, empty folder on the real disk, removed with all that is in it at the end of the scope.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// As the program spells it, without a trailing "\".
    [[nodiscard]] const std::string& Path() const { return path_; }
    /// The path of an entry; `name` may hold "\".
    [[nodiscard]] std::string operator/(std::string_view name) const { return path_ + "\\" + std::string(name); }
    [[nodiscard]] platform::Files& Disk() const { return *files_; }

    /// Writes a file, making the folders that it needs; returns its path.
    std::string Write(std::string_view name, std::string_view bytes) const;
    std::string MakeFolder(std::string_view name) const;
    [[nodiscard]] std::string Read(std::string_view name) const;
    /// The names directly inside, in order.
    [[nodiscard]] std::vector<std::string> Names(std::string_view folder = {}) const;

private:
    std::unique_ptr<platform::Files> files_;
    std::string path_;
};

} // namespace tamarind::tests
