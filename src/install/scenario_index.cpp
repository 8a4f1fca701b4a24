#include "install/scenario_index.h"

#include "install/scenario_merge.h"
#include "platform/converter.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

#include <optional>

namespace tamarind::install {
namespace {

constexpr int kBackupNames = 50;

/// Where the old index is kept for the moment when no backup name is free.
constexpr const char* kKept = "\\Scenarios.bin.kept";

class IndexMerge {
public:
    IndexMerge(const ScenarioMerge& merge, const TryStatement& tryStatement)
        : merge_(merge), try_(tryStatement), files_(merge.platform.files),
          folder_(merge.gameFolder + "\\Content\\Routes\\" + merge.list.routeFolder),
          index_(folder_ + "\\Scenarios.bin"), xml_(merge.packageFolder + "\\" + kConvertedIndex) {}

    MergedIndex Run() {
        MergedIndex merged;
        if (!ConvertToText()) merged.problem = "The converter made no text of the route's old index.";
        if (merged.problem.empty()) merged.problem = Merge();
        if (merged.problem.empty()) merged.problem = Keep();
        if (!merged.problem.empty()) return merged;
        merged.backup = backup_;
        merged.problem = ConvertBack();
        return merged;
    }

private:
    [[nodiscard]] platform::ConverterFolders Folders() const { return {merge_.packageFolder, merge_.gameFolder}; }

    bool ConvertToText() {
        // An earlier result must not pass for this one.
        if (!try_([&] { MakeRoom(files_, xml_); })) return false;
        platform::ConvertToXml(merge_.platform.processes, merge_.ui, Folders(), index_, xml_);
        return platform::FileExists(files_, xml_);
    }

    /// Why the new text could not be made; empty when it was.
    std::string Merge() {
        std::string text;
        if (!try_([&] { platform::ReadUniFile(files_, xml_, text); })) return "Its text could not be read.";
        try {
            text = MergeScenarios(text, merge_.list.ids, merge_.records);
        } catch (const text::RuntimeError&) {
            return "\"Scenario.zzz\" holds no whole records, or the old index has no place for them.";
        }
        return platform::WriteUniFile(files_, merge_.ui, xml_, text) ? "" : "Its new text could not be written.";
    }

    std::string Keep() {
        const std::string why = "The old index could not be kept.";
        backup_ = FreeIndexBackup(files_, folder_);
        if (!backup_.empty()) return try_([&] { files_.Rename(index_, backup_); }) ? "" : why;
        return try_([&] { platform::CopyFile(files_, index_, folder_ + kKept); }) ? "" : why;
    }

    std::string ConvertBack() {
        const auto before = files_.Stamp(index_);
        // The converter knows by the file which way to go; the word is the same both ways.
        platform::ConvertToXml(merge_.platform.processes, merge_.ui, Folders(), xml_, index_);
        const auto after = files_.Stamp(index_);
        const bool isNew = after && after->size > 0 && after != before;
        const std::string kept = backup_.empty() ? folder_ + kKept : backup_;
        if (!isNew) PutBack(kept);
        if (backup_.empty()) RemoveQuietly(kept);
        return isNew ? "" : "The converter wrote no new index; the old one is in its place.";
    }

    /// The old index under its name again; where there is no room for both, the backup itself.
    void PutBack(const std::string& kept) {
        try {
            platform::CopyFile(files_, kept, index_);
            files_.CopyAttributes(kept, index_);
        } catch (const text::RuntimeError&) {
            if (!platform::FileExists(files_, index_)) try_([&] { files_.Replace(kept, index_); });
        }
    }

    void RemoveQuietly(const std::string& path) {
        try {
            if (platform::FileExists(files_, index_) && files_.EntryExists(path)) files_.Remove(path, true);
        } catch (const text::RuntimeError&) {
            // It only stays beside the index.
        }
    }

    const ScenarioMerge& merge_;
    const TryStatement& try_;
    platform::Files& files_;
    std::string folder_;
    std::string index_;
    std::string xml_;
    std::string backup_;
};

} // namespace

std::string FreeIndexBackup(const platform::Files& files, const std::string& routeFolder) {
    const std::string first = routeFolder + "\\Scenarios.bak";
    std::string name = first;
    for (int number = 1; files.EntryExists(name); ++number) {
        if (number > kBackupNames) return {};
        name = first + std::to_string(number);
    }
    return name;
}

MergedIndex MergeScenarioIndex(const ScenarioMerge& merge, const TryStatement& tryStatement) {
    return IndexMerge(merge, tryStatement).Run();
}

} // namespace tamarind::install
