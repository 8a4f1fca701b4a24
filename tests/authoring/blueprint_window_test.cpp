#include "authoring/blueprint_window.h"

#include "platform/paths.h"
#include "support/editor_rig.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

using authoring::BlueprintWindow;
using session::BlueprintMode;
using session::FolderJob;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFolder = "C:\\Game\\Source\\Fern\\RouteMarkers";
constexpr const char* kFile = "C:\\Game\\Source\\Fern\\RouteMarkers\\Halts.xml";

/// A program with templates of one line, and a folder for the blueprints.
class Blueprints : public testing::Test {
protected:
    Blueprints() {
        files.folders = {"C:\\Kit\\BluePrints", kFolder};
        files.contents = {{"C:\\Kit\\BluePrints\\Blue_Named.xml", "named ZZZZZZ XXXXXX"},
                          {"C:\\Kit\\BluePrints\\Blue_Series.xml", "series ZZZZZZ XXXXXX"},
                          {"C:\\Kit\\BluePrints\\Blue_Route.xml", "route ZZZZZZ XXXXXX YYYYYY"}};
        rig.session.Authoring.BlueprintFolder = kFolder;
    }
    std::optional<std::string> Make(BlueprintMode mode, const std::string& name, const std::string& second = "Stops",
                                    const std::string& third = {}) {
        return authoring::MakeBlueprint(rig.context, BlueprintWindow{mode, {name, second, third}});
    }
    [[nodiscard]] std::string InWords(const std::string& name) const {
        return authoring::OutputInWords(rig.context, BlueprintWindow{BlueprintMode::NamedMarker, {name}});
    }

    MemoryFiles files;
    EditorRig rig{files, "C:\\Kit"};
};

TEST_F(Blueprints, AreMadeOfTheTemplateOfTheirMode) {
    EXPECT_EQ(Make(BlueprintMode::NamedMarker, "Halts"), kFile);
    EXPECT_EQ(files.contents.at(kFile), "named Halts Stops.csv");
    Make(BlueprintMode::SeriesMarker, "Halts", "Stops.CSV");
    EXPECT_EQ(files.contents.at(kFile), "series Halts Stops.CSV");
    Make(BlueprintMode::RouteTemplate, "Halts", "-1.5", "51,25");
    EXPECT_EQ(files.contents.at(kFile), "route Halts -1.5 51,25");
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(Blueprints, ReplaceAnEarlierOneWithoutAQuestion) {
    files.contents[kFile] = "an earlier one, which is longer than this";
    EXPECT_EQ(Make(BlueprintMode::NamedMarker, "Halts"), kFile);
    EXPECT_EQ(files.contents.at(kFile), "named Halts Stops.csv");
    EXPECT_THAT(rig.ui.MessageTexts(), IsEmpty());
}

TEST_F(Blueprints, AreWrittenInTheCodePage) {
    files.contents["C:\\Kit\\BluePrints\\Blue_Named.xml"] = "\xE9 XXXXXX";
    Make(BlueprintMode::NamedMarker, "Halts", "M\xC3\xBChle");
    EXPECT_EQ(files.contents.at(kFile), "\xE9 M\xFChle.csv");
}

TEST_F(Blueprints, HoldMarkupAsTyped) {
    Make(BlueprintMode::NamedMarker, "Halts", "R&B");
    EXPECT_EQ(files.contents.at(kFile), "named Halts R&B.csv");
}

TEST_F(Blueprints, AreNotMadeUnderANameThatNoFileCanBear) {
    const auto before = files.contents;
    for (const char* const name : {"", "con", "a/b", "a\\b", "..\\a", "a<b"}) {
        EXPECT_EQ(Make(BlueprintMode::NamedMarker, name), std::nullopt) << name;
    }
    EXPECT_EQ(files.contents, before);
    ASSERT_EQ(rig.ui.MessageTexts().size(), 6U);
    EXPECT_EQ(rig.ui.MessageTexts()[0], "Please enter a name.");
    EXPECT_EQ(rig.ui.MessageTexts()[1], "\"con\" is the name of a device in Windows. Please take another name.");
    EXPECT_EQ(rig.ui.Messages()[1].icon, platform::Icon::Exclamation);
}

TEST_F(Blueprints, AreNotMadeWithoutATemplate) {
    files.contents = {{kFile, "an earlier one"}};
    EXPECT_EQ(Make(BlueprintMode::NamedMarker, "Halts"), std::nullopt);
    EXPECT_EQ(files.contents.at(kFile), "an earlier one");
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("The template of the blueprint cannot be read: File not found\r\n" +
                                                   platform::ForDisplay("C:\\Kit\\BluePrints\\Blue_Named.xml")));
}

TEST_F(Blueprints, TellOfAFolderThatIsGone) {
    files.folders.erase(kFolder);
    EXPECT_EQ(Make(BlueprintMode::NamedMarker, "Halts"), std::nullopt);
    EXPECT_THAT(rig.ui.MessageTexts(), ElementsAre("Path not found occurred in WriteUniFile while processing\r\nfile " +
                                                   platform::ForDisplay(kFile)));
}

TEST_F(Blueprints, AreForetoldInWords) {
    EXPECT_EQ(InWords(""), "");
    EXPECT_EQ(InWords("Halts"), "Makes " + platform::ForDisplay(kFile));
    files.contents[kFile] = "an earlier one";
    EXPECT_EQ(InWords("Halts"), "Replaces " + platform::ForDisplay(kFile));
    EXPECT_EQ(InWords("con"), "\"con\" is the name of a device in Windows. Please take another name.");
}

TEST_F(Blueprints, BeginWithTheChoiceOfAFolder) {
    rig.view.onFolderChooser = [this] {
        EXPECT_EQ(rig.session.Authoring.Folder, FolderJob::BlueprintOutput);
        return true;
    };
    const std::vector<std::pair<void (*)(session::EditorContext&), BlueprintMode>> items{
        {authoring::MakeNamedMarker, BlueprintMode::NamedMarker},
        {authoring::MakeSeriesMarker, BlueprintMode::SeriesMarker},
        {authoring::MakeRouteTemplate, BlueprintMode::RouteTemplate}};
    for (const auto& [command, mode] : items) {
        rig.view.calls.clear();
        command(rig.context);
        EXPECT_EQ(rig.session.Authoring.BlueprintMode, mode);
        EXPECT_THAT(rig.view.calls, ElementsAre("ShowFolderChooser", "ShowBlueprint"));
    }
}

TEST_F(Blueprints, DoNotBeginWithoutAFolder) {
    rig.view.onFolderChooser = [] { return false; };
    authoring::MakeNamedMarker(rig.context);
    EXPECT_THAT(rig.view.calls, ElementsAre("ShowFolderChooser"));
}

} // namespace
} // namespace tamarind::tests
