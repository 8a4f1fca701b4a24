#include "convert/texture_export.h"

#include "convert/dds_header.h"
#include "convert/texture_rig.h"
#include "platform/expect_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::convert {
namespace {

using platform::Icon;
using testing::ElementsAre;
using testing::IsEmpty;

class ExportingTextures : public tests::TextureRig {
protected:
    [[nodiscard]] std::string Pixels() const { return Temp("Wall.dds").substr(kDdsHeaderSize); }

    /// Refused with this one message, in the ordinary window; nothing is written.
    void ExpectRefusal(const std::string& message) {
        folder.Write("Kit\\TempFiles\\Wall.dds", "an older picture");
        EXPECT_FALSE(ExportTexture(rig.context).done);
        ASSERT_EQ(rig.ui.Messages().size(), 1U);
        EXPECT_EQ(rig.ui.Messages()[0].text, message);
        EXPECT_EQ(rig.ui.Messages()[0].icon, Icon::Exclamation);
        EXPECT_EQ(rig.ui.Messages()[0].title, "Tamarind");
        EXPECT_FALSE(TempHas("Wall.dds")); // deleted before the text is looked at
        EXPECT_FALSE(TempHas("Wall.dat"));
    }
    void ExpectError(int number) {
        EXPECT_EQ(tests::NumberOfError([&] { ExportTexture(rig.context); }), number);
        EXPECT_THAT(TempNames(), IsEmpty());
        EXPECT_THAT(rig.ui.Messages(), IsEmpty());
    }
};

TEST_F(ExportingTextures, WritesHeaderAndPixelsOfAllBlobs) {
    SetTexture(tests::kDxt1, {{"8", "4142434445464748"}, {"8", "494A4B4C4D4E4F50"}});
    const Exported exported = ExportTexture(rig.context);
    EXPECT_TRUE(exported.done);
    EXPECT_EQ(exported.dds, base + "dds");
    EXPECT_EQ(exported.dat, base + "dat");
    const auto header = MakeDdsHeader({PixelLayout::Dxt1, 4, 4, 8, 2});
    EXPECT_EQ(Temp("Wall.dds"), std::string(header.begin(), header.end()) + "ABCDEFGHIJKLMNOP");
    EXPECT_THAT(TempNames(), ElementsAre("Wall.dat", "Wall.dds"));
}

TEST_F(ExportingTextures, KeepsTheRestOfTheXmlInTheCompanion) {
    rig.view.SetEditorText("<Width>4</Width><Height>4</Height><Format>" + std::string(tests::kArgb) +
                           "</Format>\r\n<d:blob d:size=\"4\">00010203</d:blob>\n<d:blob d:size=\"1\">04</d:blob></x>");
    ExportTexture(rig.context);
    EXPECT_EQ(Temp("Wall.dat"),
              " 2\r\n\"<Width>4</Width><Height>4</Height><Format>HC_IMAGE_FORMAT_COLA8888</Format>"
              "\r\n<d:blob d:size=#4#>\"\r\n\"</d:blob>\n<d:blob d:size=#1#>\"\r\n\"</d:blob></x>\"\r\n"
              "4\r\n1\r\n\"" +
                  wall + "\"\r\n");
}

TEST_F(ExportingTextures, SaysHowThePictureMustBeSaved) {
    SetTexture(tests::kDxt3, tests::Blobs(3));
    rig.ui.onMessage = [this](const platform::Message&) { EXPECT_EQ(rig.ui.BusyDepth(), 0); };
    ExportTexture(rig.context);
    ASSERT_EQ(rig.ui.Messages().size(), 1U);
    const platform::Message message = rig.ui.Messages()[0];
    EXPECT_EQ(message.text, "If you wish to edit this file, then it must be saved with the following format:-\r\n"
                            "1. .DDS\r\n2. DXT3 ARGB\r\n3. Number of Mip-Maps - 3");
    EXPECT_EQ(message.title, "Editing .dds files");
    EXPECT_EQ(message.icon, Icon::Information);
    EXPECT_EQ(rig.ui.BusyTimes(), 1);
}

TEST_F(ExportingTextures, NamesEveryFormat) {
    for (const auto& [format, label] :
         std::vector<std::pair<const char*, const char*>>{{tests::kDxt1, "DXT1 ARGB"},
                                                          {tests::kDxt3, "DXT3 ARGB"},
                                                          {tests::kRgb, "RGB 8.8.8"},
                                                          {tests::kArgb, "ARGB 8.8.8.8"},
                                                          {"hc_image_format_col888", "RGB 8.8.8"}}) {
        SetTexture(format, tests::Blobs(1));
        ExportTexture(rig.context);
        EXPECT_THAT(rig.ui.MessageTexts().back(), testing::HasSubstr(std::string("\r\n2. ") + label + "\r\n"));
    }
}

TEST_F(ExportingTextures, IgnoresBlanksAndLineBreaksInHexText) {
    SetTexture(tests::kDxt1, {{"8", "\r\n41424344 454647 4\n8\r\n"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), "ABCDEFGH");
}

TEST_F(ExportingTextures, TakesOtherCharactersAsMinusOne) {
    SetTexture(tests::kDxt1, {{"2", "4GGG"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), "\x3F\xEF"); // 64 - 1, and -17 modulo 256
}

TEST_F(ExportingTextures, LeavesAnOddLastDigitUnused) {
    SetTexture(tests::kDxt1, {{"2", "41424"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), "AB");
}

TEST_F(ExportingTextures, PutsTheNextBlobDirectlyBehindAShortOne) {
    SetTexture(tests::kDxt1, {{"4", "4142"}, {"2", "4344"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), std::string("ABCD\0\0", 6)); // the file is as long as the sizes say
}

TEST_F(ExportingTextures, WithMoreHexTextThanTheSizeIsASubscriptError) {
    SetTexture(tests::kDxt1, {{"1", "4142"}, {"5", ""}});
    ExpectError(9);
}

TEST_F(ExportingTextures, ReadsASizeThatIsNoNumberAsZero) {
    SetTexture(tests::kDxt1, {{"many", ""}, {"1", "41"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), "A");
    EXPECT_EQ(Temp("Wall.dds").substr(20, 4), std::string(4, '\0'));
}

TEST_F(ExportingTextures, WithSizesBeyondThirtyTwoBitsOverflows) {
    SetTexture(tests::kDxt1, {{"2147483647", "41"}});
    ExpectError(6);
}

TEST_F(ExportingTextures, WithAWidthOrHeightAbove32767Overflows) {
    rig.view.SetEditorText(tests::TextureText(tests::kDxt1, "32768", "4", tests::Blobs(1)));
    ExpectError(6);
    rig.view.SetEditorText(tests::TextureText(tests::kDxt1, "4", "40000", tests::Blobs(1)));
    ExpectError(6);
}

TEST_F(ExportingTextures, RefusesOtherFormatsAfterDeletingTheOlderPicture) {
    SetTexture("HC_IMAGE_FORMAT_COL565", tests::Blobs(1));
    ExpectRefusal("Sorry, unable to convert files of the following type at this time:- HC_IMAGE_FORMAT_COL565\r\n");
}

TEST_F(ExportingTextures, TakesSixteenBlobsAndRefusesSeventeen) {
    SetTexture(tests::kDxt1, tests::Blobs(16));
    EXPECT_TRUE(ExportTexture(rig.context).done);
    EXPECT_EQ(Temp("Wall.dds")[28], 0x16);
}

TEST_F(ExportingTextures, RefusesSeventeenBlobs) {
    SetTexture(tests::kDxt1, tests::Blobs(17));
    ExpectRefusal("Sorry, unable to convert files of the following type at this time:-Multiple-Texture file.\r\n");
}

TEST_F(ExportingTextures, RefusesAMillionBlobs) {
    SetTexture(tests::kDxt1, tests::Blobs(1'000'000));
    ExpectRefusal("Sorry, unable to convert files of the following type at this time:-Multiple-Texture file.\r\n");
}

TEST_F(ExportingTextures, RefusesTextThatIsNoTexture) {
    rig.view.SetEditorText("<Route/>");
    ExpectRefusal("There is no texture in the text editor: its text has no \"<Format\".");
}

TEST_F(ExportingTextures, RefusesATextureWithoutBlobs) {
    SetTexture(tests::kDxt1, {});
    ExpectRefusal("This texture holds no picture: there is no \"<d:blob\" in it.");
}

TEST_F(ExportingTextures, RefusesABlobThatIsNeverClosed) {
    rig.view.SetEditorText("<Format>HC_IMAGE_FORMAT_COMPRESSED</Format><d:blob d:size=\"1\">00");
    ExpectRefusal("This texture is damaged: a \"<d:blob\" in it has no size or no end.");
}

TEST_F(ExportingTextures, RefusesAWidthThatIsNoNumber) {
    rig.view.SetEditorText(tests::TextureText(tests::kDxt1, "wide", "4", tests::Blobs(1)));
    ExpectRefusal("This texture is damaged: its width or height is no number.");
}

TEST_F(ExportingTextures, RefusesBeforeAnythingWhenNoFileIsOpen) {
    rig.session.FileBaseName.clear();
    EXPECT_FALSE(ExportTexture(rig.context).done);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Please open a texture first: there is none to convert."));
}

TEST_F(ExportingTextures, ReplacesTheFilesOfAnEarlierExport) {
    SetTexture(tests::kDxt1, {{"2", "4142"}});
    ExportTexture(rig.context);
    SetTexture(tests::kDxt3, {{"1", "43"}});
    ExportTexture(rig.context);
    EXPECT_EQ(Pixels(), "C");
    EXPECT_TRUE(Temp("Wall.dat").ends_with("\r\n1\r\n\"" + wall + "\"\r\n"));
}

TEST_F(ExportingTextures, WorksOnTheTextureThatWasOpenWhenItBegan) {
    SetTexture(tests::kDxt1, {{"1", "41"}});
    rig.ui.onEvents = [this](int) {
        rig.session.FileBaseName = "Other.";
        rig.view.SetEditorText("<Other/>");
        rig.view.ShowFilePath("C:\\Other.bin");
    };
    EXPECT_TRUE(ExportTexture(rig.context).done);
    EXPECT_GE(rig.ui.EventRounds(), 2);
    EXPECT_EQ(Pixels(), "A");
    EXPECT_TRUE(Temp("Wall.dat").ends_with("\"" + wall + "\"\r\n"));
}

TEST_F(ExportingTextures, SaysThatANumberSignComesBackAsAQuote) {
    rig.view.SetEditorText("<!-- #1 -->" + tests::TextureText(tests::kDxt1, "4", "4", tests::Blobs(1)));
    ExportTexture(rig.context);
    EXPECT_THAT(rig.ui.StatusLines(),
                ElementsAre("This texture's text holds the character #: it comes back as a double quote."));
}

} // namespace
} // namespace tamarind::convert
