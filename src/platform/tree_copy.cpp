#include "platform/tree_copy.h"

#include "platform/paths.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <utility>

namespace tamarind::platform {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

std::string Below(const std::string& folder, const std::string& path) {
    if (path.empty()) return folder;
    return folder.ends_with('\\') ? folder + path : folder + "\\" + path;
}

class Lister {
public:
    Lister(const Files& files, const std::string& top)
        : files_(files), top_(top), inside_(WithoutTrailingBackslash(files.ResolveLinks(top)) + "\\") {}

    void List(const std::string& folder, bool isHidden) {
        std::vector<FolderEntry> entries;
        try {
            entries = files_.List(Below(top_, folder));
        } catch (const RuntimeError&) {
            tree.unreadable.push_back(folder);
            return;
        }
        for (const FolderEntry& entry : entries) {
            const std::string path = folder.empty() ? entry.name : Below(folder, entry.name);
            const bool hidden = isHidden || entry.isHidden;
            if (entry.isFolder) {
                tree.folders.push_back(path);
                List(path, hidden);
            } else if (entry.isLink && !IsFileInside(path)) {
                tree.links.push_back(path);
            } else {
                tree.files.push_back({path, hidden});
            }
        }
    }

    Tree tree;

private:
    bool IsFileInside(const std::string& path) const {
        const std::string link = Below(top_, path);
        return files_.Stamp(link) && text::StartsWithNoCase(files_.ResolveLinks(link), inside_);
    }

    const Files& files_;
    std::string top_;
    std::string inside_; ///< how every real path inside begins
};

void MakeFolders(Files& files, const std::string& folder) {
    if (folder.empty() || files.IsFolder(folder)) return;
    MakeFolders(files, FolderOf(folder));
    files.CreateFolder(folder);
}

void RemoveHalf(Files& files, const std::string& path) {
    try {
        files.Remove(path, true);
    } catch (const RuntimeError&) {
        return; // the failure that left it is being reported
    }
}

} // namespace

Tree ListTree(const Files& files, const std::string& folder) {
    Lister lister(files, folder);
    lister.List({}, false);
    return std::move(lister.tree);
}

void EntryNames::Enter(const std::string& folder) {
    if (folder_ == folder) return;
    folder_.reset();
    names_.clear();
    for (const FolderEntry& entry : files_.List(Below(target_, folder)))
        Add(entry.name);
    folder_ = folder;
}

std::pair<std::string, bool> EntryNames::Find(const std::string& name) const {
    const auto found = names_.find(text::ToLower(name));
    const bool exists = found != names_.end();
    return {Below(Below(target_, folder_.value_or("")), exists ? found->second : name), exists};
}

void EntryNames::Add(const std::string& name) { names_.emplace(text::ToLower(name), name); }

TreeCopier::TreeCopier(Files& files, const std::string& from, std::string to)
    : files_(files), from_(WithoutTrailingBackslash(files.ResolveLinks(from))), to_(std::move(to)), names_(files, to_),
      buffer_(kBlock, '\0') {}

void TreeCopier::MakeFolder(const std::string& path) { MakeFolders(files_, Below(to_, path)); }

void TreeCopier::Copy(const std::string& path) {
    const std::string source = Below(from_, path);
    const std::unique_ptr<InputFile> file = files_.Open(source);
    const std::string folder = FolderOf(path);
    if (made_ != folder) MakeFolder(folder);
    made_ = folder;
    names_.Enter(folder);
    const auto [target, exists] = names_.Find(NameOf(path));
    if (exists && files_.IsFolder(target)) throw RuntimeError(ErrorNumber::PathAccessError, target);
    if (exists && files_.IsWriteProtected(target)) throw RuntimeError(ErrorNumber::PermissionDenied, target);
    Fill(*file, target);
    names_.Add(NameOf(path));
}

void TreeCopier::Fill(InputFile& source, const std::string& target) {
    std::unique_ptr<OutputFile> sink = files_.Create(target, CreateMode::AsWritten);
    try {
        while (const std::size_t count = source.Read(buffer_))
            sink->Write(std::string_view(buffer_).substr(0, count));
        sink->Close();
    } catch (...) {
        sink.reset(); // some systems do not remove an open file
        RemoveHalf(files_, target);
        throw;
    }
}

} // namespace tamarind::platform
