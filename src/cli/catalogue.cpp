#include "cli/catalogue.h"

#include "cli/prepare.h"
#include "routes/references.h"
#include "text/code_page.h"
#include "text/search.h"

namespace tamarind::cli {

using routes::Ended;
using session::EditorContext;

namespace {

/// A name as it stands in the index, and as a person would type it.
bool Bears(const std::string& name, const std::string& typed) {
    if (text::EqualNoCase(name, typed)) return true;
    std::string decoded = name;
    routes::DecodeEntities(decoded);
    // Indexes are read as single-byte text; their names may be UTF-8.
    return text::EqualNoCase(decoded, typed) || text::EqualNoCase(text::ToCodePage(decoded), typed);
}

/// The index of the entry with that id, or else of the only one with that name. Otherwise the person is told.
std::optional<std::size_t> FindEntry(EditorContext& context, const char* what, const std::string& typed,
                                     const std::vector<std::string>& ids, const std::vector<std::string>& names) {
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (text::EqualNoCase(ids[i], typed)) return i;
    }
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (Bears(names[i], typed)) found.push_back(i);
    }
    if (found.size() == 1) return found.front();
    const std::string reason =
        found.empty() ? "There is no " + std::string(what) + " \"" + typed + "\"."
                      : "More than one " + std::string(what) + " is called \"" + typed + "\"; please give its id.";
    context.ui.Show({.text = reason});
    return std::nullopt;
}

} // namespace

Outcome OutcomeOf(Ended ended) {
    switch (ended) {
    case Ended::Done: return Outcome::Done;
    case Ended::Failed: return Outcome::Failed;
    case Ended::Declined: return Outcome::Declined;
    }
    return Outcome::Failed;
}

Catalogue::Catalogue(EditorContext& editor, const Arguments& arguments) : context(editor) {
    PrepareGame(context, arguments);
    routes::LoadRoutes(context, window);
}

bool Catalogue::FindRoute(const std::string& typed) {
    const auto& state = context.session.Routes;
    const auto found = FindEntry(context, "route", typed, state.RouteIds, state.RouteNames);
    if (found) route = {*found};
    return found.has_value();
}

std::optional<std::size_t> Catalogue::FindScenario(const std::string& typed) {
    const auto& state = context.session.Routes;
    return FindEntry(context, "scenario", typed, state.ScenarioIds, state.ScenarioNames);
}

bool Catalogue::FindScenario(const Arguments& arguments) {
    if (!FindRoute(arguments.route) || routes::ListScenarios(context, window, route) != Ended::Done) return false;
    const auto found = FindScenario(arguments.scenario);
    if (found) scenario = {*found};
    return found.has_value();
}

} // namespace tamarind::cli
