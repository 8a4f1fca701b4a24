#include "cli/route_commands.h"

#include "cli/catalogue.h"
#include "routes/check.h"
#include "routes/deletion.h"
#include "routes/route_window.h"
#include "routes/stock.h"
#include "text/search.h"

#include <utility>
#include <vector>

namespace tamarind::cli {

using nlohmann::ordered_json;
using platform::Answer;
using routes::Ended;
using session::EditorContext;

namespace {

Result Entries(const char* key, const std::vector<std::string>& ids, const std::vector<std::string>& names) {
    Result result{Outcome::Done, ordered_json::object({{key, ordered_json::array()}})};
    for (std::size_t i = 0; i < names.size(); ++i) {
        result.json[key].push_back({{"id", ids[i]}, {"name", names[i]}});
        result.lines += ids[i] + "\t" + names[i] + "\n";
    }
    return result;
}

std::string Lines(const std::vector<std::string>& entries) {
    std::string lines;
    for (const std::string& entry : entries)
        lines += entry + "\n";
    return lines;
}

std::string WithPlainLineEnds(const std::string& text) { return text::ReplaceAll(text, "\r\n", "\n"); }

class CollectedReports : public routes::ReportSink {
public:
    void ShowReport(const std::string& text) override { texts.push_back(text); }
    std::vector<std::string> texts;
};

Result Deleted(Ended ended, const std::string& id) {
    if (ended != Ended::Done) return {OutcomeOf(ended)};
    return {Outcome::Done, ordered_json::object({{"id", id}}), id + "\n"};
}

} // namespace

Result ListRoutes(EditorContext& context, const Arguments& arguments) {
    const Catalogue catalogue(context, arguments);
    return Entries("routes", context.session.Routes.RouteIds, context.session.Routes.RouteNames);
}

Result ListScenarios(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindRoute(arguments.route)) return {Outcome::Failed};
    const Ended ended = routes::ListScenarios(context, catalogue.window, catalogue.route);
    if (ended != Ended::Done) return {OutcomeOf(ended)};
    return Entries("scenarios", context.session.Routes.ScenarioIds, context.session.Routes.ScenarioNames);
}

Result ListStock(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindScenario(arguments)) return {Outcome::Failed};
    const auto list = routes::ListStock(context, catalogue.window, catalogue.scenario);
    if (!list) return {Outcome::Failed};
    const std::string report = routes::MissingStock(context, *list);
    return {Outcome::Done, {{"list", *list}, {"report", report}}, Lines(*list) + WithPlainLineEnds(report)};
}

Result CheckRoute(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindRoute(arguments.route)) return {Outcome::Failed};
    CollectedReports reports;
    const routes::CheckResult checked =
        routes::CheckRoute(context, catalogue.window, catalogue.route, reports, {.jobs = arguments.jobs});
    Result result{OutcomeOf(checked.ended),
                  {{"shapes", checked.shapes},
                   {"textures", checked.textures ? ordered_json(*checked.textures) : ordered_json()},
                   {"reports", reports.texts}}};
    for (const std::string& report : reports.texts)
        result.lines += WithPlainLineEnds(report) + (report.ends_with("\r\n") ? "" : "\n");
    return result;
}

Result DeleteRoute(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindRoute(arguments.route)) return {Outcome::Failed};
    const std::string id = context.session.Routes.RouteIds[catalogue.route.front()];
    return Deleted(routes::DeleteRoute(context, catalogue.window, catalogue.route), id);
}

Result DeleteScenario(EditorContext& context, const Arguments& arguments) {
    Catalogue catalogue(context, arguments);
    if (!catalogue.FindScenario(arguments)) return {Outcome::Failed};
    const std::string id = context.session.Routes.ScenarioIds[catalogue.scenario.front()];
    return Deleted(routes::DeleteScenario(context, catalogue.window, catalogue.scenario), id);
}

std::function<std::optional<Answer>(const platform::Message&)> AnswersByOption(const Arguments& arguments) {
    if (arguments.command != "check") return {};
    const std::vector<std::pair<std::string, bool>> answers = {
        {routes::kShapesQuestion, arguments.listShapes},
        {routes::kCheckTexturesQuestion, arguments.checkTextures},
        {routes::kTexturesQuestion, arguments.listTextures},
    };
    return [answers](const platform::Message& message) -> std::optional<Answer> {
        for (const auto& [question, isYes] : answers) {
            if (message.text == question) return isYes ? Answer::Yes : Answer::No;
        }
        return std::nullopt;
    };
}

} // namespace tamarind::cli
