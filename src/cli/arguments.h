#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tamarind::cli {

/// A command line of tamarind-cli, taken apart. Paths are as typed.
struct Arguments {
    std::string command; ///< for example "save" or "texture export"; empty when none was recognised
    std::string gameFolder;
    std::string programFolder;
    std::optional<bool> answerYes; ///< set by --yes and --no
    bool json = false;

    std::string file;
    std::string xml;
    std::string output;
    std::vector<std::string> files; ///< of a command that takes several
    std::string plot;               ///< of markers, the picture to write; empty for none
    std::size_t level = 0;          ///< of a texture, 0 the largest

    std::string text;       ///< to be found
    bool inText = false;    ///< in the elements' texts
    bool wholeWord = false; ///< not within a longer word

    std::string name;                 ///< of what is to be made
    std::array<std::string, 2> texts; ///< of a blueprint, behind its name

    std::string route;    ///< id or display name
    std::string scenario; ///< id or display name
    /// What is typed into the scenario editor's fields, in their order; nothing where a field stays.
    std::array<std::optional<std::string>, 12> fields;
    int consist = -1; ///< index from 0; -1: none
    bool listShapes = false;
    bool checkTextures = false;
    bool listTextures = false;
    unsigned jobs = 0; ///< conversions at a time; 0: as many as the machine has processors
};

struct ParseResult {
    Arguments arguments;
    std::optional<int> exitCode; ///< set when there is nothing to run: 0 after help or version, 2 for wrong usage
    std::string message;         ///< help, version, or what is wrong
};

/// `words` are the arguments without the program's name, UTF-8.
[[nodiscard]] ParseResult ParseArguments(const std::vector<std::string>& words);

} // namespace tamarind::cli
