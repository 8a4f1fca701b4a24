#include "platform/wx/toolkit.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>
#include <wx/log.h>

namespace {

/// A failed check of the toolkit itself fails the test instead of asking the person at the screen.
class TestApp : public wxApp {
public:
    void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                         const wxChar* message) override {
        ADD_FAILURE() << wxString(file) << ":" << line << " " << wxString(function) << ": " << wxString(condition)
                      << " " << wxString(message);
    }
};

/// What the toolkit would tell in a box of its own fails the test: a person would meet that box.
class FailingLog : public wxLog {
protected:
    void DoLogTextAtLevel(wxLogLevel level, const wxString& message) override {
        if (level <= wxLOG_Warning) ADD_FAILURE() << "The toolkit says: " << message;
    }
};

} // namespace

int main(int count, char** values) {
    testing::InitGoogleTest(&count, values);
    wxApp::SetInstance(new TestApp);
    if (!wxEntryStart(count, values)) return 1;
    wxInitAllImageHandlers();
    wxTheApp->SetExitOnFrameDelete(false);
    wxLog::SetActiveTarget(new FailingLog);
    wxLog::SetLogLevel(wxLOG_Message);
    int result = 0;
    {
        wxGUIEventLoop loop;
        const wxEventLoopActivator active(&loop);
        result = RUN_ALL_TESTS();
    }
    wxEntryCleanup();
    return result;
}
