#include "windows/keyboard.h"

namespace tamarind::tests {
namespace {

// Under Wine such keys did not reach the buttons, so the test is for this system alone.
TEST_F(Keyboard, AddsAnAttributeWithTheButtonsMnemonicWhileTheTreeHasTheFocus) {
    OpenLine();
    dialogs_.UseDialog("frmAddAttribute", [](wxDialog& dialog) { Press(*dialog.FindWindow(wxID_CANCEL)); });
    Type('A', wxMOD_ALT);
    EXPECT_TRUE(PumpUntil([this] { return dialogs_.AllCame(); }, milliseconds(5000)));
}

} // namespace
} // namespace tamarind::tests
