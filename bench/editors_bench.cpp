// The colours of 20 MB of XML.
#include "editors/highlighter.h"

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

} // namespace
