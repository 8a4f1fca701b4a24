#include "platform/console.h"

#include "platform/paths.h"

#include <unistd.h>

namespace tamarind::platform {

bool StandardInputIsTerminal() { return isatty(STDIN_FILENO) == 1; }

std::vector<std::string> ProgramArguments(int count, char** arguments) {
    return count < 1 ? std::vector<std::string>() : std::vector<std::string>(arguments + 1, arguments + count);
}

std::string CommandLineText(int count, char** arguments) {
    std::string line;
    for (const std::string& word : ProgramArguments(count, arguments))
        line += (line.empty() ? "" : " ") + word;
    return line.empty() ? line : FromNative(line);
}

} // namespace tamarind::platform
