#include "install/package_verify.h"

#include "install/installer_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tamarind::install {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Verify : public tests::InstallerRig {
protected:
    void MakeWholeRoute() {
        MakeRoutePackage();
        folder.Write("P\\RouteSetup.exe", "MZ");
    }
    void MakeWholeScenario() {
        MakeScenarioPackage();
        folder.Write("P\\AssetSetup.exe", "MZ");
    }
    [[nodiscard]] PackageReport Report() const { return VerifyPackage(disk, folder / "P"); }
    [[nodiscard]] std::vector<std::string> Problems() const { return Report().problems; }
};

TEST_F(Verify, FindsNothingOddAboutAWholeRoute) {
    MakeWholeRoute();
    const PackageReport report = Report();
    EXPECT_EQ(report.mode, InstallMode::Route);
    EXPECT_THAT(report.problems, IsEmpty());
    ASSERT_THAT(report.records, SizeIs(1));
    EXPECT_EQ(report.records[0].id, "new-route");
    EXPECT_EQ(report.records[0].name, "New Line");
    ASSERT_THAT(report.files, SizeIs(1));
    EXPECT_EQ(report.files[0].path, "Rail Simulator\\Content\\Routes\\new-route\\tile.bin");
    EXPECT_EQ(report.files[0].size, 4U);
}

TEST_F(Verify, FindsNothingOddAboutWholeScenarios) {
    MakeWholeScenario();
    EXPECT_EQ(Report().mode, InstallMode::Scenario);
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(Verify, NamesAMissingSetupProgram) {
    MakeRoutePackage();
    EXPECT_THAT(Problems(), ElementsAre("The setup program \"RouteSetup.exe\" is missing."));
}

TEST_F(Verify, NamesSeveralRecordsInARoutesMarker) {
    MakeWholeRoute();
    folder.Write(
        "P\\Route_Setup.xxx",
        std::string(tests::kRouteRecord) +
            "<cRouteProperties><DevString>old-route</DevString><English>Old Line</English></cRouteProperties>\r\n");
    folder.MakeFolder("P\\Rail Simulator\\Content\\Routes\\old-route");
    EXPECT_THAT(Problems(), ElementsAre("\"Route_Setup.xxx\" holds more than one record."));
}

// Installed, it would stand in the index twice.
TEST_F(Verify, NamesARecordThatIsThereTwice) {
    MakeWholeScenario();
    folder.Write("P\\Scenario.zzz", std::string(tests::kScenarioRecord) + tests::kScenarioRecord);
    EXPECT_THAT(Problems(),
                ElementsAre("\"Scenario.zzz\" holds more than one record of " + std::string(tests::kScenarioId) + "."));
}

TEST_F(Verify, NamesARecordThatIsCutOff) {
    MakeWholeRoute();
    folder.Write("P\\Route_Setup.xxx", "<cRouteProperties><DevString>new-");
    EXPECT_THAT(Problems(), ElementsAre("\"Route_Setup.xxx\" holds no whole record."));
}

TEST_F(Verify, NamesMarkersOfBothKinds) {
    MakeWholeRoute();
    folder.Write("P\\Scenario.zzz", tests::kScenarioRecord);
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("markers of scenarios are ignored")));
}

TEST_F(Verify, NamesAMissingFolder) {
    MakeWholeRoute();
    folder.Write("P\\Route_Setup.xxx", "<cRouteProperties><DevString>other</DevString></cRouteProperties>\r\n");
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("other\" is missing")));
}

TEST_F(Verify, NamesAMissingListOfScenarios) {
    MakeWholeScenario();
    disk.Remove(folder / "P\\Scenario.yyy");
    EXPECT_THAT(Problems(), ElementsAre("\"Scenario.yyy\" cannot be used: File not found."));
}

TEST_F(Verify, NamesARouteThatLeadsElsewhere) {
    MakeWholeScenario();
    folder.Write("P\\Scenario.yyy", "..\\x\r\n");
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("names no route")));
}

TEST_F(Verify, NamesWhatRecordsAndListDoNotShare) {
    MakeWholeScenario();
    folder.Write("P\\Scenario.yyy", "old-route\r\nanother\r\n");
    EXPECT_THAT(Problems(),
                ElementsAre(HasSubstr("no record of another"), HasSubstr("Scenarios"), HasSubstr("is not listed")));
}

TEST_F(Verify, NamesAPackageWithoutContent) {
    EXPECT_THAT(Problems(), ElementsAre("There is no folder \"Rail Simulator\".",
                                        "The setup program \"AssetSetup.exe\" is missing."));
}

TEST_F(Verify, NamesAMarkerThatLostItsPartner) {
    MakeWholeScenario();
    disk.Remove(folder / "P\\Scenario.zzz");
    EXPECT_EQ(Report().mode, InstallMode::Assets);
    EXPECT_THAT(Problems(), Contains(HasSubstr("\"Scenario.yyy\" is ignored")));
}

TEST_F(Verify, NamesWhatIsLeftOver) {
    MakeWholeScenario();
    Run();
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("RouteSetup.log"), HasSubstr("Scenarios.xml")));
}

TEST_F(Verify, NamesAConverterOfThePackagesOwn) {
    MakeWholeScenario();
    folder.Write("P\\serz.exe", "MZ");
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("serz.exe")));
}

} // namespace
} // namespace tamarind::install
