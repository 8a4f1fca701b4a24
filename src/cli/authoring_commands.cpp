#include "cli/authoring_commands.h"

#include "authoring/blueprint_window.h"
#include "authoring/developer_folders.h"
#include "authoring/loco_clone.h"
#include "authoring/name_rules.h"
#include "cli/prepare.h"
#include "platform/paths.h"

namespace tamarind::cli {

using nlohmann::ordered_json;
using session::BlueprintMode;
using session::EditorContext;

namespace {

/// One path, under its name in the object.
Result PathResult(const char* name, const std::string& path) {
    const std::string native = platform::ToNative(path);
    return {Outcome::Done, ordered_json::object({{name, native}}), native + "\n"};
}

Result MakeBlueprint(EditorContext& context, const Arguments& arguments, BlueprintMode mode) {
    context.session.Authoring.BlueprintFolder = platform::FromNative(arguments.output);
    const authoring::BlueprintWindow window{
        mode, {arguments.name, arguments.texts.at(0), arguments.texts.at(1), std::string(), std::string()}};
    const auto file = authoring::MakeBlueprint(context, window);
    return file ? PathResult("file", *file) : Result{Outcome::Failed};
}

} // namespace

Result MakeNamedBlueprint(EditorContext& context, const Arguments& arguments) {
    return MakeBlueprint(context, arguments, BlueprintMode::NamedMarker);
}

Result MakeSeriesBlueprint(EditorContext& context, const Arguments& arguments) {
    return MakeBlueprint(context, arguments, BlueprintMode::SeriesMarker);
}

Result MakeRouteBlueprint(EditorContext& context, const Arguments& arguments) {
    return MakeBlueprint(context, arguments, BlueprintMode::RouteTemplate);
}

Result MakeDeveloperFolder(EditorContext& context, const Arguments& arguments) {
    FindGame(context, arguments);
    const auto folder = authoring::MakeDeveloperFolder(context, arguments.name);
    return folder ? PathResult("folder", *folder) : Result{Outcome::Failed};
}

Result MakeAddOnFolders(EditorContext& context, const Arguments& arguments) {
    const std::string refusal = authoring::FolderNameRefusal(arguments.name);
    if (!refusal.empty()) {
        context.ui.Show({.text = refusal});
        return {Outcome::Failed};
    }
    const std::string parent = platform::WithoutTrailingBackslash(platform::FromNative(arguments.file));
    const std::string base = parent + "\\" + arguments.name;
    const authoring::AddOn addOn = authoring::MakeAddOn(context, base);
    if (addOn == authoring::AddOn::Failed) return {Outcome::Failed};
    if (addOn == authoring::AddOn::Exists) context.ui.ShowStatus("It exists already: nothing was made.");
    return PathResult("folder", base);
}

Result CheckLoco(EditorContext& context, const Arguments& arguments) {
    const std::string folder = platform::WithoutTrailingBackslash(platform::FromNative(arguments.file));
    if (authoring::AcceptsLoco(context, folder)) return PathResult("folder", folder);
    return {Outcome::Failed, ordered_json::object({{"folder", nullptr}})};
}

} // namespace tamarind::cli
