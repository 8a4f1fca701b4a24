#pragma once

#include "fixture.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace tamarind::tests {

namespace fs = std::filesystem;
using samples::Environment;

struct Ran {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

/// A kit with the converter in its program folder "Kit", and a game folder "Game" with one game file.
class CliTest : public samples::SampleTest {
protected:
    CliTest();

    /// Runs tamarind-cli to its end, with the words as they are. Without a folder it runs in the test's own.
    Ran RunWords(const std::vector<std::string>& words, const Environment& environment = {},
                 const fs::path& folder = {});
    /// The same with --program-dir and --game in front.
    Ran Run(const std::vector<std::string>& words, const Environment& environment = {});
    /// The same with --json; the one object on standard output.
    nlohmann::json RunJson(const std::vector<std::string>& words, int exitCode, const Environment& environment = {});

    /// The environment for programs that copy with xcopy. Wine's refuses a target that ends in "\*.*", which Windows
    /// takes; there, a small one of our own stands in.
    [[nodiscard]] Environment WithOwnCopyProgram() const;
    /// The bytes that the converter makes of an XML text.
    std::string Binary(const std::string& xml);
    /// A path as the program spells it for people on this system.
    [[nodiscard]] static std::string Shown(const fs::path& path);
    [[nodiscard]] std::vector<std::string> Names(const std::string& folder) const;

    fs::path program_; ///< tamarind-cli
    fs::path kit_;
    fs::path game_;
    fs::path track_; ///< Game/Track.XSec
};

inline constexpr const char* kOldXml = "<Track>\r\n\t<Gauge>old</Gauge>\r\n</Track>\r\n";
inline constexpr const char* kNewXml = "<Track>\r\n\t<Gauge>new</Gauge>\r\n</Track>\r\n";

} // namespace tamarind::tests
