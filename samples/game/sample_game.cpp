// Writes a small but complete game folder of our own invention.

#include "game/content.h"
#include "game/large_route.h"
#include "system/program.h"

#include <iostream>

namespace tamarind::samples {

int RunProgram(const std::vector<std::filesystem::path>& arguments) {
    constexpr int kWrongUsage = 2;
    const bool isLarge = arguments.size() == 2 && arguments[1] == "--large-route";
    if (arguments.size() != 1 && !isLarge) {
        std::cerr << "usage: sample_game FOLDER [--large-route]\n";
        return kWrongUsage;
    }
    if (isLarge) {
        std::cout << Utf8(WriteLargeRoute(arguments[0], {})) << '\n';
        return 0;
    }
    std::cout << Utf8(WriteSampleGame(arguments[0])) << '\n';
    return 0;
}

} // namespace tamarind::samples
