#include "platform/console.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/program_folder.h"
#include "platform/wx/toolkit.h"
#include "session/session.h"
#include "shell/frmEditor.h"
#include "text/runtime_error.h"

#include <wx/app.h>
#include <wx/image.h>

namespace {

using namespace tamarind;

class TamarindApp : public wxApp {
public:
    bool OnInit() override {
        SetAppName(platform::kApplicationTitle);
        platform::SetUpToolkit();
        wxInitAllImageHandlers();
        session_.ProgramFolder = platform::ProgramFolder();
        auto* const window = new shell::frmEditor(session_, {*files_, *processes_, *registry_});
        SetTopWindow(window);
        // Inside the event loop, so that start-up can let the window live meanwhile.
        CallAfter([this, window] {
            PrepareFolder(window->Context().ui);
            window->Start(platform::CommandLineText(argc, argv));
        });
        return true;
    }

private:
    /// Start-up goes on without it: the window is of use all the same.
    static void PrepareFolder(platform::UserInterface& ui) {
        try {
            platform::PrepareProgramFolder();
        } catch (const text::RuntimeError& error) {
            ui.Show({.text = error.Description() + "\r\n" + platform::ForDisplay(error.Details())});
        }
    }

    std::unique_ptr<platform::Files> files_ = platform::MakeFiles();
    std::unique_ptr<platform::Processes> processes_ = platform::MakeProcesses(*files_);
    std::unique_ptr<platform::Registry> registry_ = platform::MakeRegistry();
    session::Session session_;
};

} // namespace

wxIMPLEMENT_APP(TamarindApp);
