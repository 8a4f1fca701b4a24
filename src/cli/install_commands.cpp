#include "cli/install_commands.h"

#include "cli/prepare.h"
#include "install/installer.h"
#include "install/package_verify.h"
#include "platform/myfile.h"
#include "platform/paths.h"

#include <fmt/format.h>

namespace tamarind::cli {

using install::Ended;
using install::InstallMode;
using nlohmann::ordered_json;
using session::EditorContext;

namespace {

const char* NameOf(InstallMode mode) {
    switch (mode) {
    case InstallMode::Route: return "route";
    case InstallMode::Scenario: return "scenario";
    case InstallMode::Assets: break;
    }
    return "assets";
}

Outcome OutcomeOf(Ended ended) {
    switch (ended) {
    case Ended::Done: return Outcome::Done;
    case Ended::Incomplete:
    case Ended::Refused: return Outcome::Failed;
    case Ended::Declined:
    case Ended::Cancelled: return Outcome::Declined;
    }
    return Outcome::Failed;
}

/// The package's folder as a path of the program; nothing, and the person is told, where there is none.
std::optional<std::string> PackageFolder(EditorContext& context, const Arguments& arguments) {
    std::string folder = platform::WithoutTrailingBackslash(platform::FromNative(arguments.file));
    // An empty word would be the current folder.
    if (!arguments.file.empty() && platform::FolderExists(context.platform.files, folder)) return folder;
    context.ui.Show({.text = "There is no folder \"" + arguments.file + "\"."});
    return std::nullopt;
}

} // namespace

Result InstallPackage(EditorContext& context, const Arguments& arguments) {
    const auto folder = PackageFolder(context, arguments);
    if (!folder) return {Outcome::Failed};
    FindGame(context, arguments);
    install::Installer installer{context.platform, context.ui, *folder};
    install::LoadInstaller(installer);
    if (!context.session.RailSimPath.empty()) installer.RailSimPath = context.session.RailSimPath;
    for (const std::string& line : install::DescribeInstallation(installer))
        context.ui.ShowStatus(line);
    const Ended ended = install::Install(installer);
    const Outcome outcome = OutcomeOf(ended);
    const bool hasRun = ended == Ended::Done || ended == Ended::Incomplete;
    if (!hasRun) return {outcome};
    const auto mode = static_cast<int>(installer.InstallMode);
    return {outcome, {{"mode", mode}}, fmt::format("{}\t{}\n", mode, NameOf(installer.InstallMode))};
}

Result VerifyPackage(EditorContext& context, const Arguments& arguments) {
    const auto folder = PackageFolder(context, arguments);
    if (!folder) return {Outcome::Failed};
    const install::PackageReport report = install::VerifyPackage(context.platform.files, *folder);
    Result result{report.problems.empty() ? Outcome::Done : Outcome::Failed,
                  {{"kind", NameOf(report.mode)},
                   {"records", ordered_json::array()},
                   {"files", ordered_json::array()},
                   {"problems", report.problems}},
                  fmt::format("kind\t{}\n", NameOf(report.mode))};
    for (const install::PackageRecord& record : report.records) {
        result.json["records"].push_back({{"id", record.id}, {"name", record.name}});
        result.lines += fmt::format("record\t{}\t{}\n", record.id, record.name);
    }
    for (const install::PackageContent::File& file : report.files) {
        const std::string path = platform::ForDisplay(file.path);
        result.json["files"].push_back({{"path", path}, {"size", file.size}});
        result.lines += fmt::format("file\t{}\t{}\n", path, file.size);
    }
    for (const std::string& problem : report.problems)
        result.lines += fmt::format("problem\t{}\n", problem);
    return result;
}

} // namespace tamarind::cli
