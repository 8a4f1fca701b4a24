#include "install/frmRouteSetup.h"
#include "platform/dialog.h"
#include "platform/paths.h"
#include "platform/platform.h"

int main() {
    using namespace tamarind;
    const auto files = platform::MakeFiles();
    const auto processes = platform::MakeProcesses(*files);
    const auto registry = platform::MakeRegistry();
    const auto dialog = platform::MakeDialog(install::frmRouteSetup::Design());
    install::frmRouteSetup window({*files, *processes, *registry}, *dialog, platform::ExecutableFolder());
    window.Run();
    return 0;
}
