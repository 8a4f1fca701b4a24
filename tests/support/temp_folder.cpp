#include "support/temp_folder.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"

#include <filesystem>
#include <random>

namespace tamarind::tests {
namespace {

void MakeFolders(platform::Files& files, const std::string& folder) {
    if (!files.IsFolder(folder)) {
        MakeFolders(files, platform::FolderOf(folder));
        files.CreateFolder(folder);
    }
}

} // namespace

TempFolder::TempFolder() : files_(platform::MakeFiles()) {
    const std::u8string base = std::filesystem::temp_directory_path().u8string();
    const std::string folder = platform::FromNative(std::string(base.begin(), base.end()));
    std::random_device random;
    path_ = platform::WithoutTrailingBackslash(folder) + "\\tamarind-test-" + std::to_string(random()) + "-" +
            std::to_string(random());
    files_->CreateFolder(path_);
}

TempFolder::~TempFolder() { platform::DelAll(*files_, path_); }

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
    std::string path = *this / name;
    MakeFolders(*files_, platform::FolderOf(path));
    const auto file = files_->Create(path, platform::CreateMode::Overwrite);
    file->Write(bytes);
    file->Close();
    return path;
}

std::string TempFolder::MakeFolder(std::string_view name) const {
    MakeFolders(*files_, *this / name);
    return *this / name;
}

std::string TempFolder::Read(std::string_view name) const { return platform::ReadBytes(*files_, *this / name); }

std::vector<std::string> TempFolder::Names(std::string_view folder) const {
    std::vector<std::string> names;
    for (const platform::FolderEntry& entry : files_->List(folder.empty() ? path_ : *this / folder)) {
        names.push_back(entry.name);
    }
    return names;
}

} // namespace tamarind::tests
