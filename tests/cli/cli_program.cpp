#include "cli_program.h"

#include "system/program.h"

#include <algorithm>
#include <cstdlib>

namespace tamarind::tests {

using samples::Utf8;

CliTest::CliTest()
    : program_(Path("Bin") / CLI_NAME), kit_(Path("Kit")), game_(Path("Game")), track_(game_ / "Track.XSec") {
    // Away from the converter of the build, which some systems would find beside the program.
    fs::create_directories(program_.parent_path());
    fs::copy_file(samples::ProgramFolder() / CLI_NAME, program_);
    fs::create_directories(kit_);
    fs::create_directories(game_);
    fs::copy_file(samples::ProgramFolder() / SERZ_NAME, kit_ / "serz.exe");
    samples::WriteFile(track_, Binary(kOldXml));
}

Ran CliTest::RunWords(const std::vector<std::string>& words, const Environment& environment, const fs::path& folder) {
    const samples::Surroundings surroundings{folder.empty() ? folder_ : folder, Path("output"), Path("errors")};
    samples::ChildProgram child(program_, words, environment, surroundings);
    Ran ran;
    const auto exitCode = child.WaitFor(samples::kLongTime);
    EXPECT_TRUE(exitCode) << "tamarind-cli did not end";
    ran.exitCode = exitCode.value_or(-1);
    ran.output = samples::ReadFile(surroundings.output);
    ran.errors = samples::ReadFile(surroundings.errors);
    std::erase(ran.output, '\r'); // line ends are the system's own
    std::erase(ran.errors, '\r');
    return ran;
}

Ran CliTest::Run(const std::vector<std::string>& words, const Environment& environment) {
    std::vector<std::string> all = {"--program-dir", Utf8(kit_), "--game", Utf8(game_)};
    all.insert(all.end(), words.begin(), words.end());
    return RunWords(all, environment);
}

nlohmann::json CliTest::RunJson(const std::vector<std::string>& words, int exitCode, const Environment& environment) {
    std::vector<std::string> all = {"--json"};
    all.insert(all.end(), words.begin(), words.end());
    const Ran ran = Run(all, environment);
    EXPECT_EQ(ran.exitCode, exitCode) << ran.output << ran.errors;
    nlohmann::json report = nlohmann::json::parse(ran.output, nullptr, false);
    EXPECT_TRUE(report.is_object()) << "not exactly one object: " << ran.output;
    return report;
}

Environment CliTest::WithOwnCopyProgram() const {
    if (std::string(XCOPY_NAME).empty()) return {};
    fs::create_directories(Path("Copy"));
    if (const fs::path copy = Path("Copy") / "xcopy.exe"; !fs::exists(copy))
        fs::copy_file(samples::ProgramFolder() / XCOPY_NAME, copy);
    const char* const path = std::getenv("PATH"); // NOLINT(concurrency-mt-unsafe): nothing changes it
    return {{"PATH", samples::Utf8(Path("Copy").make_preferred()) + ";" + (path == nullptr ? "" : path)}};
}

std::string CliTest::Binary(const std::string& xml) {
    samples::WriteFile(Path("binary.xml"), xml);
    EXPECT_EQ(Serz(Path("binary.xml"), "bin:", Path("binary.bin")), 0);
    return samples::ReadFile(Path("binary.bin"));
}

std::string CliTest::Shown(const fs::path& path) { return Utf8(path.lexically_normal().make_preferred()); }

std::vector<std::string> CliTest::Names(const std::string& folder) const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(Path(folder))) {
        names.push_back(Utf8(entry.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace tamarind::tests
