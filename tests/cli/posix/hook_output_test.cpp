#include "cli/cli_program.h"
#include "support/sample_package.h"
#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using nlohmann::json;
using samples::Utf8;

TEST_F(CliTest, WhatAPackagesCommandsSayIsNoPartOfTheJson) {
    const fs::path package = Path("Pack");
    PutFile(package / "Rail Simulator/RS-Install.bat", "del *.tmp\r\n");
    // It stands in for the program that runs commands of Windows here.
    PutFile(Path("bin") / "wine", "#!/bin/sh\necho said by the package\n");
    fs::permissions(Path("bin") / "wine", fs::perms::owner_all);
    const json report = RunJson({"install", Utf8(package)}, 0, {{"PATH", Utf8(Path("bin")) + ":/usr/bin:/bin"}});
    EXPECT_EQ(report["result"], (json{{"mode", 3}}));
    const Ran ran = Run({"install", Utf8(package)}, {{"PATH", Utf8(Path("bin")) + ":/usr/bin:/bin"}});
    EXPECT_EQ(ran.output, "3\tassets\n");
    EXPECT_THAT(ran.errors, testing::HasSubstr("said by the package\n"));
}

} // namespace
} // namespace tamarind::tests
