#include "cli/package_commands.h"

#include "cli/catalogue.h"
#include "cli/prepare.h"
#include "install/asset_window.h"
#include "platform/paths.h"
#include "routes/scenario_packaging.h"

#include <array>
#include <vector>

namespace tamarind::cli {

using nlohmann::ordered_json;
using routes::Ended;
using session::EditorContext;

namespace {

Result PackageResult(const routes::Packaged& packaged) {
    if (packaged.ended != Ended::Done) return {OutcomeOf(packaged.ended)};
    const std::string folder = platform::ToNative(packaged.folder);
    return {Outcome::Done, ordered_json::object({{"folder", folder}}), folder + "\n"};
}

} // namespace

Result PackageRoute(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindRoute(arguments.route)) return {Outcome::Failed};
    return PackageResult(routes::PackageRoute(context, catalogue.window, catalogue.route));
}

Result PackageScenarios(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindRoute(arguments.route) || !routes::BeginScenarioPackaging(context)) return {Outcome::Failed};
    if (routes::ListScenarios(context, catalogue.window, catalogue.route) != Ended::Done) return {Outcome::Failed};
    std::vector<std::size_t> scenarios;
    for (const std::string& typed : arguments.files) {
        const auto found = catalogue.FindScenario(typed);
        if (!found) return {Outcome::Failed};
        scenarios.push_back(*found);
    }
    for (const std::size_t scenario : scenarios) {
        const std::array<std::size_t, 1> selected{scenario};
        if (routes::AddToPackage(context, catalogue.window, selected) != Ended::Done) return {Outcome::Failed};
    }
    return PackageResult(routes::ProcessPackage(context, catalogue.window));
}

Result PackageAssets(EditorContext& context, const Arguments& arguments) {
    PrepareGame(context, arguments);
    if (!install::BeginAssetPackaging(context)) return {Outcome::Failed};
    install::AssetWindow window;
    install::LoadAssets(context, window);
    for (const std::string& folder : arguments.files) {
        if (!install::SelectFolder(context, window, platform::FromNative(folder))) return {Outcome::Failed};
        if (install::AddFolder(context, window) != Ended::Done) return {Outcome::Failed};
    }
    return PackageResult(install::ProcessAssets(context, window));
}

} // namespace tamarind::cli
