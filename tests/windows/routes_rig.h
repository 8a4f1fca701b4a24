#pragma once

#include "game/content.h"
#include "platform/myfile.h"
#include "windows/editor_window.h"

#include <wx/control.h>
#include <wx/listbox.h>
#include <wx/stattext.h>
#include <wx/toplevel.h>

namespace tamarind::tests {

/// The routes window over the sample game, with a trash of its own.
class RoutesWindow : public EditorWindow {
protected:
    RoutesWindow() {
        // The sample game's folder bears the name of the one that is there already.
        samples::WriteSampleGame(platform::ToNative(folder_ / "."));
        Open();
    }

    void OpenRoutes() {
        Choose("mnuDelRoute");
        AwaitRoutes();
    }

    /// Opens the window as a menu item of another job does.
    void OpenRoutesFor(std::int16_t routeFormMode, std::int16_t scenarioPackMode) {
        session_.Routes.RouteFormMode = routeFormMode;
        session_.Routes.ScenarioPackMode = scenarioPackMode;
        window_->Run([](session::EditorContext& context) { context.view.ShowRoutes(); });
        AwaitRoutes();
    }

    void AwaitRoutes() {
        routes_ = &TopLevel("frmDelRoute");
        ASSERT_TRUE(PumpUntil([this] { return routes_->IsShownOnScreen(); }));
        Pump();
    }

    /// A window of that name that is open; a missing one throws.
    static wxTopLevelWindow& TopLevel(const std::string& name) {
        for (wxWindow* const window : wxTopLevelWindows) {
            auto* const topLevel = dynamic_cast<wxTopLevelWindow*>(window);
            if (window->GetName() == platform::ToWx(name) && topLevel != nullptr) return *topLevel;
        }
        throw std::runtime_error("no window named " + name);
    }

    template <class Control = wxWindow> static Control& In(wxWindow& window, const std::string& name) {
        auto* const found = dynamic_cast<Control*>(wxWindow::FindWindowByName(platform::ToWx(name), &window));
        if (found == nullptr) throw std::runtime_error("no such control: " + name);
        return *found;
    }

    wxListBox& List(const std::string& name) { return In<wxListBox>(*routes_, name); }
    wxControl& Button(const std::string& name) { return In<wxControl>(*routes_, name); }
    std::string StatusLine() { return platform::FromWx(In<wxStaticText>(*routes_, "StatusLine").GetLabelText()); }

    static std::vector<std::string> Items(const wxListBox& list) {
        std::vector<std::string> items;
        for (const wxString& item : list.GetStrings())
            items.push_back(platform::FromWx(item));
        return items;
    }

    static std::vector<int> Selected(const wxListBox& list) {
        wxArrayInt items;
        list.GetSelections(items);
        std::vector<int> selected(items.begin(), items.end());
        std::sort(selected.begin(), selected.end());
        return selected;
    }

    /// As a click, with Ctrl when something is selected already.
    void Select(const std::string& name, int index) {
        List(name).SetSelection(index);
        Send(List(name), wxEVT_LISTBOX, index);
    }

    static void Send(wxWindow& control, wxEventType type, int index) {
        wxCommandEvent event(type, control.GetId());
        event.SetEventObject(&control);
        event.SetInt(index);
        control.GetEventHandler()->ProcessEvent(event);
        Pump();
    }

    /// Wine's xcopy refuses a target that ends in "\*.*", which Windows takes; a small one of our own stands in, beside
    /// the copy script, where the shell looks first. Opening a packager empties that folder.
    void UseOwnCopyProgram() {
        const std::string name = XCOPY_NAME;
        if (name.empty()) return;
        folder_.Write("Program\\TempFiles\\xcopy.exe",
                      platform::ReadBytes(*files_, platform::ExecutableFolder() + "\\" + name));
    }

    void ListScenariosOf(int route) {
        Select("List1", route);
        Press(Button("Command1"));
    }

    [[nodiscard]] std::string RoutePath(std::string_view id) const {
        return game_ + "\\content\\Routes\\" + std::string(id);
    }

    Environment trash_{"XDG_DATA_HOME", platform::ToNative(folder_ / "data")};
    wxWeakRef<wxTopLevelWindow> routes_;
};

} // namespace tamarind::tests
