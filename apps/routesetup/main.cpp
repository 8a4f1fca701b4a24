#include "install/frmRouteSetup.h"
#include "platform/dialog.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "text/runtime_error.h"

namespace {

using namespace tamarind;

void Run() {
    const auto files = platform::MakeFiles();
    const auto processes = platform::MakeProcesses(*files);
    const auto registry = platform::MakeRegistry();
    const auto dialog = platform::MakeDialog(install::frmRouteSetup::Design());
    install::frmRouteSetup window({*files, *processes, *registry}, *dialog, platform::ExecutableFolder());
    window.Run();
}

} // namespace

int main() {
    try {
        Run();
    } catch (const text::RuntimeError&) {
        return 1; // there is no screen, so nothing to tell it on
    }
    return 0;
}
