#include "cli/commands.h"

#include "cli/authoring_commands.h"
#include "cli/editor_commands.h"
#include "cli/install_commands.h"
#include "cli/marker_commands.h"
#include "cli/package_commands.h"
#include "cli/prepare.h"
#include "cli/report.h"
#include "cli/route_commands.h"
#include "cli/scenario_commands.h"
#include "cli/texture_commands.h"
#include "convert/game_file.h"
#include "editors/document_commands.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <fmt/format.h>

#include <array>
#include <utility>

namespace tamarind::cli {

using nlohmann::ordered_json;
using session::EditorContext;

namespace {

bool OpenGameFile(EditorContext& context, const std::string& file) {
    context.session.CommandFile = platform::FromNative(file);
    context.session.UseCommandFile = true;
    return text::EndsWithNoCase(file, ".TgPcDx") ? convert::OpenTextureFile(context)
                                                 : convert::OpenRailSimFile(context);
}

Result Open(EditorContext& context, const Arguments& arguments) {
    PrepareGame(context, arguments);
    if (!OpenGameFile(context, arguments.file)) return {Outcome::Failed};
    const auto& session = context.session;
    const std::string xml = platform::ToNative(session.TempBase + "xml");
    return {
        Outcome::Done, {{"xml", xml}, {"base", session.FileBaseName}, {"extension", session.RSFileExt}}, xml + "\n"};
}

Result Save(EditorContext& context, const Arguments& arguments) {
    auto& files = context.platform.files;
    // Read first: it may be the file in TempFiles that opening overwrites.
    const std::string xml = text::FromCodePage(platform::ReadBytes(files, platform::FromNative(arguments.xml)));
    PrepareGame(context, arguments);
    OpenGameFile(context, arguments.file);
    context.view.SetEditorText(xml);
    const convert::Saved saved = convert::SaveRailSimFile(context);
    if (!saved.done) return {Outcome::Failed};
    const std::string backup = saved.backup.empty() ? "" : platform::ToNative(saved.backup);
    return {Outcome::Done,
            {{"file", arguments.file}, {"backup", backup.empty() ? ordered_json() : ordered_json(backup)}},
            arguments.file + "\t" + backup + "\n"};
}

bool Load(EditorContext& context, const std::string& xml) {
    context.document.path = platform::FromNative(xml);
    return editors::LoadXmlFile(context);
}

Result Tidy(EditorContext& context, const Arguments& arguments) {
    if (!Load(context, arguments.xml)) return {Outcome::Failed};
    const std::string& written = arguments.output.empty() ? arguments.xml : arguments.output;
    context.document.path = platform::FromNative(written);
    if (!editors::SaveXmlFile(context)) return {Outcome::Failed};
    return {Outcome::Done, ordered_json::object({{"file", written}}), written + "\n"};
}

void AddRow(Result& result, const document::clsNode& node, std::size_t level, bool json) {
    if (json) {
        ordered_json attributes = ordered_json::array();
        for (const auto& attribute : node.NodeAttributes) {
            attributes.push_back(ordered_json::array({attribute.AttribName, attribute.AttribValue}));
        }
        result.json["rows"].push_back({{"key", node.NodeKeyText()},
                                       {"level", level},
                                       {"name", node.NodeName},
                                       {"attributes", std::move(attributes)},
                                       {"characters", node.NodeCharacters}});
        return;
    }
    std::string attributes;
    for (const auto& attribute : node.NodeAttributes) {
        attributes += fmt::format("{}{}=\"{}\"", attributes.empty() ? "" : " ", attribute.AttribName,
                                  OnOneLine(attribute.AttribValue));
    }
    result.lines += fmt::format("{}\t{}\t{}\t{}\t{}\n", node.NodeKeyText(), level, node.NodeName, attributes,
                                OnOneLine(node.NodeCharacters));
}

Result Tree(EditorContext& context, const Arguments& arguments) {
    if (!Load(context, arguments.xml)) return {Outcome::Failed};
    Result result{Outcome::Done, ordered_json::object({{"rows", ordered_json::array()}})};
    document::Walk walk(context.document.document.Top());
    while (const document::clsNode* node = walk.Next())
        AddRow(result, *node, walk.Level(), arguments.json);
    return result;
}

using CommandFunction = Result (*)(EditorContext&, const Arguments&);
constexpr std::array<std::pair<std::string_view, CommandFunction>, 30> kCommands = {
    {{"open", Open},
     {"save", Save},
     {"tidy", Tidy},
     {"tree", Tree},
     {"find", FindRows},
     {"highlight", HighlightFile},
     {"texture export", ExportTextures},
     {"texture import", ImportTextures},
     {"texture preview", PreviewTexture},
     {"markers", ConvertMarkers},
     {"routes", ListRoutes},
     {"scenarios", ListScenarios},
     {"stock", ListStock},
     {"check", CheckRoute},
     {"delete route", DeleteRoute},
     {"delete scenario", DeleteScenario},
     {"scenario show", ShowScenario},
     {"scenario set", SetScenario},
     {"scenario drive", DriveScenario},
     {"package route", PackageRoute},
     {"package scenarios", PackageScenarios},
     {"package assets", PackageAssets},
     {"package verify", VerifyPackage},
     {"install", InstallPackage},
     {"blueprint named", MakeNamedBlueprint},
     {"blueprint series", MakeSeriesBlueprint},
     {"blueprint route", MakeRouteBlueprint},
     {"folders developer", MakeDeveloperFolder},
     {"folders addon", MakeAddOnFolders},
     {"folders loco", CheckLoco}}};

} // namespace

Result RunCommand(EditorContext& context, const Arguments& arguments) {
    for (const auto& [name, command] : kCommands) {
        if (name == arguments.command) return command(context, arguments);
    }
    throw text::RuntimeError(text::ErrorNumber::InvalidProcedureCall, "There is no command " + arguments.command);
}

} // namespace tamarind::cli
