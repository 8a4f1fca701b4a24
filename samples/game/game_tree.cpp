#include "game/game_tree.h"

#include "serz/binary_format.h"
#include "system/program.h"

#include <fstream>
#include <utility>

namespace tamarind::samples {

GameTree::GameTree(std::filesystem::path gameFolder) : folder_(std::move(gameFolder)) {}

void GameTree::AddText(std::string_view name, std::string_view bytes) const {
    const std::u8string relative(name.begin(), name.end());
    const std::filesystem::path path = Reachable(folder_ / relative);
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
}

void GameTree::AddBinary(std::string_view name, std::string_view xml) const { AddText(name, EncodeBinary(xml)); }

} // namespace tamarind::samples
