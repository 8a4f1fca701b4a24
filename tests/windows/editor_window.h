#pragma once

#include "platform/paths.h"
#include "platform/platform.h"
#include "platform/wx/wx_text.h"
#include "session/session.h"
#include "shell/frmEditor.h"
#include "support/fake_registry.h"
#include "support/temp_folder.h"
#include "windows/expected_dialogs.h"

#include <gtest/gtest.h>

#include <wx/timer.h>
#include <wx/treectrl.h>
#include <wx/weakref.h>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tamarind::tests {

using std::chrono::milliseconds;

/// Lets everything happen that is waiting to happen.
void Pump();
/// Lets events happen until it is so; false when it still is not after a long time.
bool PumpUntil(const std::function<bool()>& reached, milliseconds limit = milliseconds(30'000));
/// Lets events happen for so long, where a test must see that something does not come.
void PumpFor(milliseconds duration);

/// Presses a button, as a click on it does; a disabled one fails the test.
void Press(wxWindow& button);

/// Sets an environment variable, which processes inherit, for the length of a scope.
class Environment {
public:
    Environment(const char* name, const std::string& value);
    ~Environment();
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* name_;
};

/// Captions of a menu's items and whether they can be chosen.
using ShownItems = std::map<std::string, bool>;

/// A real main window, with a program folder and a game folder of its own on the real disk, and the stand-in converter
/// in the program's folder.
class EditorWindow : public testing::Test {
protected:
    EditorWindow();
    ~EditorWindow() override;

    /// The settings as they stand on disk before the window opens.
    void WriteSettings(const std::string& geometry, bool xmlEditorDefault);
    /// Opens the window and waits until it is on the screen. Without settings on disk, some that name the game folder
    /// are written first.
    void Open(const std::string& commandLine = {});
    void OpenWithTreeEditor(const std::string& commandLine = {});
    /// A game file that holds the XML in the stand-in converter's format; returns its path.
    std::string WriteGameFile(const std::string& name, const std::string& xml);
    /// What the game file holds now, as XML.
    [[nodiscard]] std::string XmlOf(const std::string& gameFile) const;
    [[nodiscard]] std::string ReadFile(const std::string& path) const;
    [[nodiscard]] bool Exists(const std::string& path) const;

    /// The control of that name; a missing one, or one of another kind, throws.
    template <class Control = wxWindow> Control& Find(const std::string& name) {
        return dynamic_cast<Control&>(FindControl(name));
    }
    wxTreeCtrl& Tree() { return Find<wxTreeCtrl>("trevwContents"); }
    [[nodiscard]] std::string Caption() const { return platform::FromWx(window_->GetTitle()); }
    [[nodiscard]] std::string Status() const;
    [[nodiscard]] std::string EditorText();
    /// Replaces the text editor's text as typing does.
    void TypeText(const std::string& text);

    /// Chooses an item of a menu that is in the menu bar; a disabled one fails the test.
    void Choose(const std::string& item);
    /// Chooses an item of the "Nodes" menu.
    void ChooseNode(const std::string& item);
    /// The row under `parent` by its text; not OK when there is none.
    wxTreeItemId Row(const wxTreeItemId& parent, const std::string& text);
    void ClickRow(const wxTreeItemId& row);
    void ClickAttribute(int index);
    /// Ends the label editing that goes on with a name.
    void FinishLabel(const std::string& name);
    [[nodiscard]] std::vector<std::string> RowTexts(const wxTreeItemId& parent);

    /// Reads the menu that pops up in answer to an action, and closes it again; empty when none does.
    ShownItems PopUpAfter(const std::function<void()>& action);

    /// Does something after a while, in the midst of whatever goes on then.
    void Later(milliseconds delay, std::function<void()> action);
    /// Closes the window and waits until it is gone.
    void Close();

    TempFolder folder_;
    std::string program_ = folder_.MakeFolder("Program");
    std::string game_ = folder_.MakeFolder("Rail Simulator");
    std::unique_ptr<platform::Files> files_ = platform::MakeFiles();
    std::unique_ptr<platform::Processes> realProcesses_ = platform::MakeProcesses(*files_);
    platform::Processes* processes_ = realProcesses_.get();
    FakeRegistry registry_;
    session::Session session_;
    wxWeakRef<shell::frmEditor> window_;
    ExpectedDialogs dialogs_;

private:
    wxWindow& FindControl(const std::string& name);

    std::vector<std::unique_ptr<wxTimer>> timers_;
};

} // namespace tamarind::tests
