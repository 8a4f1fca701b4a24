#include "game/content.h"
#include "game/pictures.h"

#include <array>

namespace tamarind::samples {
namespace {

struct Texture {
    std::string_view path; ///< without ending
    std::string_view format;
    Picture (*draw)(int size);
    std::string (*encode)(const Picture& picture);
    int size;
    int levels;
};

constexpr std::string_view kDxt1 = "HC_IMAGE_FORMAT_COMPRESSED";
constexpr std::string_view kDxt3 = "HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA";
constexpr std::string_view kRgb = "HC_IMAGE_FORMAT_COL888";
constexpr std::string_view kArgb = "HC_IMAGE_FORMAT_COLA8888";

constexpr std::array<Texture, 8> kTextures{{
    {"Fernhollow/AlderVale/Scenery/Textures/Brick", kDxt1, DrawBricks, EncodeDxt1, 64, 7},
    {"Fernhollow/AlderVale/Scenery/Textures/Slate", kDxt3, DrawGradient, EncodeDxt3, 32, 6},
    {"Fernhollow/AlderVale/Textures/Grass", kArgb, DrawGradient, Encode32Bit, 16, 5},
    {"Fernhollow/AlderVale/RailNetwork/CrossSections/Track", kDxt1, DrawTrack, EncodeDxt1, 64, 1},
    {"Fernhollow/AlderVale/RailVehicles/Steam/Wren/Textures/Livery", kDxt1, DrawGradient, EncodeDxt1, 32, 6},
    {"Fernhollow/AlderVale/RailVehicles/Diesel/Otter/Textures/Livery", kDxt3, DrawBricks, EncodeDxt3, 32, 6},
    {"Tansywick/HarbourSet/RailVehicles/Freight/SaltVan/Textures/Livery", kRgb, DrawBricks, Encode32Bit, 16, 1},
    {"Tansywick/HarbourSet/Textures/Board", kRgb, DrawGradient, Encode32Bit, 16, 5},
}};

std::string TextureXml(const Texture& texture) {
    XmlText xml("cTextureFile");
    xml.Open("Record").OpenRecord("cTexture").Leaf("Name", "text", texture.path.substr(texture.path.rfind('/') + 1));
    xml.Open("Levels");
    Picture level = texture.draw(texture.size);
    for (int index = 0; index < texture.levels; ++index) {
        xml.OpenRecord("cImage").Value("Width", "number", std::to_string(level.width));
        xml.Value("Height", "number", std::to_string(level.height)).Value("Format", "keyword", texture.format);
        xml.Open("Data").Blob(texture.encode(level)).Close().Close();
        level = Halved(level);
    }
    return xml.Finish();
}

} // namespace

void AddTextures(const GameTree& game) {
    for (const Texture& texture : kTextures) {
        game.AddBinary("Assets/" + std::string(texture.path) + ".TgPcDx", TextureXml(texture));
    }
}

} // namespace tamarind::samples
