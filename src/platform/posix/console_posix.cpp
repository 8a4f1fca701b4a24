#include "platform/console.h"

#include "platform/paths.h"

#include <csignal>
#include <cstdlib>
#include <string_view>
#include <unistd.h>

namespace tamarind::platform {
namespace {

// A signal handler reaches nothing but what is static.
volatile std::sig_atomic_t& InterruptFlag() {
    static volatile std::sig_atomic_t flag = 0;
    return flag;
}

void OnInterrupt(int /*signal*/) { InterruptFlag() = 1; }

} // namespace

void CatchInterrupt() {
    struct sigaction action = {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
}

bool IsInterrupted() { return InterruptFlag() != 0; }

bool StandardInputIsTerminal() { return isatty(STDIN_FILENO) == 1; }

bool StandardErrorIsTerminal() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* const terminal = std::getenv("TERM");
    return isatty(STDERR_FILENO) == 1 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

bool WantsColours() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* const noColour = std::getenv("NO_COLOR");
    return noColour == nullptr || *noColour == '\0';
}

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
