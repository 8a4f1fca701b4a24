#include "install/content_copy.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "platform/tree_copy.h"
#include "routes/scan_progress.h"
#include "text/runtime_error.h"

namespace tamarind::install {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

bool EndsTheCopy(const RuntimeError& error) {
    return error.Code() == ErrorNumber::PermissionDenied || error.Code() == ErrorNumber::DiskFull ||
           error.Code() == ErrorNumber::DeviceIoError;
}

/// `to` names no file, in no letter case. A file that was not there before needs no flush and no second name: nothing
/// is lost when it stays half-written, and thousands of flushes would take longer than the copy.
void CopyNew(platform::Files& files, const std::string& from, const std::string& to) {
    auto file = files.Create(to, platform::CreateMode::AsWritten);
    try {
        platform::CopyContent(files, from, *file);
        file->Close();
    } catch (const RuntimeError&) {
        file.reset(); // some systems do not remove an open file
        try {
            files.Remove(to, true);
        } catch (const RuntimeError&) {
            // The first failure is the one to tell of.
        }
        throw;
    }
}

/// Whether the entry was done; false where it is to be passed over.
template <typename Step> bool PassOver(CopyResult& result, const std::string& path, const Step& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError& error) {
        if (EndsTheCopy(error)) throw;
        result.failed.push_back(platform::ForDisplay(path) + ": " + error.Description());
        return false;
    }
}

} // namespace

void CopyContentOver(platform::Files& files, platform::UserInterface& ui, const PackageContent& content,
                     const std::string& target, CopyResult& result) {
    if (!content.exists) throw RuntimeError(ErrorNumber::PathNotFound, content.root);
    routes::ScanProgress progress(ui, "Installing");
    progress.Expect(content.files.size());
    platform::EntryNames names(files, target);
    const std::string below = target + "\\";
    for (const std::string& path : content.folders) {
        const std::string to = below + path;
        if (!files.IsFolder(to)) PassOver(result, path, [&] { files.CreateFolder(to); });
    }
    for (const PackageContent::File& file : content.files) {
        result.isCancelled = !progress.Show(platform::ForDisplay(file.path));
        if (result.isCancelled) return;
        const std::string from = content.root + "\\" + file.path;
        bool isNew = false;
        const bool isDone = PassOver(result, file.path, [&] {
            names.Enter(platform::FolderOf(file.path));
            const auto [to, exists] = names.Find(platform::NameOf(file.path));
            isNew = !exists;
            isNew ? CopyNew(files, from, to) : platform::CopyFile(files, from, to);
        });
        if (isDone && !isNew) result.replaced.push_back(file.path);
        if (isDone && isNew) {
            ++result.added;
            names.Add(platform::NameOf(file.path));
        }
        progress.Count();
    }
}

} // namespace tamarind::install
