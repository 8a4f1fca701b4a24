#include "fixture.h"

#include "system/program.h"

#include <fstream>
#include <iterator>

namespace tamarind::samples {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream file(Reachable(path), std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << Utf8(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFile(const fs::path& path, std::string_view bytes) {
    std::ofstream file(Reachable(path), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.flush()) << "cannot write " << Utf8(path);
}

std::map<std::string, std::string> ReadTree(const fs::path& folder) {
    std::map<std::string, std::string> tree;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            const std::u8string name = entry.path().lexically_relative(folder).generic_u8string();
            tree[std::string(name.begin(), name.end())] = ReadFile(entry.path());
        }
    }
    return tree;
}

std::vector<std::string> Differences(const std::map<std::string, std::string>& one,
                                     const std::map<std::string, std::string>& other) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : one) {
        const auto found = other.find(name);
        if (found == other.end() || found->second != bytes) names.push_back(name);
    }
    for (const auto& [name, bytes] : other) {
        if (!one.contains(name)) names.push_back(name);
    }
    return names;
}

SampleTest::SampleTest() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    folder_ = ProgramFolder() / "sample_tests.tmp" / (std::string(test.test_suite_name()) + "." + test.name());
    fs::remove_all(Reachable(folder_));
    fs::create_directories(folder_);
}

SampleTest::~SampleTest() {
    std::error_code ignored;
    fs::remove_all(Reachable(folder_), ignored);
}

fs::path SampleTest::Path(const std::string& name) const { return folder_ / std::u8string(name.begin(), name.end()); }

int SampleTest::Serz(const fs::path& input, const std::string& form, const fs::path& output,
                     const Environment& environment) {
    ChildProgram serz(ProgramFolder() / SERZ_NAME, {Utf8(input), form + Utf8(output)}, environment);
    const std::optional<int> exitCode = serz.WaitFor(kLongTime);
    EXPECT_TRUE(exitCode) << "the converter did not end";
    return exitCode.value_or(-1);
}

} // namespace tamarind::samples
