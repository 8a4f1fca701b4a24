#pragma once

#include "platform/file_system.h"

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace tamarind::tests {

/// What goes wrong at one change of the disk.
enum class FaultKind {
    NoSpace,
    IoError,
    AccessDenied,
    ShortWrite, ///< half of the bytes are written, then the disk is full; at any other operation as NoSpace
    Stop,       ///< the program ends there, at once; a write is half done then
};

struct Fault {
    int at = 0; ///< number of the change, from 1; 0 is never
    FaultKind kind = FaultKind::NoSpace;
    bool forever = false; ///< else once
};

/// The exit code of a program that a fault stopped.
inline constexpr int kStoppedByFault = 77;

/// A disk that passes everything on to another one, counts the changes, and lets one of them (or all from that one
/// on) fail. Questions are passed on uncounted.
class FaultyFiles : public platform::Files {
public:
    explicit FaultyFiles(platform::Files& inner, Fault fault = {}) : inner_(inner), fault_(fault) {}

    /// The changes asked for so far, such as "Write", in order.
    [[nodiscard]] std::vector<std::string> Changes() const;
    /// Whether a change has failed.
    [[nodiscard]] bool HasStruck() const;

    [[nodiscard]] bool EntryExists(const std::string& path) const override { return inner_.EntryExists(path); }
    [[nodiscard]] bool IsFolder(const std::string& path) const override { return inner_.IsFolder(path); }
    [[nodiscard]] std::optional<platform::FileStamp> Stamp(const std::string& path) const override {
        return inner_.Stamp(path);
    }
    [[nodiscard]] std::unique_ptr<platform::InputFile> Open(const std::string& path) const override {
        return inner_.Open(path);
    }
    [[nodiscard]] std::vector<platform::FolderEntry> List(const std::string& folder) const override {
        return inner_.List(folder);
    }
    [[nodiscard]] std::vector<std::string> Drives() const override { return inner_.Drives(); }
    [[nodiscard]] std::string ResolveLinks(const std::string& path) const override { return inner_.ResolveLinks(path); }
    [[nodiscard]] bool IsWriteProtected(const std::string& path) const override {
        return inner_.IsWriteProtected(path);
    }

    [[nodiscard]] std::unique_ptr<platform::OutputFile> Create(const std::string& path,
                                                               platform::CreateMode mode) override;
    void Rename(const std::string& from, const std::string& to) override;
    void Replace(const std::string& from, const std::string& to) override;
    void HardLink(const std::string& from, const std::string& to) override;
    void CopyAttributes(const std::string& from, const std::string& to) override;
    void MakeWritable(const std::string& path) override;
    void Remove(const std::string& path, bool force) override;
    void CreateFolder(const std::string& path) override;
    void RemoveFolder(const std::string& path) override;
    /// Into the folder `trash`; never into the system's own.
    bool MoveToTrash(const std::string& path) override;

    std::string trash; ///< empty: there is none

private:
    class File;
    /// Counts a change; throws or stops when it is its turn. `half` does half of a write.
    void Change(const char* name, const std::string& path, const std::function<void()>& half = {});

    platform::Files& inner_;
    Fault fault_;
    mutable std::mutex mutex_; // outside work may run beside the user interface
    std::vector<std::string> changes_;
    bool hasStruck_ = false;
};

} // namespace tamarind::tests
