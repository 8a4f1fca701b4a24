#include "authoring/blueprint_window.h"

#include "authoring/name_rules.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

namespace tamarind::authoring {

using session::BlueprintMode;
using session::EditorContext;

namespace {

constexpr const char* kEnding = ".xml";

void ChooseFolderAndOpen(EditorContext& context, BlueprintMode mode) {
    auto& state = context.session.Authoring;
    state.BlueprintMode = mode;
    state.Folder = session::FolderJob::BlueprintOutput;
    if (context.view.ShowFolderChooser()) context.view.ShowBlueprint();
}

std::string OutputFile(const EditorContext& context, const BlueprintWindow& window) {
    return platform::WithoutTrailingBackslash(context.session.Authoring.BlueprintFolder) + "\\" + window.Text1[0] +
           kEnding;
}

/// Nothing, and the person was told, when the template cannot be read.
std::optional<std::string> ReadTemplate(EditorContext& context, BlueprintMode mode) {
    const auto& files = context.platform.files;
    const std::string path = context.session.ProgramFolder + FormOf(mode).templateFile;
    std::string text;
    try {
        if (!files.Stamp(path)) throw text::RuntimeError(text::ErrorNumber::FileNotFound, path);
        platform::ReadUniFile(files, path, text);
    } catch (const text::RuntimeError& error) {
        context.ui.Show({.text = "The template of the blueprint cannot be read: " + error.Description() + "\r\n" +
                                 platform::ForDisplay(path)});
        return std::nullopt;
    }
    return text;
}

} // namespace

void MakeNamedMarker(EditorContext& context) { ChooseFolderAndOpen(context, BlueprintMode::NamedMarker); }

void MakeSeriesMarker(EditorContext& context) { ChooseFolderAndOpen(context, BlueprintMode::SeriesMarker); }

void MakeRouteTemplate(EditorContext& context) { ChooseFolderAndOpen(context, BlueprintMode::RouteTemplate); }

std::string OutputInWords(const EditorContext& context, const BlueprintWindow& window) {
    if (window.Text1[0].empty()) return {};
    const std::string refusal = FileNameRefusal(window.Text1[0], kEnding);
    if (!refusal.empty()) return refusal;
    const std::string file = OutputFile(context, window);
    const bool isThere = context.platform.files.EntryExists(file);
    return (isThere ? "Replaces " : "Makes ") + platform::ForDisplay(file);
}

std::optional<std::string> MakeBlueprint(EditorContext& context, const BlueprintWindow& window) {
    const std::string refusal = FileNameRefusal(window.Text1[0], kEnding);
    if (!refusal.empty()) {
        context.ui.Show({.text = refusal});
        return std::nullopt;
    }
    const auto text = ReadTemplate(context, window.mode);
    if (!text) return std::nullopt;
    const std::string file = OutputFile(context, window);
    const std::string blueprint = FillTemplate(*text, window.mode, window.Text1);
    if (!platform::WriteUniFile(context.platform.files, context.ui, file, blueprint)) return std::nullopt;
    return file;
}

} // namespace tamarind::authoring
