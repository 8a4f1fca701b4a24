#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

// The version stands in the project's first lines and everything else is told it; the list of changes has it as the
// heading of what it brings.
namespace tamarind::tests {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

/// "FILE: LINE" for each line that holds `needle`, in every file of the project; what is built and what the version
/// control keeps for itself are left out.
std::vector<std::string> LinesWith(const fs::path& project, const std::string& needle) {
    std::vector<std::string> found;
    for (auto entry = fs::recursive_directory_iterator(project); entry != fs::end(entry); ++entry) {
        const fs::path path = entry->path().lexically_relative(project);
        if (path == "build" || path == ".git") {
            entry.disable_recursion_pending();
            continue;
        }
        if (!entry->is_regular_file()) continue;
        std::ifstream stream(entry->path(), std::ios::binary);
        for (std::string line; std::getline(stream, line);) {
            if (line.find(needle) != std::string::npos) found.push_back(path.generic_string() + ": " + line);
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

TEST(Version, IsThreeNumbers) { EXPECT_THAT(TAMARIND_VERSION, MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+")); }

TEST(Version, StandsInOnePlaceAndHeadsTheChanges) {
    EXPECT_THAT(LinesWith(PROJECT_FOLDER, TAMARIND_VERSION),
                ElementsAre(testing::StartsWith("CHANGELOG.md: ## " TAMARIND_VERSION),
                            "CMakeLists.txt: project(Tamarind VERSION " TAMARIND_VERSION " LANGUAGES C CXX)"));
}

TEST(Version, StandsNowhereInTheFormOfResources) {
    std::string withCommas = TAMARIND_VERSION;
    std::replace(withCommas.begin(), withCommas.end(), '.', ',');
    EXPECT_THAT(LinesWith(PROJECT_FOLDER, withCommas), IsEmpty());
}

TEST(Version, OfTheNewestChangesIsThisOne) {
    std::ifstream stream(fs::path(PROJECT_FOLDER) / "CHANGELOG.md");
    std::string line;
    while (std::getline(stream, line) && !line.starts_with("## ")) {
    }
    EXPECT_THAT(line, testing::StartsWith("## " TAMARIND_VERSION));
}

} // namespace
} // namespace tamarind::tests
