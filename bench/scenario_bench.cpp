// The scenario editor's rules on a large scenario: what opening and "Drive It" cost beyond the converter.
#include "authoring/consists.h"
#include "authoring/scenario_fields.h"
#include "routes/scenario_hand_over.h"
#include "text/code_page.h"

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace tamarind;

constexpr std::size_t kScenarioSize = std::size_t{50} * 1000 * 1000;
constexpr int kConsists = 100;

std::string Localised(const std::string& tag, const std::string& english) {
    std::string text = "\t\t\t<" + tag + ">\r\n\t\t\t\t<English d:type=\"text\">" + english + "</English>\r\n";
    for (const char* const language : {"French", "Italian", "German", "Spanish"})
        text += "\t\t\t\t<" + std::string(language) + " d:type=\"text\"></" + language + ">\r\n";
    return text + "\t\t\t</" + tag + ">\r\n";
}

/// A scenario as the converter writes it, a hundred trains of as many vehicles as fill it.
const std::string& Scenario() {
    static const std::string text = [] {
        std::string scenario = "<cScenario>\r\n";
        for (int consist = 1; consist <= kConsists; ++consist) {
            scenario +=
                "\t<cConsist d:id=\"1\">\r\n\t\t<Driver>\r\n\t\t\t<PlayerDriver d:type=\"flag\">0</PlayerDriver>\r\n" +
                Localised("ServiceName", "Service " + std::to_string(consist)) +
                "\t\t\t<PlayerControlled d:type=\"flag\">0</PlayerControlled>\r\n\t\t</Driver>\r\n";
            const std::size_t end = kScenarioSize / kConsists * static_cast<std::size_t>(consist);
            for (int vehicle = 0; scenario.size() < end; ++vehicle) {
                if (vehicle < 40)
                    scenario += "\t\t<Name d:type=\"text\">Salt Van " + std::to_string(vehicle) + "</Name>\r\n";
                for (int i = 0; i < 12; ++i)
                    scenario += "\t\t\t<Value d:type=\"sFloat32\" d:precision=\"string\">1034.92870</Value>\r\n";
            }
            scenario += "\t</cConsist>\r\n";
        }
        return scenario + "</cScenario>\r\n";
    }();
    return text;
}

void ScanConsists(benchmark::State& state) {
    const std::string& text = Scenario();
    for (auto _ : state)
        benchmark::DoNotOptimize(authoring::ScanConsists(text).data());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(ScanConsists)->Unit(benchmark::kMillisecond);

void SetDriverOfTheLastConsist(benchmark::State& state) {
    const std::string& text = Scenario();
    for (auto _ : state)
        benchmark::DoNotOptimize(authoring::SetDriver(text, kConsists - 1).data());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(SetDriverOfTheLastConsist)->Unit(benchmark::kMillisecond);

/// The bytes of the file as the program's text.
void TakeScenarioIn(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(text::FromCodePage(Scenario()).data());
}
BENCHMARK(TakeScenarioIn)->Unit(benchmark::kMillisecond);

std::string Record(int number) {
    const auto value = [](const std::string& key, const std::string& text) {
        return "\t\t\t<" + key + " d:type=\"text\">" + text + "</" + key + ">\r\n";
    };
    return "\t\t<cScenarioProperties d:id=\"1\">\r\n" + value("DevString", "id-" + std::to_string(number)) +
           Localised("DisplayName", "Milk") + Localised("Description", "Take it.") + Localised("Briefing", "Go.") +
           value("StartTime", "43200.0000") + value("DurationMins", "45") + value("StartDD", "1") +
           value("StartMM", "5") + value("StartYYYY", "1958") + value("Season", "SEASON_SPRING") +
           value("Provider", "Fernhollow") + value("Product", "AlderVale") +
           value("BlueprintID", "Weather\\Clear.xml") + "\t\t</cScenarioProperties>\r\n";
}

/// The last record of a large index is found and its fields are read and written.
void EditLastRecord(benchmark::State& state) {
    std::string index;
    for (int i = 0; i < state.range(0); ++i)
        index += Record(i);
    const std::string id = "id-" + std::to_string(state.range(0) - 1);
    for (auto _ : state) {
        const auto parts = routes::SplitIndex(index, id);
        const auto fields = authoring::ReadFields(parts.record);
        benchmark::DoNotOptimize(authoring::WriteFields(parts.record, fields).data());
    }
}
BENCHMARK(EditLastRecord)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace
