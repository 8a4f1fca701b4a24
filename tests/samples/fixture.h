#pragma once

#include "child_program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tamarind::samples {

/// A whole file's bytes; a file that cannot be read is a failed test.
std::string ReadFile(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, std::string_view bytes);

/// Every file below the folder with its bytes, by its relative name with "/".
std::map<std::string, std::string> ReadTree(const std::filesystem::path& folder);
/// The names of the files that are in one tree alone, or not the same in both.
std::vector<std::string> Differences(const std::map<std::string, std::string>& one,
                                     const std::map<std::string, std::string>& other);

/// A test with an empty folder of its own, gone afterwards.
class SampleTest : public testing::Test {
protected:
    SampleTest();
    ~SampleTest() override;

    [[nodiscard]] std::filesystem::path Path(const std::string& name) const;
    /// Runs the converter to its end and gives its exit code.
    [[nodiscard]] static int Serz(const std::filesystem::path& input, const std::string& form,
                                  const std::filesystem::path& output, const Environment& environment = {});

    std::filesystem::path folder_;
};

inline constexpr std::chrono::milliseconds kLongTime{60'000};

} // namespace tamarind::samples
