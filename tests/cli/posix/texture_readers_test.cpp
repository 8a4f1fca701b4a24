#include "cli/cli_program.h"

#include "system/program.h"

#include <gmock/gmock.h>

#include <random>

// Our .dds files read, and changed, by programs that know nothing of us.
namespace tamarind::tests {
namespace {

using samples::ReadFile;
using samples::Utf8;
using samples::WriteFile;

// The machine's "convert" may be something else of that name.
const fs::path kImageMagick = "/usr/bin/convert-im6.q16";
const fs::path kTextureTools = "/usr/bin/nvcompress";
const fs::path kPython = "/usr/bin/python3";
constexpr std::size_t kHeader = 128;

struct Format {
    std::string text;
    bool isCompressed;
    std::size_t blockBytes; ///< of 4 x 4 pixels, or of one pixel
    bool hasAlpha;
};
const std::vector<Format> kFormats = {{"HC_IMAGE_FORMAT_COMPRESSED", true, 8, true},
                                      {"HC_IMAGE_FORMAT_COMPRESSED_EXPL_ALPHA", true, 16, true},
                                      {"HC_IMAGE_FORMAT_COL888", false, 4, false},
                                      {"HC_IMAGE_FORMAT_COLA8888", false, 4, true}};

std::size_t BytesOfLevel(const Format& format, std::size_t side) {
    const std::size_t across = format.isCompressed ? (side + 3) / 4 : side;
    return across * across * format.blockBytes;
}

/// A square texture of so many levels with chance for pixels.
std::string RandomTexture(const Format& format, std::size_t side, int levels) {
    std::mt19937 random(static_cast<unsigned>(side) + static_cast<unsigned>(levels));
    const std::string number = std::to_string(side);
    std::string xml =
        "<Texture><Width>" + number + "</Width><Height>" + number + "</Height><Format>" + format.text + "</Format>";
    for (int level = 0; level < levels; ++level) {
        const std::size_t size = BytesOfLevel(format, std::max<std::size_t>(side >> level, 1));
        xml += "<d:blob d:size=\"" + std::to_string(size) + "\">";
        for (std::size_t i = 0; i < 2 * size; ++i)
            xml += "0123456789ABCDEF"[random() % 16];
        xml += "</d:blob>";
    }
    return xml + "</Texture>";
}

class TextureReaders : public CliTest {
protected:
    TextureReaders() : wall_(game_ / "Wall.TgPcDx"), dds_(kit_ / "TempFiles" / "Wall.dds") {
        for (const fs::path& program : {kImageMagick, kTextureTools, kPython})
            EXPECT_TRUE(fs::exists(program)) << program << " is missing: run scripts/install-packages.sh";
    }

    void RunProgram(const fs::path& program, const std::vector<std::string>& words) {
        samples::ChildProgram child(program, words, {}, {folder_, Path("output"), Path("errors")});
        const auto exitCode = child.WaitFor(samples::kLongTime);
        ASSERT_EQ(exitCode.value_or(-1), 0) << program << ": " << ReadFile(Path("errors"));
    }
    /// Red, green, blue, alpha of a picture file, as that program sees it.
    std::string PixelsByImageMagick(const fs::path& picture) {
        RunProgram(kImageMagick, {Utf8(picture), "-depth", "8", "rgba:" + Utf8(Path("pixels"))});
        return ReadFile(Path("pixels"));
    }
    std::string PixelsByPillow(const fs::path& picture) {
        RunProgram(kPython, {"-c",
                             "import sys; from PIL import Image; "
                             "open(sys.argv[2], 'wb').write(Image.open(sys.argv[1]).convert('RGBA').tobytes())",
                             Utf8(picture), Utf8(Path("pixels"))});
        return ReadFile(Path("pixels"));
    }
    std::string PixelsByPreview() {
        EXPECT_EQ(Run({"texture", "preview", Utf8(wall_), "-o", Utf8(Path("wall.png"))}).exitCode, 0);
        return PixelsByImageMagick(Path("wall.png"));
    }
    void Export(const std::string& xml) {
        WriteFile(wall_, Binary(xml));
        ExportAgain();
    }
    void ExportAgain() { ASSERT_EQ(Run({"texture", "export", Utf8(wall_)}).exitCode, 0); }
    void Import() { ASSERT_EQ(Run({"--yes", "texture", "import", Utf8(dds_)}).exitCode, 0); }

    /// The game file's XML without pixels and line ends.
    std::string TextAroundPixels() {
        EXPECT_EQ(Run({"open", Utf8(wall_)}).exitCode, 0);
        const std::string xml = ReadFile(kit_ / "TempFiles" / "Wall.xml");
        std::string text;
        std::size_t from = 0;
        for (std::size_t blob = xml.find("<d:blob"); blob != std::string::npos; blob = xml.find("<d:blob", from)) {
            const std::size_t hex = xml.find('>', blob) + 1;
            text += xml.substr(from, hex - from);
            from = xml.find("</d:blob", hex);
        }
        text += xml.substr(from);
        std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
        return text;
    }

    /// Imports the changed picture, exports it again and compares.
    void ExpectImported(const std::string& changed, const std::string& textBefore) {
        Import();
        EXPECT_EQ(TextAroundPixels(), textBefore);
        ExportAgain();
        EXPECT_EQ(ReadFile(dds_).substr(kHeader), changed.substr(kHeader));
    }

    fs::path wall_;
    fs::path dds_;
};

std::string Opaque(std::string pixels) {
    for (std::size_t i = 3; i < pixels.size(); i += 4)
        pixels[i] = '\xFF';
    return pixels;
}

// Every format and number of levels is accepted by both, 10 levels and more too, whose count stands as 16 and more.
TEST_F(TextureReaders, SeeThePixelsThatThePreviewShows) {
    for (const Format& format : kFormats) {
        for (const int levels : {1, 9, 10, 16}) {
            SCOPED_TRACE(format.text + ", " + std::to_string(levels) + " levels");
            Export(RandomTexture(format, 32, levels));
            const std::string shown = PixelsByPreview();
            ASSERT_EQ(shown.size(), 32U * 32 * 4);
            const std::string magick = PixelsByImageMagick(dds_);
            const std::string pillow = PixelsByPillow(dds_);
            // The header announces alpha for the format that has none as well.
            EXPECT_TRUE(shown == (format.hasAlpha ? magick : Opaque(magick)));
            EXPECT_TRUE(shown == (format.hasAlpha ? pillow : Opaque(pillow)));
        }
    }
}

// Sides that are no multiple of a block's.
TEST_F(TextureReaders, SeeTheSameAtTheEdges) {
    for (const Format& format : kFormats) {
        for (const std::size_t side : {1U, 2U, 5U, 7U}) {
            SCOPED_TRACE(format.text + ", " + std::to_string(side));
            Export(RandomTexture(format, side, 1));
            const std::string magick = PixelsByImageMagick(dds_);
            EXPECT_TRUE(PixelsByPreview() == (format.hasAlpha ? magick : Opaque(magick)));
        }
    }
}

TEST_F(TextureReaders, ChangeADxt1Picture) {
    Export(RandomTexture(kFormats[0], 64, 7));
    const std::string text = TextAroundPixels();
    const std::string before = ReadFile(dds_);
    RunProgram(kImageMagick, {"-size", "64x64", "gradient:red-blue", "-define", "dds:compression=dxt1", "-define",
                              "dds:mipmaps=6", Utf8(dds_)});
    const std::string changed = ReadFile(dds_);
    ASSERT_EQ(changed.size(), before.size());
    ASSERT_NE(changed.substr(kHeader), before.substr(kHeader));
    ExpectImported(changed, text);
    EXPECT_TRUE(PixelsByPreview() == PixelsByImageMagick(dds_));
}

TEST_F(TextureReaders, ChangeAnUncompressedPicture) {
    for (const Format& format : {kFormats[2], kFormats[3]}) {
        Export(RandomTexture(format, 16, 5));
        const std::string text = TextAroundPixels();
        RunProgram(kImageMagick, {"-size", "16x16", "gradient:rgba(200,10,20,0.8)-rgba(10,20,200,0.3)", "-alpha", "on",
                                  "-define", "dds:compression=none", "-define", "dds:mipmaps=4", Utf8(dds_)});
        const std::string changed = ReadFile(dds_);
        ASSERT_EQ(changed.size(), kHeader + (256 + 64 + 16 + 4 + 1) * 4) << format.text;
        ExpectImported(changed, text);
    }
}

TEST_F(TextureReaders, ChangeADxt3PictureWithAllItsLevels) {
    Export(RandomTexture(kFormats[1], 64, 7));
    const std::string text = TextAroundPixels();
    const std::string before = ReadFile(dds_);
    RunProgram(kImageMagick, {"-size", "64x64", "gradient:rgba(200,10,20,0.8)-rgba(10,20,200,0.3)",
                              "png32:" + Utf8(Path("wall.png"))});
    RunProgram(kTextureTools, {"-nocuda", "-alpha", "-bc2", Utf8(Path("wall.png")), Utf8(dds_)});
    const std::string changed = ReadFile(dds_);
    ASSERT_EQ(changed.size(), before.size());
    ASSERT_NE(changed.substr(kHeader), before.substr(kHeader));
    ExpectImported(changed, text);
    EXPECT_TRUE(PixelsByPreview() == PixelsByImageMagick(dds_));
}

TEST_F(TextureReaders, SavingFewerLevelsLeavesTheLaterBlobsEmpty) {
    Export(RandomTexture(kFormats[0], 64, 7));
    const std::string text = TextAroundPixels();
    RunProgram(kImageMagick, {"-size", "64x64", "gradient:red-blue", "-define", "dds:compression=dxt1", "-define",
                              "dds:mipmaps=0", Utf8(dds_)});
    const std::string changed = ReadFile(dds_);
    ASSERT_EQ(changed.size(), kHeader + 2048);
    Import();
    EXPECT_EQ(TextAroundPixels(), text); // the sizes stay as they were
    ExportAgain();
    const std::string again = ReadFile(dds_);
    EXPECT_EQ(again.substr(kHeader, 2048), changed.substr(kHeader));
    EXPECT_EQ(again.substr(kHeader + 2048), std::string(512 + 128 + 32 + 8 + 8 + 8, '\0'));
}

} // namespace
} // namespace tamarind::tests
