#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What converted game files refer to: the rules that find it, as functions of text. Lines end with LF or CR LF; every
/// search is without regard to letter case, and each rule reads its text once. The scans take text of any single-byte
/// or UTF-8 encoding and return parts of it unchanged.
namespace tamarind::routes {

/// Where a blueprint lies below the "Assets" folder.
struct BlueprintReference {
    std::string provider;
    std::string product;
    std::string path; ///< ends in "bin"
    bool operator==(const BlueprintReference&) const = default;
};

/// `isCutOff` is set where the text ends inside of what is being read; what was found before it stays.
struct TileScan {
    std::vector<BlueprintReference> references;
    bool isCutOff = false;
};

/// The references of a tile, line by line: the provider on a line of its own, the product on the next one, the path on
/// the third line after that. One without provider or without path is none.
[[nodiscard]] TileScan ScanTile(std::string_view text);

/// The shapes that a blueprint names, in order: the content of each geometry id that holds a "[", without the four
/// characters that begin there.
[[nodiscard]] std::vector<std::string> ScanGeometryIds(std::string_view text);

struct ShapeScan {
    std::vector<std::string> textures; ///< without the four characters that begin at a "["
    bool isCutOff = false;
};

/// The textures that a shape names.
[[nodiscard]] ShapeScan ScanShape(std::string_view text);

/// One entry of provider, product and path, joined by "\", for each blueprint that a scenario refers to. The provider
/// is the last one in front of the reference, the product the first one behind that; what is not there is empty.
[[nodiscard]] std::vector<std::string> ScanStock(std::string_view text);

/// Sets `levels` to the number of "..\" that the path begins with, 5 at most; without any it stays as it is.
void CountUpLevels(std::string_view path, int& levels);

/// Replaces every "&apos;" by "'" and then every "&amp;" by "&"; returns whether there was any.
bool DecodeEntities(std::string& text);

/// The first value and every one that differs, without regard to letter case, from the value before it.
[[nodiscard]] std::vector<std::string> RemoveDuplicates(const std::vector<std::string>& sorted);

/// The full name of the texture file that a shape refers to.
[[nodiscard]] std::string TextureFile(const std::string& gameFolder, const std::string& shapeFile,
                                      const std::string& reference);

/// The text without its last three characters, and "bin".
[[nodiscard]] std::string WithBinaryEnding(std::string_view path);

} // namespace tamarind::routes
