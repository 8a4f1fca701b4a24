#include "routes/content_scan.h"

#include "platform/converter_batch.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "routes/references.h"
#include "routes/working_files.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

namespace tamarind::routes {

using session::EditorContext;
using text::RuntimeError;

namespace {

constexpr const char* kLineEnd = "\r\n";

/// Whether a converted file can be XML at all: the first character that is no blank begins a tag.
bool BeginsAsXml(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    const std::size_t first = bytes.find_first_not_of(" \t\r\n");
    return first != std::string_view::npos && bytes[first] == '<';
}

/// A working copy; unlike other copies it need not survive a loss of power.
void CopyToTempFiles(platform::Files& files, const std::string& from, const std::string& to) {
    const auto copy = files.Create(to, platform::CreateMode::Overwrite);
    platform::CopyContent(files, from, *copy);
    copy->Close();
}

} // namespace

ContentScan::ContentScan(EditorContext& context, ScanProgress& progress, std::size_t jobs)
    : context_(context), files_(context.platform.files), progress_(progress), jobs_(jobs),
      assets_(context.platform.files, context.session.RailSimPath) {}

void ContentScan::Guard(const char* routine, const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        progress_.End();
        std::string text = fmt::format("An error occurred in {}\r\n{}", routine, error.Description());
        if (!error.Details().empty()) text += kLineEnd + platform::ForDisplay(error.Details());
        context_.ui.Show({.text = text});
    }
}

ContentScan::Folder ContentScan::ListFiles(const std::string& path) const {
    Folder folder{path, {}};
    for (platform::FolderEntry& entry : files_.List(path)) {
        if (!entry.isFolder && !files_.IsFolder(path + "\\" + entry.name))
            folder.names.push_back(std::move(entry.name));
    }
    return folder;
}

void ContentScan::ScanBlueprintRefs(std::span<const std::string> folders) {
    constexpr const char* kRoutine = "ScanBlueprintRefs";
    // Listed beforehand, so that the number of files is known from the start.
    std::vector<Folder> found;
    for (const std::string& path : folders) {
        if (!platform::FolderExists(files_, path)) continue;
        Guard(kRoutine, [&] { found.push_back(ListFiles(path)); });
    }
    for (const Folder& folder : found)
        progress_.Expect(folder.names.size());
    for (std::size_t i = 0; i < found.size() && !progress_.IsCancelled(); ++i) {
        Guard(kRoutine, [&] {
            if (i > 0) ClearTempFiles(context_);
            ScanFolder(found[i]);
        });
    }
}

void ContentScan::ScanFolder(const Folder& folder) {
    std::vector<std::string> paths;
    for (const std::string& name : folder.names)
        paths.push_back(folder.path + "\\" + name);
    Convert(paths, false, [&](std::size_t index, std::string_view xml) {
        const TileScan scan = ScanTile(xml);
        for (const BlueprintReference& reference : scan.references) {
            TakeReference(text::FromCodePage(reference.provider), text::FromCodePage(reference.product),
                          text::FromCodePage(reference.path));
        }
        if (scan.isCutOff) unreadable.push_back(paths[index]);
    });
}

std::string ContentScan::AssetName(const std::string& provider, const std::string& product,
                                   const std::string& path) const {
    return context_.session.RailSimPath + "\\Assets\\" + provider + "\\" + product + "\\" + path;
}

// A reference that is missing at first reaches the list only when decoding changed it and it is missing still.
void ContentScan::TakeReference(const std::string& provider, const std::string& product, const std::string& path) {
    const std::string name = AssetName(provider, product, path);
    if (const auto& existing = assets_.Find(name)) {
        ShapeList.push_back(*existing);
        return;
    }
    std::string decodedProvider = provider;
    std::string decodedProduct = product;
    std::string decodedPath = path;
    bool isDecoded = DecodeEntities(decodedProvider);
    isDecoded = DecodeEntities(decodedProduct) || isDecoded;
    isDecoded = DecodeEntities(decodedPath) || isDecoded;
    if (!isDecoded) {
        MissingText += name + kLineEnd;
        return;
    }
    const std::string decoded = AssetName(decodedProvider, decodedProduct, decodedPath);
    if (assets_.Find(decoded)) return;
    MissingText += decoded + kLineEnd;
    ShapeList.push_back(decoded);
}

void ContentScan::CheckShapes(const std::vector<std::string>& blueprints) {
    std::vector<Blueprint> found(blueprints.size());
    Guard("CheckShapes", [&] {
        std::vector<std::string> paths;
        std::vector<std::size_t> owners;
        for (std::size_t i = 0; i < blueprints.size(); ++i) {
            if (assets_.Find(blueprints[i])) {
                paths.push_back(blueprints[i]);
                owners.push_back(i);
            } else {
                found[i].missing = "Shape file missing:-  " + blueprints[i] + kLineEnd;
            }
        }
        progress_.Expect(paths.size());
        Convert(paths, false,
                [&](std::size_t index, std::string_view xml) { TakeBlueprint(found[owners[index]], xml); });
        if (!progress_.IsCancelled()) ReadShapes(found);
    });
    for (const Blueprint& blueprint : found)
        Report(blueprint);
}

void ContentScan::TakeBlueprint(Blueprint& blueprint, std::string_view xml) {
    for (const std::string& raw : ScanGeometryIds(xml)) {
        const std::string name = text::FromCodePage(raw);
        if (const auto& shape = assets_.Find(context_.session.RailSimPath + "\\Assets\\" + name + ".GeoPcDx")) {
            blueprint.shape = *shape;
            return;
        }
        blueprint.missing += name + kLineEnd;
    }
}

/// Each shape once, however many blueprints use it.
void ContentScan::ReadShapes(const std::vector<Blueprint>& blueprints) {
    std::vector<std::string> shapes;
    for (const Blueprint& blueprint : blueprints) {
        if (!blueprint.shape.empty() && texturesOfShape_.try_emplace(blueprint.shape).second) {
            shapes.push_back(blueprint.shape);
        }
    }
    progress_.Expect(shapes.size());
    Convert(shapes, true, [&](std::size_t index, std::string_view xml) {
        ShapeScan scan = ScanShape(xml);
        texturesOfShape_[shapes[index]] = std::move(scan.textures);
        if (scan.isCutOff) unreadable.push_back(shapes[index]);
    });
}

void ContentScan::Report(const Blueprint& blueprint) {
    MissingText += blueprint.missing;
    const auto found = texturesOfShape_.find(blueprint.shape);
    if (found == texturesOfShape_.end()) return;
    for (const std::string& reference : found->second) {
        const std::string name =
            TextureFile(context_.session.RailSimPath, blueprint.shape, text::FromCodePage(reference));
        const auto& texture = assets_.Find(name);
        TextureList.push_back(texture.value_or(name));
        if (!texture) MissingText += name + kLineEnd;
    }
}

void ContentScan::Convert(const std::vector<std::string>& paths, bool asCopy, const Take& take) {
    if (paths.empty()) return;
    std::size_t taken = 0;
    platform::ConverterBatch batch;
    batch.count = paths.size();
    batch.jobs = jobs_;
    batch.prepare = [&](std::size_t index, std::size_t lane) {
        const std::string base = WorkingBase(paths[index], lane);
        RemoveWorkingFile(files_, base + "xml");
        if (asCopy) CopyToTempFiles(files_, paths[index], base + "bin");
        return platform::ConverterBatch::Conversion{asCopy ? base + "bin" : paths[index], base + "xml"};
    };
    batch.take = [&](std::size_t index, const platform::ConverterBatch::Conversion& conversion) {
        TakeConverted(paths[index], conversion.xmlPath, index, take);
        if (asCopy) RemoveWorkingFile(files_, conversion.binaryPath);
        taken = index + 1;
        progress_.Count();
    };
    batch.mayGoOn = [&] { return progress_.Show(platform::NameOf(paths[std::min(taken, paths.size() - 1)])); };
    const bool isDone =
        platform::ConvertToXml(context_.platform.processes, context_.ui, context_.ConverterFolders(), batch);
    if (!isDone) progress_.Cancel();
}

/// Conversions that overlap work in folders of their own.
std::string ContentScan::WorkingBase(const std::string& path, std::size_t lane) const {
    std::string folder = context_.session.TempFiles();
    if (jobs_ > 1) {
        folder += fmt::format("\\Conversion{}", lane);
        if (!files_.IsFolder(folder)) files_.CreateFolder(folder);
    }
    return folder + "\\" + platform::BaseNameWithDot(platform::NameOf(path));
}

void ContentScan::TakeConverted(const std::string& path, const std::string& xmlPath, std::size_t index,
                                const Take& take) {
    std::string bytes;
    if (platform::FileExists(files_, xmlPath)) bytes = platform::ReadBytes(files_, xmlPath);
    RemoveWorkingFile(files_, xmlPath);
    if (BeginsAsXml(bytes)) {
        take(index, bytes);
    } else {
        unreadable.push_back(path);
    }
}

} // namespace tamarind::routes
