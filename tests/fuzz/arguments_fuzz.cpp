// The command line of tamarind-cli, made of any words; zero bytes and line ends separate them.
#include "cli/arguments.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

std::vector<std::string> Words(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(std::string_view("\0\n", 2)), text.size());
        words.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return words;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<std::string> words = Words({reinterpret_cast<const char*>(data), size});
    const cli::ParseResult parsed = cli::ParseArguments(words);
    if (parsed.exitCode) {
        Require(*parsed.exitCode == 0 || *parsed.exitCode == 2);
        Require(!parsed.message.empty());
        return 0;
    }
    const cli::Arguments& arguments = parsed.arguments;
    const bool isKnown = arguments.command == "open" || arguments.command == "save" || arguments.command == "tidy" ||
                         arguments.command == "tree";
    Require(isKnown && parsed.message.empty());
    // What a command works on was among the words.
    const std::string& path =
        arguments.command == "open" || arguments.command == "save" ? arguments.file : arguments.xml;
    Require(std::find(words.begin(), words.end(), path) != words.end());
    return 0;
}
