#pragma once

#include "platform/file_system.h"

#include <map>
#include <set>
#include <string>

namespace tamarind::tests {

/// A disk in memory: paths as written (letter case counts) to bytes. A path without "\" needs no folder; any other
/// needs its folder in `folders`.
class MemoryFiles : public platform::Files {
public:
    std::map<std::string, std::string> contents;
    std::set<std::string> folders;
    std::set<std::string> readOnly;
    std::vector<std::string> drives = {"C:"};

    [[nodiscard]] bool EntryExists(const std::string& path) const override;
    [[nodiscard]] bool IsFolder(const std::string& path) const override;
    [[nodiscard]] std::optional<platform::FileStamp> Stamp(const std::string& path) const override;
    [[nodiscard]] std::unique_ptr<platform::InputFile> Open(const std::string& path) const override;
    [[nodiscard]] std::vector<platform::FolderEntry> List(const std::string& folder) const override;
    [[nodiscard]] std::vector<std::string> Drives() const override { return drives; }
    [[nodiscard]] std::string ResolveLinks(const std::string& path) const override;
    [[nodiscard]] bool IsWriteProtected(const std::string& path) const override;

    [[nodiscard]] std::unique_ptr<platform::OutputFile> Create(const std::string& path,
                                                               platform::CreateMode mode) override;
    void Rename(const std::string& from, const std::string& to) override;
    void Replace(const std::string& from, const std::string& to) override;
    /// The second name starts with the same bytes; later changes are not shared.
    void HardLink(const std::string& from, const std::string& to) override;
    void CopyAttributes(const std::string& from, const std::string& to) override;
    void MakeWritable(const std::string& path) override;
    void Remove(const std::string& path, bool force = false) override;
    void CreateFolder(const std::string& path) override;
    void RemoveFolder(const std::string& path) override;
    /// Keeps a file or folder with all that is in it in `trash`, if there is one.
    bool MoveToTrash(const std::string& path) override;

    bool hasTrash = false;
    std::map<std::string, std::string> trash; ///< files under their old paths
};

} // namespace tamarind::tests
