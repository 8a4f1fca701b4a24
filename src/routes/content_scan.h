#pragma once

#include "routes/assets.h"
#include "routes/scan_progress.h"
#include "session/editor_context.h"

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::routes {

/// The scans of a content check: converts files, several at a time, and collects what they refer to. What it finds is
/// the same, and in the same order, for any number of jobs.
class ContentScan {
public:
    ContentScan(session::EditorContext& context, ScanProgress& progress, std::size_t jobs);

    std::string MissingText;              ///< one missing item a line
    std::vector<std::string> ShapeList;   ///< full names of blueprints, as often as they were found
    std::vector<std::string> TextureList; ///< full names of textures
    std::vector<std::string> unreadable;  ///< files that were no game files, or whose conversion failed

    /// Collects the blueprint references of every file of each folder. Folders that do not exist are passed over.
    /// TempFiles is cleared between the folders.
    void ScanBlueprintRefs(std::span<const std::string> folders);

    /// Checks the shape file of each blueprint, and then the textures of that shape.
    void CheckShapes(const std::vector<std::string>& blueprints);

private:
    struct Folder {
        std::string path;
        std::vector<std::string> names;
    };

    struct Blueprint {
        std::string missing; ///< lines for MissingText
        std::string shape;   ///< full name; empty when there is none
    };

    using Take = std::function<void(std::size_t index, std::string_view xml)>;

    /// Runs one routine; an error that ends it is shown.
    void Guard(const char* routine, const std::function<void()>& body);
    [[nodiscard]] Folder ListFiles(const std::string& path) const;
    void ScanFolder(const Folder& folder);
    void TakeReference(const std::string& provider, const std::string& product, const std::string& path);
    [[nodiscard]] std::string AssetName(const std::string& provider, const std::string& product,
                                        const std::string& path) const;

    void TakeBlueprint(Blueprint& blueprint, std::string_view xml);
    void ReadShapes(const std::vector<Blueprint>& blueprints);
    void Report(const Blueprint& blueprint);

    /// Converts files in their order and hands over the XML of each; one without XML is added to `unreadable`. With
    /// `asCopy` a working copy is converted in the file's place.
    void Convert(const std::vector<std::string>& paths, bool asCopy, const Take& take);
    [[nodiscard]] std::string WorkingBase(const std::string& path, std::size_t lane) const;
    void TakeConverted(const std::string& path, const std::string& xmlPath, std::size_t index, const Take& take);

    session::EditorContext& context_;
    platform::Files& files_;
    ScanProgress& progress_;
    std::size_t jobs_;
    AssetFinder assets_;
    std::map<std::string, std::vector<std::string>> texturesOfShape_; ///< references, by the shape's full name
};

} // namespace tamarind::routes
