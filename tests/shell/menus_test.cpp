#include "shell/menus.h"

#include "support/editor_rig.h"
#include "support/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tamarind::shell {
namespace {

using Row = std::vector<std::string>;

TEST(Menus, StandInTheirOrder) {
    std::vector<Row> menus;
    for (const Menu& menu : Menus())
        menus.push_back({std::string(menu.name), std::string(menu.caption)});
    const std::vector<Row> expected = {
        {"mnuFileS", "Files"},        {"mnuFile", "Files"},
        {"mnuNodePopUp", "Nodes"},    {"mnuSearch", "Search Tamarind Editor"},
        {"mnuConv", "Conversions"},   {"mnuTools", "Tools"},
        {"mnuEB", "Easy Blueprints"}, {"mnuOpt", "Options"},
        {"mnuHelp", "Help"},
    };
    EXPECT_EQ(menus, expected);
}

TEST(Menus, HoldTheirItemsInOrder) {
    std::vector<Row> items;
    for (const MenuItem& item : MenuItems()) {
        items.push_back({std::string(item.menu), std::string(item.name), std::string(item.caption)});
    }
    const std::vector<Row> expected = {
        {"mnuFileS", "mnuOpenRS", "Open RailSim File"},
        {"mnuFileS", "mnuSaveRS", "Save RailSim File"},
        {"mnuFileS", "mnuXML", "Open .xml/.cost/.tgt file"},
        {"mnuFileS", "mnuSavexml", "Save .xml/.cost/.tgt file"},
        {"mnuFileS", "mnuSaveAs", "Save .xml As"},
        {"mnuFileS", "mnuOpenTex", "Open .TgPcDx Texture Files"},
        {"mnuFileS", "mnuExit", "&Exit"},
        {"mnuFile", "mnuFileOpen", "Open RailSim File"},
        {"mnuFile", "mnuFileSave", "Save RailSim File"},
        {"mnuFile", "mnuOpenXCT", "Open .xml/.cost/.tgt file"},
        {"mnuFile", "mnuSaveXCT", "Save .xml/.cost/.tgt file"},
        {"mnuFile", "mnuFileSaveAs", "Save .xml As"},
        {"mnuFile", "mnuFileExit", "Exit"},
        {"mnuNodePopUp", "mnuNodePopUpNew", "New Child Node"},
        {"mnuNodePopUp", "mnuNodePopupRename", "Rename Node"},
        {"mnuNodePopUp", "mnuNodePopUpDelete", "Delete Node"},
        {"mnuNodePopUp", "mnuEditCopy", "Copy"},
        {"mnuNodePopUp", "mnuEditPaste", "Paste"},
        {"mnuSearch", "mnuFind", "&Find"},
        {"mnuConv", "mnuDDS", "Convert RS to .dds"},
        {"mnuConv", "mnuView", "View .dds File"},
        {"mnuConv", "mnuEditDDS", "Edit .dds File"},
        {"mnuConv", "mnuDDStoKrs", "Convert .dds to RS"},
        {"mnuTools", "mnuDelRoute", "Check Routes or Scenarios"},
        {"mnuTools", "mnuMarker", "Convert Marker files"},
        {"mnuTools", "mnuPackAss", "Package Assets"},
        {"mnuTools", "mnuPack", "Package Route"},
        {"mnuTools", "mnuPackSce", "Package Scenarios"},
        {"mnuTools", "mnuDeveloper", "Set Up Developer Folder"},
        {"mnuTools", "mnuDevFolders", "Set Up Sub- Folders"},
        {"mnuTools", "mnuCloneLoco", "Clone Loco"},
        {"mnuEB", "mnuMarkN", "Markers - Named"},
        {"mnuEB", "mnuMarkS", "Markers - Series"},
        {"mnuEB", "mnuRoute", "Route Template"},
        {"mnuOpt", "mnuClear", "Clear Screen"},
        {"mnuOpt", "mnuCTF", "Clear Temp Files"},
        {"mnuOpt", "mnuReadWrite", "Make all RS files Read/Write"},
        {"mnuOpt", "mnuSelDefEdit", "Select Default Editor"},
        {"mnuOpt", "mnuRSPath", "Select RS Path"},
        {"mnuOpt", "mnuIRF", "Texture Editor Path"},
        {"mnuOpt", "mnuURS", "Use Tamarind Editor this session only"},
        {"mnuOpt", "mnuUXML", "Use XML Editor this session only"},
        {"mnuOpt", "mnuViewer", "Viewer Path"},
        {"mnuHelp", "mnuContents", "Contents"},
        {"mnuHelp", "mnuAbout", "About"},
    };
    EXPECT_EQ(items, expected);
}

class MenuItemsTest : public testing::Test {
protected:
    static const MenuItem& Item(std::string_view name) {
        for (const MenuItem& item : MenuItems()) {
            if (item.name == name) return item;
        }
        ADD_FAILURE() << "no item " << name;
        return MenuItems().front();
    }
    bool IsEnabled(std::string_view name) { return IsItemEnabled(Item(name), rig.context); }

    MenuItemsTest() { files.folders = {"C:", "C:\\Kit", "C:\\Kit\\TempFiles"}; }

    tests::MemoryFiles files;
    tests::EditorRig rig{files, "C:\\Kit"};
};

TEST_F(MenuItemsTest, AllHaveACommand) {
    for (const MenuItem& item : MenuItems())
        EXPECT_NE(item.command, nullptr) << item.name;
}

TEST_F(MenuItemsTest, TheTexturesCommandsAreAlwaysThere) {
    for (const char* item : {"mnuDDS", "mnuView", "mnuEditDDS", "mnuDDStoKrs", "mnuIRF", "mnuViewer"})
        EXPECT_TRUE(IsEnabled(item)) << item;
}

TEST_F(MenuItemsTest, EachOfTheTexturesCommandsIsItsOwn) {
    Item("mnuDDS").command(rig.context);
    Item("mnuView").command(rig.context);
    Item("mnuEditDDS").command(rig.context);
    ASSERT_EQ(rig.ui.MessageTexts().size(), 3U);
    EXPECT_TRUE(rig.ui.MessageTexts()[0].starts_with("Please open a texture first"));
    EXPECT_TRUE(rig.ui.MessageTexts()[1].starts_with("To view DDS files"));
    EXPECT_TRUE(rig.ui.MessageTexts()[2].starts_with("To edit DDS files"));
    rig.ui.filePaths = {"", "", ""};
    Item("mnuDDStoKrs").command(rig.context);
    Item("mnuIRF").command(rig.context);
    Item("mnuViewer").command(rig.context);
    ASSERT_EQ(rig.ui.FileDialogs().size(), 3U);
    EXPECT_EQ(rig.ui.FileDialogs()[0].title, "View .dds file");
    EXPECT_EQ(rig.ui.FileDialogs()[1].title, "Select your Graphics Editor");
    EXPECT_EQ(rig.ui.FileDialogs()[2].title, "Select your Graphics Viewer");
}

TEST_F(MenuItemsTest, EachOfTheHousekeepingCommandsIsItsOwn) {
    Item("mnuFind").command(rig.context);
    Item("mnuContents").command(rig.context);
    Item("mnuAbout").command(rig.context);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowTextSearch", "ShowHelp C:\\Kit\\Tamarind.chm", "ShowAbout"));
    files.folders = {"C:\\Kit"};
    Item("mnuCTF").command(rig.context);
    EXPECT_TRUE(files.IsFolder("C:\\Kit\\TempFiles"));
    rig.view.SetEditorText("text");
    Item("mnuClear").command(rig.context);
    EXPECT_EQ(rig.view.EditorText(), "");
    rig.session.RailSimPath = "C:\\Game";
    Item("mnuReadWrite").command(rig.context);
    EXPECT_EQ(rig.ui.MessageTexts(), std::vector<std::string>{"All files are now Read/Write"});
}

TEST_F(MenuItemsTest, SaveToAGameFileNeedsOneThatIsOpen) {
    EXPECT_FALSE(IsEnabled("mnuSaveRS"));
    rig.session.RSFileLoaded = true;
    EXPECT_TRUE(IsEnabled("mnuSaveRS"));
}

TEST_F(MenuItemsTest, SaveFromTheTreeNeedsAnOpenDocument) {
    EXPECT_FALSE(IsEnabled("mnuFileSave"));
    EXPECT_FALSE(IsEnabled("mnuSaveXCT"));
    rig.document.isOpen = true;
    EXPECT_TRUE(IsEnabled("mnuFileSave"));
    EXPECT_TRUE(IsEnabled("mnuSaveXCT"));
}

TEST_F(MenuItemsTest, SaveAsFromTheTreeFollowsTheDocument) {
    EXPECT_FALSE(IsEnabled("mnuFileSaveAs"));
    rig.document.canSaveAs = true;
    EXPECT_TRUE(IsEnabled("mnuFileSaveAs"));
}

TEST_F(MenuItemsTest, CopyAndPasteFollowTheDocument) {
    EXPECT_FALSE(IsEnabled("mnuEditCopy"));
    EXPECT_FALSE(IsEnabled("mnuEditPaste"));
    rig.document.canCopy = rig.document.canPaste = true;
    EXPECT_TRUE(IsEnabled("mnuEditCopy"));
    EXPECT_TRUE(IsEnabled("mnuEditPaste"));
}

TEST_F(MenuItemsTest, RenameAndDeleteAreOffForAnEmptyTree) {
    EXPECT_FALSE(IsEnabled("mnuNodePopupRename"));
    EXPECT_FALSE(IsEnabled("mnuNodePopUpDelete"));
    EXPECT_TRUE(IsEnabled("mnuNodePopUpNew"));
    rig.document.KeyCounter = 1;
    EXPECT_TRUE(IsEnabled("mnuNodePopupRename"));
    EXPECT_TRUE(IsEnabled("mnuNodePopUpDelete"));
}

TEST_F(MenuItemsTest, BothExitsCloseTheWindow) {
    Item("mnuExit").command(rig.context);
    Item("mnuFileExit").command(rig.context);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseWindow", "CloseWindow"));
}

TEST_F(MenuItemsTest, ForRoutesOpensTheirWindowForDeleting) {
    rig.session.Routes.RouteFormMode = session::kSet;
    Item("mnuDelRoute").command(rig.context);
    EXPECT_EQ(rig.session.Routes.RouteFormMode, 0);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseRoutes", "ShowRoutes"));
}

TEST_F(MenuItemsTest, ForPackagingARouteOpensTheRoutesWindowForThat) {
    Item("mnuPack").command(rig.context);
    EXPECT_EQ(rig.session.Routes.RouteFormMode, session::kSet);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseRoutes", "ShowRoutes"));
}

TEST_F(MenuItemsTest, ForRoutesBringsAWindowOfTheSameJobToTheFront) {
    Item("mnuDelRoute").command(rig.context);
    Item("mnuDelRoute").command(rig.context);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowRoutes", "ShowRoutes"));
}

TEST_F(MenuItemsTest, ForRoutesLeavesTheModeWhileARunningCommandKeepsTheWindowOpen) {
    rig.view.closesRoutes = false;
    Item("mnuPack").command(rig.context);
    EXPECT_EQ(rig.session.Routes.RouteFormMode, 0);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseRoutes"));
}

TEST_F(MenuItemsTest, ForPackagingScenariosOpensTheRoutesWindowForThat) {
    rig.session.Routes.PackageFolderName = "old";
    Item("mnuPackSce").command(rig.context);
    EXPECT_EQ(rig.session.Routes.ScenarioPackMode, session::kSet);
    EXPECT_EQ(rig.session.Routes.PackageFolderName, "");
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseRoutes", "ShowRoutes"));
}

TEST_F(MenuItemsTest, ForPackagingScenariosKeepsAPackageThatIsBeingPutTogether) {
    Item("mnuPackSce").command(rig.context);
    rig.session.Routes.PackageFolderName = "begun";
    for (const char* const item : {"mnuPackSce", "mnuDelRoute", "mnuPack", "mnuPackAss"})
        Item(item).command(rig.context);
    EXPECT_EQ(rig.session.Routes.PackageFolderName, "begun");
    EXPECT_EQ(rig.session.Routes.RouteFormMode, 0);
    EXPECT_EQ(rig.session.Routes.AssetPackMode, 0);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("CloseRoutes", "ShowRoutes", "ShowRoutes", "ShowRoutes",
                                                     "ShowRoutes", "ShowRoutes"));
}

TEST_F(MenuItemsTest, ForPackagingAssetsOpensTheirWindow) {
    rig.session.Routes.PackageFolderName = "old";
    Item("mnuPackAss").command(rig.context);
    EXPECT_EQ(rig.session.Routes.AssetPackMode, session::kSet);
    EXPECT_EQ(rig.session.Routes.PackageFolderName, "");
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowAssets"));
}

TEST_F(MenuItemsTest, ForPackagingAssetsKeepsAPackageThatIsBeingPutTogether) {
    Item("mnuPackAss").command(rig.context);
    rig.session.Routes.PackageFolderName = "begun";
    Item("mnuPackAss").command(rig.context);
    Item("mnuPackSce").command(rig.context);
    EXPECT_EQ(rig.session.Routes.PackageFolderName, "begun");
    EXPECT_EQ(rig.session.Routes.ScenarioPackMode, 0);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowAssets", "ShowAssets", "ShowAssets"));
}

TEST_F(MenuItemsTest, ForBlueprintsChooseAFolderInTheirMode) {
    rig.view.onFolderChooser = [] { return true; };
    const std::vector<std::pair<std::string, session::BlueprintMode>> modes{
        {"mnuMarkN", session::BlueprintMode::NamedMarker},
        {"mnuMarkS", session::BlueprintMode::SeriesMarker},
        {"mnuRoute", session::BlueprintMode::RouteTemplate}};
    for (const auto& [name, mode] : modes) {
        rig.view.calls.clear();
        Item(name).command(rig.context);
        EXPECT_EQ(rig.session.Authoring.BlueprintMode, mode) << name;
        EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowFolderChooser", "ShowBlueprint")) << name;
    }
}

TEST_F(MenuItemsTest, ForFoldersAndLocosOpenTheFolderWindowForTheirJob) {
    files.folders.insert({"C:\\Game", "C:\\Game\\Source"});
    rig.session.RailSimPath = "C:\\Game";
    Item("mnuCloneLoco").command(rig.context);
    EXPECT_EQ(rig.session.Authoring.Folder, session::FolderJob::LocoToClone);
    Item("mnuDevFolders").command(rig.context);
    EXPECT_EQ(rig.session.Authoring.Folder, session::FolderJob::AddOn);
    EXPECT_THAT(rig.view.calls, testing::ElementsAre("ShowFolderChooser", "ShowFolderChooser"));
    rig.ui.texts = {""};
    Item("mnuDeveloper").command(rig.context);
    EXPECT_EQ(rig.ui.Everything().back().message.title, "Developer Name");
}

TEST_F(MenuItemsTest, RunTheirOwnCommand) {
    // Each is told by the dialog or the question that it begins with.
    const std::vector<std::pair<std::string, std::string>> dialogs = {
        {"mnuOpenRS", "Open RailSim file"},       {"mnuXML", "Open .xml file"},
        {"mnuSavexml", "Save .xml format files"}, {"mnuSaveAs", "Save KRS format files"},
        {"mnuOpenTex", "Open RS Texture files"},  {"mnuFileOpen", "Open RailSim file"},
        {"mnuOpenXCT", "Select file to load"},    {"mnuFileSaveAs", "Select Filename to Save As..."},
        {"mnuMarker", "Open Marker file"},
    };
    for (const auto& [name, title] : dialogs) {
        rig.ui.filePaths = {""};
        Item(name).command(rig.context);
        ASSERT_FALSE(rig.ui.FileDialogs().empty()) << name;
        EXPECT_EQ(rig.ui.FileDialogs().back().title, title) << name;
    }
}

} // namespace
} // namespace tamarind::shell
