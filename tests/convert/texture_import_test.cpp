#include "convert/texture_import.h"

#include "convert/companion.h"
#include "convert/texture_export.h"
#include "convert/texture_rig.h"
#include "platform/expect_error.h"
#include "platform/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using platform::Answer;
using platform::Buttons;
using platform::ForDisplay;
using platform::Icon;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Ending = Imported::Ending;

class ImportingTextures : public tests::TextureRig {
protected:
    ImportingTextures() {
        folder.Write("Game\\Wall.TgPcDx", "the old file");
        WriteCompanion({"<t><d:blob d:size=\"4\">", "</d:blob>\r\n<d:blob d:size=\"2\">", "</d:blob></t>"}, {4, 2});
        WritePicture("ABCDEF");
    }
    void WriteCompanion(const std::vector<std::string_view>& pieces, const std::vector<std::int32_t>& sizes) {
        folder.Write("Kit\\TempFiles\\Wall.dat", FormatCompanion(pieces, sizes, wall));
    }
    void WritePicture(const std::string& pixels) {
        folder.Write("Kit\\TempFiles\\Wall.dds", std::string(128, 'h') + pixels);
    }
    Imported Import(Answer answer = Answer::Yes) {
        rig.ui.answers = {answer};
        return ImportTextureFrom(rig.context, base + "dds");
    }
    void ExpectUntouched() {
        EXPECT_EQ(Game("Wall.TgPcDx"), "the old file");
        EXPECT_THAT(GameNames(), ElementsAre("Wall.TgPcDx"));
        EXPECT_THAT(rig.processes.starts, IsEmpty());
        EXPECT_FALSE(TempHas("Wall.xml"));
    }
    void ExpectRefusal(const std::string& message) {
        EXPECT_EQ(ImportTextureFrom(rig.context, base + "dds").ending, Ending::Refused);
        ASSERT_EQ(rig.ui.Messages().size(), 1U);
        EXPECT_EQ(rig.ui.Messages()[0].text, message);
        EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
        EXPECT_EQ(rig.ui.Messages()[0].buttons, Buttons::Ok);
        ExpectUntouched();
    }
};

constexpr const char* kRebuilt = "<t><d:blob d:size=\"4\">\r\n41424344</d:blob>\r\n<d:blob d:size=\"2\">\r\n"
                                 "4546</d:blob></t>\r\n";

TEST_F(ImportingTextures, PutsThePixelsIntoTheGameFileAndKeepsABackup) {
    const Imported imported = Import();
    EXPECT_EQ(imported.ending, Ending::Done);
    EXPECT_EQ(imported.file, wall);
    EXPECT_EQ(imported.backup, wall + ".bak");
    EXPECT_EQ(Game("Wall.TgPcDx"), tests::GameFile(kRebuilt));
    EXPECT_EQ(Game("Wall.TgPcDx.bak"), "the old file");
    EXPECT_EQ(Temp("Wall.xml"), kRebuilt);
    EXPECT_EQ(rig.view.EditorText(), kRebuilt);
    EXPECT_THAT(TempNames(), ElementsAre("Wall.dat", "Wall.dds", "Wall.xml")); // the output was renamed
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("Saved " + ForDisplay(wall) + ", old content in " + ForDisplay(wall + ".bak")));
}

TEST_F(ImportingTextures, AsksFirst) {
    EXPECT_EQ(Import(Answer::No).ending, Ending::Declined);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.ui.Messages()[0];
    EXPECT_EQ(message.text, "This option will convert your modified file " + ForDisplay(base + "dds") + "\r\nto " +
                                ForDisplay(wall) + "\r\nand create a backup of the original file. Continue?");
    EXPECT_EQ(message.icon, Icon::Exclamation);
    EXPECT_EQ(message.buttons, Buttons::YesNo);
    EXPECT_EQ(message.title, "Tamarind");
    ExpectUntouched();
}

TEST_F(ImportingTextures, ChoosesThePictureInTempFiles) {
    rig.ui.filePaths = {base + "dds"};
    rig.ui.answers = {Answer::Yes};
    EXPECT_EQ(ImportTexture(rig.context).ending, Ending::Done);
    ASSERT_EQ(rig.ui.FileDialogs().size(), 1U);
    const platform::FileDialog dialog = rig.ui.FileDialogs()[0];
    EXPECT_FALSE(dialog.save);
    EXPECT_EQ(dialog.title, "View .dds file");
    EXPECT_EQ(dialog.filter, "DDS Files (*.dds)|*.dds");
    EXPECT_EQ(dialog.startFolder, folder / "Kit\\TempFiles");
}

TEST_F(ImportingTextures, DoesNothingWhenTheDialogIsCancelled) {
    rig.ui.filePaths = {""};
    EXPECT_EQ(ImportTexture(rig.context).ending, Ending::Declined);
    EXPECT_THAT(rig.ui.Messages(), IsEmpty());
    ExpectUntouched();
}

TEST_F(ImportingTextures, NeedsTheCompanion) {
    folder.Disk().Remove(base + "dat");
    ExpectRefusal("No header file found in TempFiles for this .dds file, cannot process further.");
}

TEST_F(ImportingTextures, RefusesADamagedCompanionByFileAndLine) {
    folder.Write("Kit\\TempFiles\\Wall.dat", " 1\r\n\"a\"\r\n\"b\"\r\nmany\r\n\"" + wall + "\"\r\n");
    ExpectRefusal(ForDisplay(base + "dat") + "\r\ncannot be used: in line 4 there should be the size of a blob, from 0 "
                                             "to 2147483647. Nothing was changed.");
}

TEST_F(ImportingTextures, RunsTheConverterWithASlashInTempFiles) {
    Import();
    ASSERT_EQ(rig.processes.starts.size(), 1U);
    const platform::ProcessStart& start = rig.processes.starts[0];
    EXPECT_EQ(start.commandLine, "serz.exe \"" + base + "xml\" /bin:\"" + base + "bin\"");
    EXPECT_EQ(start.folder, folder / "Kit\\TempFiles");
    EXPECT_THAT(start.searchFolders, ElementsAre(folder / "Kit", folder / "Game"));
    EXPECT_EQ(start.style, platform::WindowStyle::Hidden);
}

TEST_F(ImportingTextures, RenamesTheOriginalBeforeTheConverterRuns) {
    converter.onStart = [this] { EXPECT_THAT(GameNames(), ElementsAre("Wall.TgPcDx.bak")); };
    EXPECT_EQ(Import().ending, Ending::Done);
}

TEST_F(ImportingTextures, NumbersFurtherBackups) {
    Import();
    const std::string first = Game("Wall.TgPcDx");
    WritePicture("UVWXYZ");
    EXPECT_EQ(Import().backup, wall + ".bak1");
    EXPECT_EQ(Game("Wall.TgPcDx.bak1"), first);
    EXPECT_EQ(Game("Wall.TgPcDx.bak"), "the old file");
}

TEST_F(ImportingTextures, OverwritesWhenAllBackupNamesAreTaken) {
    folder.Write("Game\\Wall.TgPcDx.bak", "0");
    for (int i = 1; i <= 50; ++i)
        folder.Write("Game\\Wall.TgPcDx.bak" + std::to_string(i), std::to_string(i));
    const Imported imported = Import();
    EXPECT_EQ(imported.ending, Ending::Done);
    EXPECT_EQ(imported.backup, "");
    EXPECT_EQ(Game("Wall.TgPcDx"), tests::GameFile(kRebuilt));
    EXPECT_EQ(Game("Wall.TgPcDx.bak50"), "50");
    EXPECT_EQ(GameNames().size(), 52U);
    EXPECT_FALSE(TempHas("Wall.bin"));
}

TEST_F(ImportingTextures, LeavesTheOriginalAloneWhenNoBackupNameIsFreeAndTheConverterFails) {
    folder.Write("Game\\Wall.TgPcDx.bak", "0");
    for (int i = 1; i <= 50; ++i)
        folder.Write("Game\\Wall.TgPcDx.bak" + std::to_string(i), std::to_string(i));
    converter.isBroken = true;
    EXPECT_EQ(tests::NumberOfError([&] { Import(); }), 53);
    EXPECT_EQ(Game("Wall.TgPcDx"), "the old file");
}

TEST_F(ImportingTextures, NeverReadsThePicturesHeader) {
    folder.Write("Kit\\TempFiles\\Wall.dds", std::string(128, '\xFF') + "ABCDEF");
    Import();
    EXPECT_EQ(Temp("Wall.xml"), kRebuilt);
}

TEST_F(ImportingTextures, GivesEachBlobAtMostItsSize) {
    WritePicture("ABCDEFGHIJ");
    Import();
    EXPECT_EQ(Temp("Wall.xml"), kRebuilt);
    EXPECT_EQ(rig.ui.StatusLines().size(), 1U);
}

TEST_F(ImportingTextures, LeavesLaterBlobsShortOrEmptyWithoutAMessage) {
    WritePicture("ABCDE");
    Import();
    EXPECT_THAT(Temp("Wall.xml"), HasSubstr("\r\n45</d:blob>"));
    WritePicture("ABC");
    Import();
    // Directly before the end of the empty blob there is the line feed of the piece.
    EXPECT_EQ(Temp("Wall.xml"),
              "<t><d:blob d:size=\"4\">\r\n414243</d:blob>\r\n<d:blob d:size=\"2\">\r</d:blob></t>\r\n");
    EXPECT_EQ(rig.ui.Messages().size(), 2U); // the two questions
    EXPECT_THAT(rig.ui.StatusLines(),
                testing::Contains("The picture is smaller than the texture was: its last levels stay short."));
}

TEST_F(ImportingTextures, TakesPicturesWithoutPixels) {
    for (const std::size_t size : {0U, 127U, 128U}) {
        folder.Write("Kit\\TempFiles\\Wall.dds", std::string(size, 'h'));
        EXPECT_EQ(Import().ending, Ending::Done);
        EXPECT_EQ(Temp("Wall.xml"), "<t><d:blob d:size=\"4\">\r</d:blob>\r\n<d:blob d:size=\"2\">\r</d:blob></t>\r\n");
    }
}

TEST_F(ImportingTextures, WritesHexTextInLinesOfFourGroups) {
    WriteCompanion({"<a>", "</d:blob>"}, {40});
    std::string pixels;
    for (int i = 0; i < 40; ++i)
        pixels += static_cast<char>(i);
    WritePicture(pixels);
    Import();
    EXPECT_EQ(Temp("Wall.xml"), "<a>\r\n0001020304050607 08090A0B0C0D0E0F 1011121314151617 18191A1B1C1D1E1F\n"
                                "2021222324252627</d:blob>\r\n");
}

TEST_F(ImportingTextures, DropsEachLineFeedDirectlyBeforeTheEndOfABlob) {
    WriteCompanion({"<n>\n</d:blob>\r\n</d:blob></n>", "</d:blob>\n</d:blob x\n</d:blo"}, {1});
    WritePicture("A");
    Import();
    EXPECT_EQ(Temp("Wall.xml"), "<n></d:blob>\r</d:blob></n>\r\n41</d:blob></d:blob x\n</d:blo\r\n");
}

TEST_F(ImportingTextures, DeletesAnOutputLeftFromBefore) {
    folder.Write("Kit\\TempFiles\\Wall.bin", "stale");
    converter.isBroken = true;
    rig.ui.answers = {Answer::Yes, Answer::No};
    EXPECT_EQ(tests::NumberOfError([&] { ImportTextureFrom(rig.context, base + "dds"); }), 53);
    EXPECT_FALSE(TempHas("Wall.bin"));
    EXPECT_THAT(GameNames(), ElementsAre("Wall.TgPcDx.bak"));
}

TEST_F(ImportingTextures, OffersToPutTheBackupBackWhenTheConverterFails) {
    converter.isBroken = true;
    rig.ui.answers = {Answer::Yes, Answer::Yes};
    const auto error = tests::ErrorOf([&] { ImportTextureFrom(rig.context, base + "dds"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), 53);
    EXPECT_THAT(error->Details(), HasSubstr("The game file is unchanged."));
    const platform::Message offer = rig.ui.Messages().at(1);
    EXPECT_EQ(offer.text, "File not found\r\nThe converter did not write " + ForDisplay(base + "bin") +
                              ".\r\nThe original content of " + ForDisplay(wall) + " is in " +
                              ForDisplay(wall + ".bak") + ".\r\nPut it back at once?");
    EXPECT_EQ(offer.buttons, Buttons::YesNo);
    EXPECT_EQ(Game("Wall.TgPcDx"), "the old file");
    EXPECT_THAT(GameNames(), ElementsAre("Wall.TgPcDx"));
}

TEST_F(ImportingTextures, SaysWhereTheOriginalIsWhenItIsNotPutBack) {
    converter.isBroken = true;
    rig.ui.answers = {Answer::Yes, Answer::No};
    const auto error = tests::ErrorOf([&] { ImportTextureFrom(rig.context, base + "dds"); });
    ASSERT_TRUE(error);
    EXPECT_THAT(error->Details(), HasSubstr("is in " + ForDisplay(wall + ".bak") + "."));
    EXPECT_EQ(Game("Wall.TgPcDx.bak"), "the old file");
}

TEST_F(ImportingTextures, OfAMissingGameFileChangesNothing) {
    folder.Disk().Remove(wall);
    EXPECT_EQ(tests::NumberOfError([&] { Import(); }), 53);
    EXPECT_THAT(GameNames(), IsEmpty());
    EXPECT_THAT(rig.processes.starts, IsEmpty());
}

TEST_F(ImportingTextures, OfAMissingPictureChangesNothing) {
    folder.Disk().Remove(base + "dds");
    EXPECT_EQ(tests::NumberOfError([&] { Import(); }), 53);
    ExpectUntouched();
}

TEST_F(ImportingTextures, KeepsTextThatWasNotSaved) {
    rig.view.TypeText("<typed/>");
    Import();
    EXPECT_EQ(Temp("Recovered\\Wall.xml"), "<typed/>");
}

TEST_F(ImportingTextures, WaitsWhileAFileOfThatNameIsBeingConverted) {
    rig.session.convertingBases = {base};
    ExpectRefusal(ForDisplay(wall) + "\r\nhas to wait: a file of that name is being converted.");
}

TEST_F(ImportingTextures, ReplacesTheLastThreeCharactersOfAnyEnding) {
    folder.Write("Kit\\TempFiles\\Wall.datdat", Temp("Wall.dat"));
    folder.Write("Kit\\TempFiles\\Wall.databc", Temp("Wall.dds"));
    rig.ui.answers = {Answer::Yes};
    EXPECT_EQ(ImportTextureFrom(rig.context, base + "databc").ending, Ending::Done);
    EXPECT_EQ(Temp("Wall.datxml"), kRebuilt);
}

TEST_F(ImportingTextures, OverwritesNoFilesOutsideTempFiles) {
    folder.Write("Game\\Wall.dds", Temp("Wall.dds"));
    folder.Write("Game\\Wall.dat", Temp("Wall.dat"));
    folder.Write("Game\\Wall.bin", "a blueprint");
    EXPECT_EQ(ImportTextureFrom(rig.context, folder / "Game\\Wall.dds").ending, Ending::Refused);
    EXPECT_EQ(Game("Wall.bin"), "a blueprint");
    EXPECT_THAT(rig.ui.MessageTexts().at(0), HasSubstr("would be overwritten."));
    folder.Disk().Remove(folder / "Game\\Wall.bin");
    rig.ui.answers = {Answer::Yes};
    EXPECT_EQ(ImportTextureFrom(rig.context, folder / "Game\\Wall.dds").ending, Ending::Done);
}

TEST_F(ImportingTextures, RefusesAGameFileThatIsItsOwnWorkingFile) {
    wall = base + "bin";
    folder.Write("Kit\\TempFiles\\Wall.bin", "a game file");
    WriteCompanion({"<a>", "</d:blob>"}, {1});
    EXPECT_EQ(ImportTextureFrom(rig.context, base + "dds").ending, Ending::Refused);
    EXPECT_EQ(Temp("Wall.bin"), "a game file");
}

TEST_F(ImportingTextures, BringsBackWhatWasExported) {
    SetTexture(tests::kDxt1, {{"8", "4142434445464748"}, {"8", "1112131415161718"}});
    const std::string before = rig.view.EditorText();
    ExportTexture(rig.context);
    Import();
    const auto withoutLineEnds = [](std::string text) {
        std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
        return text;
    };
    EXPECT_EQ(withoutLineEnds(rig.view.EditorText()), withoutLineEnds(before));
}

} // namespace
} // namespace tamarind::convert
