#include "support/memory_files.h"

#include "platform/paths.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <functional>

namespace tamarind::tests {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

[[noreturn]] void Fail(ErrorNumber number, const std::string& path) { throw RuntimeError(number, path); }

/// Reads a few bytes at a time, so that nothing may rely on whole files.
class MemoryInput : public platform::InputFile {
public:
    explicit MemoryInput(std::string bytes) : bytes_(std::move(bytes)) {}
    std::size_t Read(std::span<char> buffer) override {
        const std::size_t length = std::min({buffer.size(), bytes_.size() - position_, std::size_t{4093}});
        std::copy_n(bytes_.data() + position_, length, buffer.data());
        position_ += length;
        return length;
    }

private:
    std::string bytes_;
    std::size_t position_ = 0;
};

class MemoryOutput : public platform::OutputFile {
public:
    explicit MemoryOutput(std::string& bytes) : bytes_(bytes) {}
    void Write(std::string_view bytes) override { bytes_.append(bytes); }
    void Flush() override {}
    void Close() override {}

private:
    std::string& bytes_;
};

bool FolderOfExists(const MemoryFiles& files, const std::string& path) {
    const std::string folder = platform::FolderOf(path);
    return folder.empty() || files.folders.contains(folder);
}

void RequireFile(const MemoryFiles& files, const std::string& path) {
    if (files.IsFolder(path)) {
        Fail(ErrorNumber::PathAccessError, path);
    }
    if (!FolderOfExists(files, path)) {
        Fail(ErrorNumber::PathNotFound, path);
    }
    if (!files.contents.contains(path)) {
        Fail(ErrorNumber::FileNotFound, path);
    }
}

void RequireFree(const MemoryFiles& files, const std::string& path) {
    if (!FolderOfExists(files, path)) {
        Fail(ErrorNumber::PathNotFound, path);
    }
    if (files.EntryExists(path)) {
        Fail(ErrorNumber::FileAlreadyExists, path);
    }
}

} // namespace

bool MemoryFiles::EntryExists(const std::string& path) const { return contents.contains(path) || IsFolder(path); }

bool MemoryFiles::IsFolder(const std::string& path) const {
    return folders.contains(platform::WithoutTrailingBackslash(path));
}

std::optional<platform::FileStamp> MemoryFiles::Stamp(const std::string& path) const {
    const auto found = contents.find(path);
    if (found == contents.end()) {
        return std::nullopt;
    }
    return platform::FileStamp{0, found->second.size(), std::hash<std::string>{}(found->second)};
}

std::unique_ptr<platform::InputFile> MemoryFiles::Open(const std::string& path) const {
    RequireFile(*this, path);
    return std::make_unique<MemoryInput>(contents.at(path));
}

std::vector<platform::FolderEntry> MemoryFiles::List(const std::string& folder) const {
    if (!IsFolder(folder)) {
        Fail(ErrorNumber::PathNotFound, folder);
    }
    const std::string parent = platform::WithoutTrailingBackslash(folder);
    std::vector<platform::FolderEntry> entries;
    for (const auto& [path, bytes] : contents) {
        if (platform::FolderOf(path) == parent) {
            entries.push_back({platform::NameOf(path), false});
        }
    }
    for (const std::string& path : folders) {
        if (path != parent && platform::FolderOf(path) == parent) {
            entries.push_back({platform::NameOf(path), true});
        }
    }
    std::sort(entries.begin(), entries.end(),
              [](const auto& left, const auto& right) { return text::CompareNoCase(left.name, right.name) < 0; });
    return entries;
}

std::string MemoryFiles::ResolveLinks(const std::string& path) const { return path; }

bool MemoryFiles::IsWriteProtected(const std::string& path) const { return readOnly.contains(path); }

std::unique_ptr<platform::OutputFile> MemoryFiles::Create(const std::string& path, platform::CreateMode mode) {
    if (mode == platform::CreateMode::New) {
        RequireFree(*this, path);
    } else if (IsFolder(path)) {
        Fail(ErrorNumber::PathAccessError, path);
    } else if (!FolderOfExists(*this, path)) {
        Fail(ErrorNumber::PathNotFound, path);
    } else if (readOnly.contains(path)) {
        Fail(ErrorNumber::PathAccessError, path);
    }
    std::string& bytes = contents[path];
    bytes.clear();
    return std::make_unique<MemoryOutput>(bytes);
}

void MemoryFiles::Rename(const std::string& from, const std::string& to) {
    RequireFile(*this, from);
    RequireFree(*this, to);
    Replace(from, to);
}

void MemoryFiles::Replace(const std::string& from, const std::string& to) {
    RequireFile(*this, from);
    if (IsFolder(to)) {
        Fail(ErrorNumber::PathAccessError, to);
    }
    auto moved = contents.extract(from);
    const bool wasReadOnly = readOnly.erase(from) > 0;
    contents[to] = std::move(moved.mapped());
    readOnly.erase(to);
    if (wasReadOnly) {
        readOnly.insert(to);
    }
}

void MemoryFiles::HardLink(const std::string& from, const std::string& to) {
    RequireFile(*this, from);
    RequireFree(*this, to);
    contents[to] = contents.at(from);
    CopyAttributes(from, to);
}

void MemoryFiles::CopyAttributes(const std::string& from, const std::string& to) {
    RequireFile(*this, from);
    RequireFile(*this, to);
    if (readOnly.contains(from)) {
        readOnly.insert(to);
    } else {
        readOnly.erase(to);
    }
}

void MemoryFiles::MakeWritable(const std::string& path) { readOnly.erase(path); }

void MemoryFiles::Remove(const std::string& path, bool force) {
    RequireFile(*this, path);
    if (readOnly.contains(path) && !force) {
        Fail(ErrorNumber::PathAccessError, path);
    }
    readOnly.erase(path);
    contents.erase(path);
}

void MemoryFiles::CreateFolder(const std::string& path) {
    const std::string folder = platform::WithoutTrailingBackslash(path);
    RequireFree(*this, folder);
    folders.insert(folder);
}

void MemoryFiles::RemoveFolder(const std::string& path) {
    const std::string folder = platform::WithoutTrailingBackslash(path);
    if (!IsFolder(folder)) {
        Fail(ErrorNumber::PathNotFound, path);
    }
    if (!List(folder).empty()) {
        Fail(ErrorNumber::PathAccessError, path);
    }
    folders.erase(folder);
}

bool MemoryFiles::MoveToTrash(const std::string& path) {
    if (!EntryExists(path)) {
        Fail(ErrorNumber::FileNotFound, path);
    }
    if (!hasTrash) {
        return false;
    }
    const auto isInside = [&path](const std::string& entry) { return entry == path || entry.starts_with(path + "\\"); };
    for (auto file = contents.begin(); file != contents.end();) {
        if (isInside(file->first)) {
            trash.insert(contents.extract(file++));
        } else {
            ++file;
        }
    }
    std::erase_if(folders, isInside);
    return true;
}

} // namespace tamarind::tests
