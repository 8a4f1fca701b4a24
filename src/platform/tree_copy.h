#pragma once

#include "platform/file_system.h"

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Folders as a whole: what is in them, and copying many files fast.
namespace tamarind::platform {

/// What stands below a folder. Paths are relative to it, such as "Scenery\a.bin"; a folder comes before its content.
struct Tree {
    struct File {
        std::string path;
        bool isHidden = false; ///< it or a folder above it
        bool operator==(const File&) const = default;
    };
    std::vector<std::string> folders;
    std::vector<File> files;
    /// Links that are not followed: every link to a folder, and those to files outside.
    std::vector<std::string> links;
    std::vector<std::string> unreadable; ///< folders
};

/// Lists a tree; never leaves it. A link to a file inside counts as the file that it is. `folder` itself may be a link,
/// and may be missing, which makes it unreadable (with the empty path).
[[nodiscard]] Tree ListTree(const Files& files, const std::string& folder);

/// What stands in one folder after the other of a target, looked up without regard to letter case. Each folder is read
/// once, where asking the system for every new file's name would read it again and again.
class EntryNames {
public:
    EntryNames(const Files& files, std::string target) : files_(files), target_(std::move(target)) {}

    /// Reads the folder with that path relative to the target, unless it was the last one.
    void Enter(const std::string& folder);
    /// The full path of that name in the folder, as it is on disk where it is there; the second is whether it is.
    [[nodiscard]] std::pair<std::string, bool> Find(const std::string& name) const;
    void Add(const std::string& name);

private:
    const Files& files_;
    std::string target_;
    std::optional<std::string> folder_;        ///< entered last
    std::map<std::string, std::string> names_; ///< in it: in lower case, and as on disk
};

/// Copies files from one folder to another straight into their places, without waiting for the disk: what a power cut
/// takes can be copied again. Existing files are overwritten, whatever the letter case of their names.
class TreeCopier {
public:
    TreeCopier(Files& files, const std::string& from, std::string to);

    /// Makes a folder below the target, and those above it, where they are missing; the empty path is the target.
    void MakeFolder(const std::string& path);
    /// Copies the file of that relative path, making the folders that it needs. A write-protected target is the error
    /// PermissionDenied. On failure no half-written file stays.
    void Copy(const std::string& path);

private:
    void Fill(InputFile& source, const std::string& target);

    Files& files_;
    std::string from_;
    std::string to_;
    EntryNames names_;
    std::optional<std::string> made_; ///< the last folder that was made sure of
    std::string buffer_;
};

} // namespace tamarind::platform
