#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tamarind::samples {

/// The game folder while it is being made. Names are UTF-8 with "/" between folders, relative to the game folder;
/// folders are made as needed and existing files replaced. Failures are exceptions of the standard library.
class GameTree {
public:
    explicit GameTree(std::filesystem::path gameFolder);

    void AddText(std::string_view name, std::string_view bytes) const;
    /// The XML in the converter's binary form.
    void AddBinary(std::string_view name, std::string_view xml) const;

private:
    std::filesystem::path folder_;
};

} // namespace tamarind::samples
