#pragma once

#include "cli/commands.h"
#include "routes/route_window.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace tamarind::cli {

[[nodiscard]] Outcome OutcomeOf(routes::Ended ended);

/// The routes window of one command, with its routes loaded.
struct Catalogue {
    explicit Catalogue(session::EditorContext& editor, const Arguments& arguments);

    /// Chooses the route with that id, or else the only one with that name. Otherwise the person is told: false.
    bool FindRoute(const std::string& typed);
    /// The index of the scenario with that id or name among those listed. Otherwise the person is told.
    [[nodiscard]] std::optional<std::size_t> FindScenario(const std::string& typed);
    /// Chooses the route, lists its scenarios and chooses one of them.
    bool FindScenario(const Arguments& arguments);

    session::EditorContext& context;
    routes::RouteWindow window;
    std::array<std::size_t, 1> route{};
    std::array<std::size_t, 1> scenario{};
};

} // namespace tamarind::cli
