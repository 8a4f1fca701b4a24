#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::platform {

// Paths are UTF-8 text with "\" between folders, on every system; an implementation makes them native. On systems
// whose file names know letter case, a name that does not exist as written is taken in the letter case on disk.
// Every failure is a RuntimeError; its details name the file.

/// What changes when a file is written: compare two stamps to learn whether somebody wrote in between.
struct FileStamp {
    std::int64_t modified = 0; ///< nanoseconds, counted from a moment of the system's own choice
    std::uint64_t size = 0;    ///< bytes
    std::uint64_t identity = 0;
    bool operator==(const FileStamp&) const = default;
};

struct FolderEntry {
    std::string name;
    bool isFolder = false; ///< a link to a folder is none
    bool isLink = false;
    bool isHidden = false; ///< by this system's own custom: an attribute, or a dot in front
};

/// A file open for reading from its start.
class InputFile {
public:
    virtual ~InputFile() = default;
    /// Fills the front of `buffer`; returns the number of bytes, 0 at the end of the file.
    virtual std::size_t Read(std::span<char> buffer) = 0;
};

/// A file open for writing. Destroying it closes it without a report.
class OutputFile {
public:
    virtual ~OutputFile() = default;
    virtual void Write(std::string_view bytes) = 0;
    /// Everything written so far is on the disk when this returns.
    virtual void Flush() = 0;
    virtual void Close() = 0;
};

enum class CreateMode {
    Overwrite, ///< an existing file is emptied and written in place
    New,       ///< an existing name is an error (FileAlreadyExists)
    /// As Overwrite, for a caller that knows the folder: the name is not looked for in other letter case, which in a
    /// folder of thousands of files costs more than the writing.
    AsWritten,
};

/// The only door to the disk.
class Files {
public:
    virtual ~Files() = default;

    // Questions. None of them changes anything.

    /// Whether anything stands under that name: file, folder, or a link that leads nowhere.
    [[nodiscard]] virtual bool EntryExists(const std::string& path) const = 0;
    /// Whether it is an existing folder, or a link to one.
    [[nodiscard]] virtual bool IsFolder(const std::string& path) const = 0;
    /// Nothing when there is no such file.
    [[nodiscard]] virtual std::optional<FileStamp> Stamp(const std::string& path) const = 0;
    /// Errors: FileNotFound, PathNotFound, PermissionDenied, PathAccessError (a folder).
    [[nodiscard]] virtual std::unique_ptr<InputFile> Open(const std::string& path) const = 0;
    /// Sorted by name without regard to letter case; "." and ".." left out.
    [[nodiscard]] virtual std::vector<FolderEntry> List(const std::string& folder) const = 0;
    /// The folders that a list of drives begins with: "C:" and so on, without a backslash; one "\\" where the system
    /// has no drives.
    [[nodiscard]] virtual std::vector<std::string> Drives() const = 0;
    /// The path with every link in it followed; unchanged where there is none or it cannot be followed.
    [[nodiscard]] virtual std::string ResolveLinks(const std::string& path) const = 0;
    /// Whether an existing file refuses to be overwritten in place: it is read-only (on Windows: or hidden or of the
    /// system; elsewhere: or nobody has the right to write it, even where the superuser could). False when missing.
    [[nodiscard]] virtual bool IsWriteProtected(const std::string& path) const = 0;

    // Changes.

    [[nodiscard]] virtual std::unique_ptr<OutputFile> Create(const std::string& path, CreateMode mode) = 0;
    /// Fails with FileAlreadyExists when `to` exists.
    virtual void Rename(const std::string& from, const std::string& to) = 0;
    /// `to` becomes `from` in one step, existing or not; at no moment is it absent or mixed. The new name is on the
    /// disk when this returns.
    virtual void Replace(const std::string& from, const std::string& to) = 0;
    /// A second name for the same file. Fails with FileAlreadyExists when `to` exists, and with PathAccessError where
    /// the file system has no such names.
    virtual void HardLink(const std::string& from, const std::string& to) = 0;
    /// Owner (where allowed), access rights, attributes of `from` given to `to`.
    virtual void CopyAttributes(const std::string& from, const std::string& to) = 0;
    /// Takes the write protection off a file or folder, and on Windows the attributes hidden and system. Does nothing
    /// to a link.
    virtual void MakeWritable(const std::string& path) = 0;
    /// Deletes one file; with `force` a read-only one too. Fails with FileNotFound when there is none.
    virtual void Remove(const std::string& path, bool force = false) = 0;
    virtual void CreateFolder(const std::string& path) = 0;
    /// Deletes one empty folder, or one link to a folder.
    virtual void RemoveFolder(const std::string& path) = 0;
    /// Moves a file or folder to the system's trash, from where people can have it back; a link goes itself, not what
    /// it leads to. False, and nothing changed, where there is no trash for it. Fails with FileNotFound when missing.
    virtual bool MoveToTrash(const std::string& path) = 0;
};

} // namespace tamarind::platform
