// "Convert Marker files" as a whole command, its two dialogs answered beforehand:
//   markers_pass KML CSV          the list
//   markers_pass plot KML SVG     the picture of the list instead; the time is that of the picture alone
#include "markers/marker_file.h"
#include "markers/marker_plot.h"
#include "markers/marker_svg.h"
#include "measure.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/safe_write.h"
#include "platform/terminal/terminal_ui.h"
#include "session/headless_view.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <utility>

namespace {

using namespace tamarind;

/// Chooses the two files.
class Chooser : public platform::TerminalUserInterface {
public:
    Chooser(std::string input, std::string output)
        : TerminalUserInterface({}, std::cerr, [] { return std::nullopt; }), input_(std::move(input)),
          output_(std::move(output)) {}
    std::string AskForFile(const platform::FileDialog& dialog) override { return dialog.save ? output_ : input_; }
    void ShowStatus(const std::string& /*text*/) override {}

private:
    std::string input_;
    std::string output_;
};

bool Run(int argc, char** argv) {
    const bool plots = argc == 4;
    const bench::Measure whole;
    const auto files = platform::MakeFiles();
    const auto processes = platform::MakeProcesses(*files);
    const auto registry = platform::MakeRegistry();
    const std::string input = platform::FromNative(argv[argc - 2]);
    const std::string output = platform::FromNative(argv[argc - 1]);
    Chooser ui(input, output);
    session::Session session;
    document::OpenDocument document;
    session::HeadlessView view;
    session::EditorContext context{session, document, {*files, *processes, *registry}, ui, view};
    if (!plots) {
        markers::ConvertMarkerFile(context);
        whole.Print();
        return true;
    }
    const auto list = markers::ReadMarkerFile(context, input);
    if (!list) return false;
    const bench::Measure picture;
    const std::string svg = markers::PlotSvg(markers::PlotMarkers(*list, 1000, 700));
    picture.Print();
    platform::WriteSafely(*files, output, svg);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 && (argc != 4 || std::strcmp(argv[1], "plot") != 0)) {
        std::fputs("markers_pass KML CSV | plot KML SVG\n", stderr);
        return 2;
    }
    try {
        return Run(argc, argv) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
