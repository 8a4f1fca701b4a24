#include "support/fake_converter.h"

#include "platform/myfile.h"

#include <gtest/gtest.h>

#include <vector>

namespace tamarind::tests {
namespace {

/// The two quoted paths of a command line such as: serz.exe "in" xml:"out".
std::vector<std::string> QuotedPaths(const std::string& commandLine) {
    std::vector<std::string> paths;
    std::size_t open = commandLine.find('"');
    while (open != std::string::npos) {
        const std::size_t close = commandLine.find('"', open + 1);
        paths.push_back(commandLine.substr(open + 1, close - open - 1));
        open = commandLine.find('"', close + 1);
    }
    return paths;
}

} // namespace

void FakeConverter::operator()(const platform::ProcessStart& start) {
    if (onStart) {
        onStart();
    }
    const std::vector<std::string> paths = QuotedPaths(start.commandLine);
    ASSERT_EQ(paths.size(), 2U) << start.commandLine;
    if (isBroken) {
        return;
    }
    const bool toXml = start.commandLine.find(" xml:\"") != std::string::npos;
    const std::string input = platform::ReadBytes(files_, paths[0]);
    const bool isBinary = input.starts_with("BIN:");
    // The word is the same both ways where an index is converted back.
    const bool isXml = input.starts_with("<");
    if (toXml && !isBinary && !isXml) {
        return;
    }
    const auto output = files_.Create(paths[1], platform::CreateMode::Overwrite);
    output->Write(toXml && isBinary ? input.substr(4) : GameFile(input));
    output->Close();
}

} // namespace tamarind::tests
