#include "markers/marker_file.h"

#include "markers/marker_readers.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/code_page.h"
#include "text/search.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace tamarind::markers {

using session::EditorContext;

namespace {

std::string WholeText(const platform::Files& files, const std::string& path) {
    std::string text;
    platform::ReadUniFile(files, path, text);
    return text;
}

MarkerList FromKml(const platform::Files& files, const std::string& path) { return ReadKml(WholeText(files, path)); }

MarkerList FromGpx(const platform::Files& files, const std::string& path) { return ReadGpx(WholeText(files, path)); }

/// The one kind that is opened for reading lines: it has to be there.
MarkerList FromWpt(const platform::Files& files, const std::string& path) {
    return ReadWpt(text::FromCodePage(platform::ReadBytes(files, path)));
}

/// The one kind whose names may hold letters that the list has no form for.
MarkerList FromMkr(const platform::Files& files, const std::string& path) {
    MarkerList list = ReadMkr(WholeText(files, path));
    if (!text::FitsCodePage(list.text)) {
        list.remark += std::string(list.remark.empty() ? "" : " ") + "Some letters are written as \"?\".";
    }
    return list;
}

struct Kind {
    std::string_view ending;
    MarkerList (*read)(const platform::Files& files, const std::string& path);
};

constexpr std::array kKinds = {Kind{".kml", FromKml}, Kind{".gpx", FromGpx}, Kind{".wpt", FromWpt},
                               Kind{".mkr", FromMkr}};

} // namespace

std::optional<MarkerList> ReadMarkerFile(EditorContext& context, const std::string& path) {
    const auto* const kind = std::find_if(kKinds.begin(), kKinds.end(), [&path](const Kind& candidate) {
        return text::EndsWithNoCase(path, candidate.ending);
    });
    if (kind == kKinds.end()) {
        context.ui.Show({.text = "You have not selected a .kml or .gpx file?"});
        return std::nullopt;
    }
    const platform::BusyPointer busy(context.ui);
    MarkerList list = kind->read(context.platform.files, path);
    if (!list.remark.empty()) context.ui.ShowStatus(list.remark);
    return list;
}

void ConvertMarkerFile(EditorContext& context) {
    const std::string input = context.ui.AskForFile(
        {.title = "Open Marker file", .filter = "Marker Files (*.kml;*.gpx;*.wpt;*.mkr)|*.kml;*.gpx;*.wpt;*.mkr"});
    // A dialog that was cancelled names no file of a known kind, either.
    const std::optional<MarkerList> list = ReadMarkerFile(context, input);
    if (!list) return;
    if (!context.session.skipsMarkerPicture && !context.view.ShowMarkers(*list)) return;
    const std::string output = context.ui.AskForFile({.save = true,
                                                      .title = "Save Marker File",
                                                      .filter = "RailSim Marker Files (*.csv)|*.csv",
                                                      .defaultExtension = "csv",
                                                      .confirmsOverwriting = true});
    if (output.empty()) return;
    if (platform::WriteUniFile(context.platform.files, context.ui, output, list->text)) {
        context.ui.ShowStatus("Saved " + platform::ForDisplay(output));
    }
}

} // namespace tamarind::markers
