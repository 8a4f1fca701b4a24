#include "windows/editor_window.h"

#include <wx/menu.h>
#include <wx/notebook.h>

#include <set>

namespace tamarind::tests {
namespace {

using platform::FromWx;

struct ShownMenu {
    std::string caption;
    std::vector<std::string> items;
    bool operator==(const ShownMenu&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const ShownMenu& menu) {
        out << menu.caption << ":";
        for (const std::string& item : menu.items)
            out << " [" << item << "]";
        return out;
    }
};

const ShownMenu kTextFiles{"Files",
                           {"Open RailSim File", "Save RailSim File", "Open .xml/.cost/.tgt file",
                            "Save .xml/.cost/.tgt file", "Save .xml As", "Open .TgPcDx Texture Files", "&Exit"}};
const ShownMenu kTreeFiles{"Files",
                           {"Open RailSim File", "Save RailSim File", "Open .xml/.cost/.tgt file",
                            "Save .xml/.cost/.tgt file", "Save .xml As", "Exit"}};
const std::vector<ShownMenu> kOtherMenus{
    {"Search Tamarind Editor", {"&Find"}},
    {"Conversions", {"Convert RS to .dds", "View .dds File", "Edit .dds File", "Convert .dds to RS"}},
    {"Tools",
     {"Check Routes or Scenarios", "Convert Marker files", "Package Assets", "Package Route", "Package Scenarios",
      "Set Up Developer Folder", "Set Up Sub- Folders", "Clone Loco"}},
    {"Easy Blueprints", {"Markers - Named", "Markers - Series", "Route Template"}},
    {"Options",
     {"Clear Screen", "Clear Temp Files", "Make all RS files Read/Write", "Select Default Editor", "Select RS Path",
      "Texture Editor Path", "Use Tamarind Editor this session only", "Use XML Editor this session only",
      "Viewer Path"}},
    {"Help", {"Contents", "About"}},
};

class MenuBar : public EditorWindow {
protected:
    std::vector<ShownMenu> Shown() {
        std::vector<ShownMenu> menus;
        const wxMenuBar& bar = *window_->GetMenuBar();
        for (std::size_t i = 0; i < bar.GetMenuCount(); ++i) {
            ShownMenu menu{FromWx(bar.GetMenuLabel(i)), {}};
            for (const wxMenuItem* const item : bar.GetMenu(i)->GetMenuItems()) {
                menu.items.push_back(FromWx(item->GetItemLabel().BeforeFirst('\t')));
            }
            menus.push_back(menu);
        }
        return menus;
    }

    static std::vector<ShownMenu> With(const ShownMenu& files) {
        std::vector<ShownMenu> menus{files};
        menus.insert(menus.end(), kOtherMenus.begin(), kOtherMenus.end());
        return menus;
    }

    /// Captions of the items that can be chosen, of the menus from `first` on.
    std::set<std::string> Enabled(std::size_t first, std::size_t last) {
        std::set<std::string> captions;
        for (std::size_t i = first; i <= last; ++i) {
            for (const wxMenuItem* const item : window_->GetMenuBar()->GetMenu(i)->GetMenuItems()) {
                if (item->IsEnabled()) captions.insert(FromWx(item->GetItemLabel().BeforeFirst('\t')));
            }
        }
        return captions;
    }
};

TEST_F(MenuBar, ShowsTheTextEditorsFilesMenuAndAllOthers) {
    Open();
    EXPECT_EQ(Shown(), With(kTextFiles));
}

TEST_F(MenuBar, ShowsTheTreeEditorsFilesMenuAndAllOthers) {
    OpenWithTreeEditor();
    EXPECT_EQ(Shown(), With(kTreeFiles));
}

TEST_F(MenuBar, SwapsTheFilesMenusWithTheEditorInUseAndBack) {
    Open();
    Choose("mnuUXML");
    EXPECT_EQ(Shown(), With(kTreeFiles));
    Choose("mnuURS");
    EXPECT_EQ(Shown(), With(kTextFiles));
}

TEST_F(MenuBar, StaysAsItIsWhenOnlyThePageIsTurned) {
    Open();
    Find<wxNotebook>("SSTab1").SetSelection(1);
    Pump();
    EXPECT_EQ(Shown(), With(kTextFiles));
}

TEST_F(MenuBar, DisablesSavingAGameFileUntilOneIsOpen) {
    Open();
    EXPECT_EQ(Enabled(0, 0),
              (std::set<std::string>{"Open RailSim File", "Open .xml/.cost/.tgt file", "Save .xml/.cost/.tgt file",
                                     "Save .xml As", "Open .TgPcDx Texture Files", "&Exit"}));
}

TEST_F(MenuBar, DisablesSavingFromTheTreeUntilADocumentIsOpen) {
    OpenWithTreeEditor();
    EXPECT_EQ(Enabled(0, 0), (std::set<std::string>{"Open RailSim File", "Open .xml/.cost/.tgt file", "Exit"}));
}

TEST_F(MenuBar, EnablesSavingWithAnOpenDocument) {
    OpenWithTreeEditor(WriteGameFile("Track.bin", "<Track/>"));
    EXPECT_EQ(Enabled(0, 0),
              (std::set<std::string>{"Open RailSim File", "Save RailSim File", "Open .xml/.cost/.tgt file",
                                     "Save .xml/.cost/.tgt file", "Save .xml As", "Exit"}));
}

TEST_F(MenuBar, EnablesEveryItemOfTheOtherMenus) {
    Open();
    EXPECT_EQ(Enabled(1, 6), (std::set<std::string>{"&Find",
                                                    "Convert RS to .dds",
                                                    "View .dds File",
                                                    "Edit .dds File",
                                                    "Convert .dds to RS",
                                                    "Check Routes or Scenarios",
                                                    "Convert Marker files",
                                                    "Package Assets",
                                                    "Package Route",
                                                    "Package Scenarios",
                                                    "Set Up Developer Folder",
                                                    "Set Up Sub- Folders",
                                                    "Clone Loco",
                                                    "Markers - Named",
                                                    "Markers - Series",
                                                    "Route Template",
                                                    "Clear Screen",
                                                    "Clear Temp Files",
                                                    "Make all RS files Read/Write",
                                                    "Select Default Editor",
                                                    "Select RS Path",
                                                    "Texture Editor Path",
                                                    "Use Tamarind Editor this session only",
                                                    "Use XML Editor this session only",
                                                    "Viewer Path",
                                                    "Contents",
                                                    "About"}));
}

TEST_F(MenuBar, ExitClosesTheWindow) {
    Open();
    Choose("mnuExit");
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

TEST_F(MenuBar, ExitOfTheTreeEditorClosesTheWindow) {
    OpenWithTreeEditor();
    Choose("mnuFileExit");
    EXPECT_TRUE(PumpUntil([this] { return !window_; }));
}

} // namespace
} // namespace tamarind::tests
