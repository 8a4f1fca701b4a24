// The least that a program with a window can do: the peer of Tamarind's start.
#include <wx/app.h>
#include <wx/frame.h>
#include <wx/stattext.h>

namespace {

class EmptyApp : public wxApp {
public:
    bool OnInit() override {
        auto* const frame = new wxFrame(nullptr, wxID_ANY, "Empty", wxPoint(40, 20), wxSize(1000, 700));
        // Something to see, where the probe looks for text.
        wxString text;
        for (int line = 0; line < 40; ++line)
            text += "text text text text text text text text text text\n";
        new wxStaticText(frame, wxID_ANY, text, wxPoint(20, 20));
        frame->Show();
        frame->CallAfter([frame] { frame->Move(40, 20); });
        return true;
    }
};

} // namespace

wxIMPLEMENT_APP(EmptyApp);
