#include "install/asset_window.h"
#include "platform/myfile.h"
#include "routes/package_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Links in what is packaged. Making them needs no rights here, as it does elsewhere.
namespace tamarind::tests {
namespace {

using routes::Ended;
using testing::ElementsAre;

void Link(const std::string& path, const std::string& nativeTarget) {
    std::filesystem::create_symlink(nativeTarget,
                                    platform::ToNative(platform::FolderOf(path)) + "/" + platform::NameOf(path));
}

class PackagerLinks : public testing::Test {
protected:
    PackagerLinks() {
        rig.folder.Write("outside\\secret.txt", "secret");
        rig.WriteGame("Assets\\Fern\\a.bin", "a");
        Link(Game("Assets\\Fern\\leak"), platform::ToNative(rig.folder / "outside"));
        Link(Game("Assets\\Fern\\leak.txt"), platform::ToNative(rig.folder / "outside\\secret.txt"));
    }
    [[nodiscard]] std::string Game(const std::string& name) const { return rig.folder / ("Rail Simulator\\" + name); }
    [[nodiscard]] std::string Told() const {
        return "Links that lead elsewhere were left out of the package:\r\n" +
               platform::ForDisplay(Game("Assets\\Fern\\leak")) + "\r\n" +
               platform::ForDisplay(Game("Assets\\Fern\\leak.txt"));
    }
    routes::Packaged PackageFern() {
        install::AssetWindow window;
        install::BeginAssetPackaging(rig.context);
        install::LoadAssets(rig.context, window);
        install::SelectFolder(rig.context, window, Game("Assets\\Fern"));
        install::AddFolder(rig.context, window);
        return install::ProcessAssets(rig.context, window);
    }
    PackageRig rig;
};

TEST_F(PackagerLinks, AreLeftOutAndTold) {
    EXPECT_EQ(PackageFern().ended, Ended::Done);
    EXPECT_THAT(rig.folder.Names("Kit\\Fern\\Rail Simulator\\Assets\\Fern"), ElementsAre("a.bin"));
    ASSERT_EQ(rig.messages.size(), 2U);
    EXPECT_EQ(rig.messages[1].text, Told());
}

TEST_F(PackagerLinks, AreTakenOutAgainWhereTheCopyProgramFollowsThem) {
    rig.rig.processes.run = [this](const platform::ProcessStart&) {
        rig.folder.MakeFolder("Kit\\Fern\\Rail Simulator\\Assets");
        platform::CopyFolderTree(rig.folder.Disk(), Game("Assets\\Fern"),
                                 rig.folder / "Kit\\Fern\\Rail Simulator\\Assets\\Fern", true);
    };
    EXPECT_EQ(PackageFern().ended, Ended::Done);
    EXPECT_THAT(rig.folder.Names("Kit\\Fern\\Rail Simulator\\Assets\\Fern"), ElementsAre("a.bin"));
    EXPECT_EQ(rig.folder.Read("outside\\secret.txt"), "secret");
    EXPECT_EQ(rig.messages.at(1).text, Told());
}

TEST_F(PackagerLinks, DoNotCostWhatTheAuthorPutInTheirPlace) {
    rig.folder.Write("Kit\\Fern\\Rail Simulator\\Assets\\Fern\\leak.txt", "by hand");
    PackageFern();
    EXPECT_EQ(rig.Kit("Fern\\Rail Simulator\\Assets\\Fern\\leak.txt"), "by hand");
}

TEST_F(PackagerLinks, InARouteAreLeftOutToo) {
    Link(Game(PackageRig::Route(kRouteA, "leak")), platform::ToNative(rig.folder / "outside"));
    Link(Game(PackageRig::Route(kRouteA, "same.xml")), "RouteProperties.xml");
    rig.LoadRoutes();
    EXPECT_EQ(rig.PackageRoute({0}).ended, Ended::Done);
    const std::string route = std::string("Alder Vale\\Rail Simulator\\Content\\Routes\\") + kRouteA;
    EXPECT_FALSE(rig.KitHas(route + "\\leak"));
    EXPECT_EQ(rig.Kit(route + "\\same.xml"), "<x/>");
    ASSERT_EQ(rig.messages.size(), 2U);
    EXPECT_EQ(rig.messages[1].text,
              "Links that lead elsewhere were left out of the package:\r\n" +
                  platform::ForDisplay(Game("content\\Routes\\" + std::string(kRouteA) + "\\leak")));
}

} // namespace
} // namespace tamarind::tests
