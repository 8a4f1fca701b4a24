// The text rules of routes: searching without regard to letter case, catalogues, tiles.
#include "routes/catalogue.h"
#include "routes/references.h"
#include "text/search.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

namespace {

using namespace tamarind;

constexpr std::size_t kSearched = std::size_t{50} * 1000 * 1000;

/// Converter-shaped XML without the key.
std::string SearchedText() {
    std::string text;
    while (text.size() < kSearched)
        text += "\t\t<Value d:type=\"sFloat32\" d:precision=\"string\">1034.92870</Value>\r\n";
    return text;
}

void FindNoCase(benchmark::State& state) {
    const std::string text = SearchedText();
    for (auto _ : state)
        benchmark::DoNotOptimize(text::FindNoCase(text, "<Provider"));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(FindNoCase)->Unit(benchmark::kMillisecond);

/// The C library's, for comparison.
void Strcasestr(benchmark::State& state) {
    const std::string text = SearchedText();
    for (auto _ : state)
        benchmark::DoNotOptimize(strcasestr(text.c_str(), "<Provider"));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(Strcasestr)->Unit(benchmark::kMillisecond);

std::string Index(std::int64_t records, const std::string& tag) {
    std::string text = "<Catalogue>\r\n";
    for (std::int64_t i = 0; i < records; ++i) {
        const std::string number = std::to_string(i);
        text +=
            "\t<" + tag + " d:id=\"" + number + "\">\r\n\t\t<ID><Identifier><DevString d:type=\"text\">id-" + number +
            "-4c00-9a10-7a3a21d0a001</DevString></Identifier></ID>\r\n\t\t<DisplayName>\r\n" +
            "\t\t\t<English d:type=\"text\"></English>\r\n\t\t\t<French d:type=\"text\">Nom " + number +
            "</French>\r\n\t\t\t<Italian d:type=\"text\"></Italian>\r\n\t\t\t<German d:type=\"text\"></German>\r\n" +
            "\t\t\t<Spanish d:type=\"text\"></Spanish>\r\n\t\t</DisplayName>\r\n\t</" + tag + ">\r\n";
    }
    return text + "</Catalogue>\r\n";
}

void ScanIndex(benchmark::State& state) {
    const std::string text = Index(state.range(0), "cRouteProperties");
    for (auto _ : state) {
        std::vector<std::string> ids;
        std::vector<std::string> names;
        routes::ScanRecords(text, ids, names);
        benchmark::DoNotOptimize(names.data());
    }
}
BENCHMARK(ScanIndex)->Arg(2000)->Arg(4000)->Arg(5000)->Unit(benchmark::kMillisecond);

void RemoveLastEntry(benchmark::State& state) {
    const std::string text = Index(state.range(0), "cRouteProperties");
    const std::string id = "id-" + std::to_string(state.range(0) - 1) + "-";
    for (auto _ : state)
        benchmark::DoNotOptimize(routes::RemoveEntry(text, id, routes::IndexKind::Routes));
}
BENCHMARK(RemoveLastEntry)->Arg(2000)->Arg(4000)->Unit(benchmark::kMillisecond);

/// A tile as the converter writes it: a reference among the values of each placed object.
std::string Tile() {
    std::string text = "<cTile>\r\n";
    while (text.size() < 10'000'000) {
        text += "\t<cSceneryEntity d:id=\"1001\">\r\n\t\t<AssetSet>\r\n\t\t\t<Library>\r\n"
                "\t\t\t\t<Provider d:type=\"text\">Fernhollow</Provider>\r\n"
                "\t\t\t\t<Product d:type=\"text\">AlderVale</Product>\r\n\t\t\t</Library>\r\n\t\t</AssetSet>\r\n"
                "\t\t<BlueprintID d:type=\"text\">Scenery\\Buildings\\Mill.xml</BlueprintID>\r\n";
        for (int i = 0; i < 12; ++i)
            text += "\t\t<Value d:type=\"sFloat32\" d:precision=\"string\">1034.92870</Value>\r\n";
        text += "\t</cSceneryEntity>\r\n";
    }
    return text;
}

void ScanTile(benchmark::State& state) {
    const std::string text = Tile();
    for (auto _ : state)
        benchmark::DoNotOptimize(routes::ScanTile(text).references.data());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(ScanTile)->Unit(benchmark::kMillisecond);

} // namespace
