// Writes a small but complete game folder of our own invention.

#include "game/content.h"
#include "system/program.h"

#include <iostream>

namespace tamarind::samples {

int RunProgram(const std::vector<std::filesystem::path>& arguments) {
    constexpr int kWrongUsage = 2;
    if (arguments.size() != 1) {
        std::cerr << "usage: sample_game FOLDER\n";
        return kWrongUsage;
    }
    std::cout << Utf8(WriteSampleGame(arguments[0])) << '\n';
    return 0;
}

} // namespace tamarind::samples
