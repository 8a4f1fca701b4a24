#pragma once

#include "install/package_reader.h"
#include "platform/platform.h"
#include "platform/ui.h"

#include <functional>
#include <string>

namespace tamarind::install {

/// The name under which a route's index of scenarios is kept: routeFolder + "\Scenarios.bak", else + 1 to 50, the first
/// that does not exist; empty when all exist.
[[nodiscard]] std::string FreeIndexBackup(const platform::Files& files, const std::string& routeFolder);

/// What the merge of scenarios works with.
struct ScenarioMerge {
    platform::Platform& platform;
    platform::UserInterface& ui;
    const std::string& packageFolder;
    const std::string& gameFolder;
    const ScenarioList& list;
    const std::string& records; ///< the text of "Scenario.zzz"
};

struct MergedIndex {
    std::string backup;  ///< empty where none was made
    std::string problem; ///< why the scenarios are not in the index; empty when they are
};

/// A statement of the installation under its error handler: false when it failed.
using TryStatement = std::function<bool(const std::function<void()>&)>;

/// Converts the route's index, merges the records into its XML beside the installer, keeps the old index under a backup
/// name and converts back. Where that leaves no new index, the old one stands under its name again.
[[nodiscard]] MergedIndex MergeScenarioIndex(const ScenarioMerge& merge, const TryStatement& tryStatement);

} // namespace tamarind::install
