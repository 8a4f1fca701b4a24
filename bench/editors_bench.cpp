// The colours of 20 MB of XML, searches over 65,500 rows, and replacing in 10,000 places.
#include "document/clsXMLParse.h"
#include "editors/highlighter.h"
#include "editors/text_search.h"
#include "editors/tree_search.h"
#include "platform/platform.h"
#include "session/headless_view.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace tamarind;

constexpr std::size_t kTextSize = 20'000'000;

std::string SampleText() {
    const std::string line = "  <s:Value d:type=\"sFloat32\" d:alt_encoding=\"0000000000000000\">1435</s:Value>\r\n";
    std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Values>\r\n";
    while (xml.size() < kTextSize)
        xml += line;
    return xml + "</Values>\r\n";
}

void Highlight(benchmark::State& state) {
    const std::string text = SampleText();
    for (auto _ : state)
        benchmark::DoNotOptimize(editors::HighlightXml(text));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(Highlight)->Unit(benchmark::kMillisecond);

constexpr int kRows = 65'500;
constexpr int kRowsPerHit = 6; // a little more than 10,000 hits

std::string SampleRows() {
    std::string xml = "<Rows>";
    for (int row = 1; row < kRows; ++row)
        xml += row % kRowsPerHit == 0 ? "<Signal>Home halt</Signal>" : "<SleeperSpacing>762 mm</SleeperSpacing>";
    return xml + "</Rows>";
}

/// Says nothing and answers nothing.
class SilentUi : public platform::UserInterface {
public:
    platform::Answer Show(const platform::Message&) override { return platform::Answer::Ok; }
    std::string AskForFile(const platform::FileDialog&) override { return {}; }
    std::string AskForText(const std::string&, const std::string&, const std::string&) override { return {}; }
    void SetBusy(bool) override {}
    void ProcessEvents() override {}
    void ShowStatus(const std::string&) override {}
};

struct Editor {
    Editor() { document.document = document::ParseXml(SampleRows()); }
    std::unique_ptr<platform::Files> files = platform::MakeFiles();
    std::unique_ptr<platform::Processes> processes = platform::MakeProcesses(*files);
    std::unique_ptr<platform::Registry> registry = platform::MakeRegistry();
    session::Session session;
    document::OpenDocument document;
    session::HeadlessView view;
    SilentUi ui;
    session::EditorContext context{session, document, {*files, *processes, *registry}, ui, view};
};

void FindAll(benchmark::State& state, editors::SearchIn where, const char* text) {
    Editor editor;
    std::size_t hits = 0;
    for (auto _ : state)
        hits = editors::FindAllRows(editor.context, where, {text, true}).value().size();
    state.counters["hits"] = static_cast<double>(hits);
}
void FindAllRows(benchmark::State& state) { FindAll(state, editors::SearchIn::RowTexts, "SIGNAL"); }
BENCHMARK(FindAllRows)->Unit(benchmark::kMillisecond);
void FindAllTexts(benchmark::State& state) { FindAll(state, editors::SearchIn::ElementTexts, "halt"); }
BENCHMARK(FindAllTexts)->Unit(benchmark::kMillisecond);

void ReplaceAllInTree(benchmark::State& state) {
    Editor editor;
    bool isThere = true;
    for (auto _ : state) {
        editors::ReplaceInAll(editor.context, {isThere ? "halt" : "bend"}, isThere ? "bend" : "halt");
        isThere = !isThere;
        state.PauseTiming();
        editor.document.history.Clear();
        state.ResumeTiming();
    }
}
BENCHMARK(ReplaceAllInTree)->Unit(benchmark::kMillisecond);

void FindInLargeText(benchmark::State& state) {
    const std::string text = SampleText();
    for (auto _ : state)
        benchmark::DoNotOptimize(editors::FindInText(text, {"</values"}, 0));
}
BENCHMARK(FindInLargeText)->Unit(benchmark::kMillisecond);

} // namespace
