// Loading, writing, walking and searching of a document of 100,000 elements.
#include "document/clsXMLParse.h"
#include "document/xml_writer.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace tamarind::document;

constexpr NodeKey kElements = 100'000;

/// Groups of one parent and nine leaves, about 70 bytes an element.
std::string SampleXml() {
    std::string text = "<Sample xmlns:d=\"http://example.org/delta\">\r\n";
    for (NodeKey group = 0; group < kElements / 10; ++group) {
        text.append("\t<Group d:id=\"").append(std::to_string(group)).append("\">\r\n");
        for (int leaf = 0; leaf < 9; ++leaf) {
            text += "\t\t<Value d:type=\"sFloat32\" d:precision=\"as text\">1034.92870</Value>\r\n";
        }
        text += "\t</Group>\r\n";
    }
    return text + "</Sample>\r\n";
}

void Load(benchmark::State& state) {
    const std::string text = SampleXml();
    for (auto _ : state) {
        const Document document = ParseXml(text);
        benchmark::DoNotOptimize(&document.Top());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void Write(benchmark::State& state) {
    const Document document = ParseXml(SampleXml());
    std::size_t bytes = 0;
    for (auto _ : state) {
        WriteXml(document, [&](std::string_view piece) { bytes += piece.size(); });
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(Write)->Unit(benchmark::kMillisecond);

void WalkAll(benchmark::State& state) {
    const Document document = ParseXml(SampleXml());
    for (auto _ : state) {
        benchmark::DoNotOptimize(CountElements(document.Top()));
    }
    state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(WalkAll)->Unit(benchmark::kMillisecond);

void FindByKey(benchmark::State& state) {
    const Document document = ParseXml(SampleXml());
    NodeKey key = 0;
    for (auto _ : state) {
        key = (key + 7919) % kElements;
        benchmark::DoNotOptimize(FindChildByKey(document.Root(), key + 1));
    }
}
BENCHMARK(FindByKey);

void CopyAll(benchmark::State& state) {
    const Document document = ParseXml(SampleXml());
    for (auto _ : state) {
        Document copies;
        NodeKey keyCounter = 0;
        benchmark::DoNotOptimize(&CopyNode(document.Top(), copies, copies.Root(), keyCounter));
    }
    state.SetItemsProcessed(state.iterations() * kElements);
}
BENCHMARK(CopyAll)->Unit(benchmark::kMillisecond);

} // namespace
