#include "convert/companion.h"
#include "convert/texture_export.h"
#include "convert/texture_import.h"
#include "convert/texture_sample.h"
#include "faults/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// A texture's picture and companion never belong to different textures, and a game file's content is always somewhere
// where the person is told to look.
namespace tamarind::tests {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

constexpr int kWays = 8;
constexpr const char* kOldFile = "the old texture";

const char* DescriptionOf(FaultKind kind) {
    switch (kind) {
    case FaultKind::IoError: return "Device I/O error";
    case FaultKind::AccessDenied: return "Permission denied";
    default: return "Disk full";
    }
}

bool TempHas(const FaultyKit& kit, const std::string& name) {
    return kit.folder.Disk().EntryExists(kit.folder / ("Kit\\TempFiles\\" + name));
}

std::string Temp(const FaultyKit& kit, const std::string& name) { return kit.folder.Read("Kit\\TempFiles\\" + name); }

void OpenWall(FaultyKit& kit) {
    kit.rig.view.ShowFilePath(kit.folder.Write("Game\\Wall.TgPcDx", kOldFile));
    kit.rig.session.FileBaseName = "Wall.";
    kit.rig.session.TempBase = kit.folder / "Kit\\TempFiles\\Wall.";
    kit.rig.session.RSFileLoaded = true;
    kit.rig.view.SetEditorText(TextureText(kDxt1, "4", "4", {{"8", "4142434445464748"}}));
}

TEST(TextureFaults, ExportNeverLeavesAPictureWithAnotherOnesCompanion) {
    const int points = TryEveryFault([](FaultRun& run) {
        FaultyKit kit(run.fault);
        OpenWall(kit);
        kit.folder.Write("Kit\\TempFiles\\Wall.dds", "older picture");
        kit.folder.Write("Kit\\TempFiles\\Wall.dat", "older companion");
        kit.Run([](session::EditorContext& context) { convert::ExportTexture(context); });
        kit.Finish(run);
        EXPECT_EQ(kit.Game("Wall.TgPcDx"), kOldFile) << run.Name();
        if (run.struck) {
            EXPECT_THAT(kit.Told(), HasSubstr(DescriptionOf(run.fault.kind))) << run.Name();
        } else {
            EXPECT_EQ(Temp(kit, "Wall.dds").substr(128), "ABCDEFGH") << run.Name();
            EXPECT_THAT(Temp(kit, "Wall.dat"), HasSubstr("d:size=#8#")) << run.Name();
        }
        const bool oldPicture = TempHas(kit, "Wall.dds") && Temp(kit, "Wall.dds") == "older picture";
        const bool oldCompanion = TempHas(kit, "Wall.dat") && Temp(kit, "Wall.dat") == "older companion";
        if (TempHas(kit, "Wall.dds") && TempHas(kit, "Wall.dat")) {
            EXPECT_EQ(oldPicture, oldCompanion) << run.Name();
        }
        if (!run.fault.forever) {
            const auto names = kit.folder.Names("Kit\\TempFiles");
            EXPECT_EQ(names, WithoutTemporaries(names)) << run.Name();
        }
    });
    // Two old files removed; twice Create, Write, Flush, Close, Replace; the picture is written in two pieces.
    EXPECT_EQ(points, (2 + 6 + 5) * kWays);
}

/// The last rename, when it fails once, is made good by a copy.
bool IsMadeGood(const FaultRun& run) {
    constexpr int kLastRename = 9;
    return run.fault.at == kLastRename && !run.fault.forever;
}

/// What the person is told to look at holds the old content.
void CheckOldContent(const FaultyKit& kit, const FaultRun& run) {
    const std::string newFile = GameFile("<t><d:blob d:size=\"2\">\r\n4142</d:blob></t>\r\n");
    const bool inPlace = kit.GameHas("Wall.TgPcDx");
    if (inPlace) {
        EXPECT_THAT(kit.Game("Wall.TgPcDx"), AnyOf(kOldFile, newFile)) << run.Name();
    }
    const bool isOld = inPlace && kit.Game("Wall.TgPcDx") == kOldFile;
    if (!isOld) {
        EXPECT_EQ(kit.Game("Wall.TgPcDx.bak1"), kOldFile) << run.Name();
    }
    if (!inPlace) {
        EXPECT_THAT(kit.Told(), HasSubstr("Wall.TgPcDx.bak1")) << run.Name();
    }
    EXPECT_EQ(kit.Game("Wall.TgPcDx.bak"), "an earlier backup") << run.Name();
    EXPECT_EQ(!run.struck || IsMadeGood(run), inPlace && !isOld) << run.Name();
}

int TryImport(platform::Answer putBack) {
    return TryEveryFault([putBack](FaultRun& run) {
        FaultyKit kit(run.fault);
        OpenWall(kit);
        kit.folder.Write("Game\\Wall.TgPcDx.bak", "an earlier backup");
        const std::string base = kit.folder / "Kit\\TempFiles\\Wall.";
        kit.folder.Write("Kit\\TempFiles\\Wall.dat",
                         convert::FormatCompanion({"<t><d:blob d:size=\"2\">", "</d:blob></t>"}, {2},
                                                  kit.folder / "Game\\Wall.TgPcDx"));
        kit.folder.Write("Kit\\TempFiles\\Wall.dds", std::string(128, 'h') + "AB");
        kit.folder.Write("Kit\\TempFiles\\Wall.bin", "an earlier output");
        kit.rig.ui.answers = {platform::Answer::Yes, putBack};
        kit.Run([&base](session::EditorContext& context) { convert::ImportTextureFrom(context, base + "dds"); });
        kit.rig.ui.answers.clear(); // not every failure comes to the second question
        kit.Finish(run);
        CheckOldContent(kit, run);
        if (run.struck && !IsMadeGood(run)) {
            EXPECT_THAT(kit.Told(), HasSubstr(DescriptionOf(run.fault.kind))) << run.Name();
        }
        if (putBack == platform::Answer::Yes && !run.fault.forever) {
            EXPECT_TRUE(kit.GameHas("Wall.TgPcDx")) << run.Name();
        }
    });
}

// The XML: Create, Write, Flush, Close, Replace. The earlier output removed, the original renamed, CopyAttributes, the
// output renamed.
TEST(TextureFaults, ImportNeverLosesTheGameFile) { EXPECT_EQ(TryImport(platform::Answer::Yes), (5 + 4) * kWays); }

TEST(TextureFaults, ImportNeverLosesTheGameFileThatIsNotPutBack) { TryImport(platform::Answer::No); }

} // namespace
} // namespace tamarind::tests
