#include "cli/run.h"
#include "platform/console.h"
#include "platform/platform.h"

#include <iostream>

int main(int count, char** arguments) {
    using namespace tamarind;
    const auto words = platform::ProgramArguments(count, arguments);
    const auto files = platform::MakeFiles();
    const auto processes = platform::MakeProcesses(*files);
    const auto registry = platform::MakeRegistry();
    return cli::Run(words, {*files, *processes, *registry}, std::cin, std::cout, std::cerr);
}
