#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// Command lines by the Windows quoting rules, on every system.
namespace tamarind::platform {

/// One argument without its quotes, and which parts of it stood inside quotes.
struct CommandArgument {
    struct Part {
        std::size_t begin = 0; ///< index from 0 in `text`
        std::size_t length = 0;
        bool operator==(const Part&) const = default;
    };
    std::string text;
    std::vector<Part> quoted;
};

/// One reading of where the program's name ends.
struct ProgramCandidate {
    std::string name;
    std::size_t end = 0; ///< index from 0 in the command line where the arguments begin
};

/// The possible program names, in the order in which they are to be tried: a quoted name is the only one; an unquoted
/// one may hold blanks, so it may end at each blank up to the first quote.
[[nodiscard]] std::vector<ProgramCandidate> ProgramCandidates(std::string_view commandLine);

/// The arguments of a command line from which the program's name was taken off. Blanks and tabs separate; double
/// quotes keep them; a pair of backslashes before a quote is one, an odd one makes the quote ordinary; two quotes
/// inside quotes are an ordinary one.
[[nodiscard]] std::vector<CommandArgument> ParseArguments(std::string_view text);

/// The argument's text with every quoted part that begins with "\" replaced by its translation.
[[nodiscard]] std::string TranslatePaths(const CommandArgument& argument,
                                         const std::function<std::string(const std::string&)>& translate);

} // namespace tamarind::platform
