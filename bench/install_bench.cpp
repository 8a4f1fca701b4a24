// The rules by which records get into indexes.
#include "install/scenario_merge.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

using namespace tamarind;

std::string IdOf(std::int64_t number) { return fmt::format("5a1e0d20-0001-4c00-9a10-{:012}", number); }

std::string Record(std::int64_t number) {
    return fmt::format("\t\t<cScenarioProperties d:id=\"{}\">\r\n\t\t\t<ID><Identifier><DevString d:type=\"text\">{}"
                       "</DevString></Identifier></ID>\r\n\t\t\t<DisplayName><English d:type=\"text\">Name {}</English>"
                       "<French d:type=\"text\"></French></DisplayName>\r\n{}\t\t</cScenarioProperties>\r\n",
                       number, IdOf(number), number, std::string(1500, ' '));
}

std::string Records(std::int64_t first, std::int64_t count) {
    std::string records;
    for (std::int64_t i = first; i < first + count; ++i)
        records += Record(i);
    return records;
}

/// 500 scenarios into an index of so many, of which it has half already.
void MergeScenarios(benchmark::State& state) {
    constexpr std::int64_t kMerged = 500;
    const std::int64_t count = state.range(0);
    const std::string index =
        "<cScenarioIndex>\r\n\t<Record>\r\n" + Records(0, count) + "\t</Record>\r\n</cScenarioIndex>";
    const std::int64_t first = count - kMerged / 2;
    const std::string records = Records(first, kMerged);
    std::vector<std::string> ids;
    for (std::int64_t i = first; i < first + kMerged; ++i)
        ids.push_back(IdOf(i));
    for (auto _ : state)
        benchmark::DoNotOptimize(install::MergeScenarios(index, ids, records));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * index.size()));
}
BENCHMARK(MergeScenarios)->Arg(5000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
