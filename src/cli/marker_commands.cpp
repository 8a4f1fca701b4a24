#include "cli/marker_commands.h"

#include "markers/marker_file.h"
#include "markers/marker_plot.h"
#include "markers/marker_svg.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/search.h"

#include <fmt/format.h>

namespace tamarind::cli {

using session::EditorContext;

namespace {

constexpr double kPlotWidth = 1000;
constexpr double kPlotHeight = 700;

/// The file that a path leads to, whether it is there or not.
std::string Target(const platform::Files& files, const std::string& path) {
    const std::string program = platform::FromNative(path);
    if (files.EntryExists(program)) return files.ResolveLinks(program);
    return files.ResolveLinks(platform::FolderOf(program)) + "\\" + platform::NameOf(program);
}

/// However the two are written.
bool LeadToOneFile(const platform::Files& files, const std::string& a, const std::string& b) {
    return text::EqualNoCase(Target(files, a), Target(files, b));
}

/// What would be lost, as a sentence; empty for nothing.
std::string Loss(const platform::Files& files, const Arguments& arguments) {
    if (LeadToOneFile(files, arguments.output, arguments.file)) {
        return "The list would take the place of " + arguments.output + ".";
    }
    if (arguments.plot.empty()) return {};
    const bool takesPlace =
        LeadToOneFile(files, arguments.plot, arguments.output) || LeadToOneFile(files, arguments.plot, arguments.file);
    return takesPlace ? "The picture would take the place of " + arguments.plot + "." : "";
}

void WritePlot(EditorContext& context, const markers::MarkerList& list, const std::string& file) {
    const std::string svg = markers::PlotSvg(markers::PlotMarkers(list, kPlotWidth, kPlotHeight));
    platform::WriteSafely(context.platform.files, platform::FromNative(file), svg);
}

} // namespace

Result ConvertMarkers(EditorContext& context, const Arguments& arguments) {
    auto& files = context.platform.files;
    const std::string loss = Loss(files, arguments);
    if (!loss.empty()) {
        context.ui.Show({.text = loss + " Nothing was written."});
        return {Outcome::Failed};
    }
    const auto list = markers::ReadMarkerFile(context, platform::FromNative(arguments.file));
    if (!list) return {Outcome::Failed};
    // A mistyped name gives an empty list, as it does in the window; there, one sees what one chooses.
    if (list->count == 0) context.ui.ShowStatus("There is no marker in " + arguments.file);
    if (!platform::WriteUniFile(files, context.ui, platform::FromNative(arguments.output), list->text)) {
        return {Outcome::Failed};
    }
    Result result{Outcome::Done,
                  {{"file", arguments.output}, {"points", list->count}},
                  fmt::format("{}\t{}\n", arguments.output, list->count)};
    if (!arguments.plot.empty()) {
        WritePlot(context, *list, arguments.plot);
        result.json["plot"] = arguments.plot;
    }
    return result;
}

} // namespace tamarind::cli
