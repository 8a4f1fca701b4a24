#include "cli/cli_program.h"
#include "system/program.h"

#include <gmock/gmock.h>

namespace tamarind::tests {
namespace {

using samples::ReadFile;
using samples::Utf8;

TEST_F(CliTest, CtrlCStopsAHangingConverterAndTheCommandSaysSo) {
    const fs::path errors = Path("errors");
    samples::ChildProgram child(
        "/usr/bin/timeout",
        // In the foreground it sends one signal, as a terminal does; else a second one, which ends a program at once.
        {"--foreground", "--preserve-status", "-s", "INT", "0.5", Utf8(program_), "--program-dir", Utf8(kit_), "open",
         Utf8(track_)},
        {{"TAMARIND_SERZ_HANG", "1"}}, {{}, Path("output"), errors});
    EXPECT_EQ(child.WaitFor(std::chrono::seconds(20)), 1);
    EXPECT_EQ(ReadFile(errors), "The converter wrote nothing: there is no text to show.\n");
    EXPECT_EQ(ReadFile(track_), Binary(kOldXml));
}

} // namespace
} // namespace tamarind::tests
