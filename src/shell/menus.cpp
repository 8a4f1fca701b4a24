#include "shell/menus.h"

#include "authoring/blueprint_window.h"
#include "authoring/developer_folders.h"
#include "authoring/loco_clone.h"
#include "convert/game_file.h"
#include "convert/texture_export.h"
#include "convert/texture_import.h"
#include "editors/tree_editor.h"
#include "install/asset_window.h"
#include "markers/marker_file.h"
#include "routes/route_packaging.h"
#include "routes/route_window.h"
#include "routes/scenario_packaging.h"
#include "shell/options.h"

#include <array>

namespace tamarind::shell {

using session::EditorContext;

namespace {

/// A command whose result no menu item needs.
template <auto command> void Run(EditorContext& context) { static_cast<void>(command(context)); }

void Close(EditorContext& context) { context.view.CloseWindow(); }

void Find(EditorContext& context) { context.view.ShowTextSearch(); }

bool HasGameFile(const EditorContext& context) { return context.session.RSFileLoaded; }
bool HasDocument(const EditorContext& context) { return context.document.isOpen; }
bool CanSaveAs(const EditorContext& context) { return context.document.canSaveAs; }
bool CanCopy(const EditorContext& context) { return context.document.canCopy; }
bool CanPaste(const EditorContext& context) { return context.document.canPaste; }
bool CanChangeNode(const EditorContext& context) {
    return editors::PrepareNodePopUp(context.document).canRenameAndDelete;
}

constexpr std::array kMenus = {
    Menu{"mnuFileS", "Files"},        Menu{"mnuFile", "Files"},
    Menu{"mnuNodePopUp", "Nodes"},    Menu{"mnuSearch", "Search Tamarind Editor"},
    Menu{"mnuConv", "Conversions"},   Menu{"mnuTools", "Tools"},
    Menu{"mnuEB", "Easy Blueprints"}, Menu{"mnuOpt", "Options"},
    Menu{"mnuHelp", "Help"},
};

constexpr std::array kItems = {
    MenuItem{"mnuFileS", "mnuOpenRS", "Open RailSim File", Run<convert::OpenRailSimFile>, nullptr, "Ctrl+O"},
    MenuItem{"mnuFileS", "mnuSaveRS", "Save RailSim File", Run<convert::SaveRailSimFile>, HasGameFile, "Ctrl+S"},
    MenuItem{"mnuFileS", "mnuXML", "Open .xml/.cost/.tgt file", Run<convert::OpenXmlFile>},
    MenuItem{"mnuFileS", "mnuSavexml", "Save .xml/.cost/.tgt file", convert::SaveXmlText},
    MenuItem{"mnuFileS", "mnuSaveAs", "Save .xml As", convert::SaveXmlTextAs},
    MenuItem{"mnuFileS", "mnuOpenTex", "Open .TgPcDx Texture Files", Run<convert::OpenTextureFile>},
    MenuItem{"mnuFileS", "mnuExit", "&Exit", Close},

    MenuItem{"mnuFile", "mnuFileOpen", "Open RailSim File", Run<convert::OpenRailSimFileInTree>, nullptr, "Ctrl+O"},
    MenuItem{"mnuFile", "mnuFileSave", "Save RailSim File", Run<convert::SaveRailSimFileFromTree>, HasDocument,
             "Ctrl+S"},
    MenuItem{"mnuFile", "mnuOpenXCT", "Open .xml/.cost/.tgt file", Run<convert::OpenXmlFileInTree>},
    MenuItem{"mnuFile", "mnuSaveXCT", "Save .xml/.cost/.tgt file", convert::SaveXmlFromTree, HasDocument},
    MenuItem{"mnuFile", "mnuFileSaveAs", "Save .xml As", convert::SaveXmlFromTreeAs, CanSaveAs},
    MenuItem{"mnuFile", "mnuFileExit", "Exit", Close},

    MenuItem{"mnuNodePopUp", "mnuNodePopUpNew", "New Child Node", editors::NewNode},
    MenuItem{"mnuNodePopUp", "mnuNodePopupRename", "Rename Node", editors::RenameNode, CanChangeNode},
    MenuItem{"mnuNodePopUp", "mnuNodePopUpDelete", "Delete Node", editors::DeleteNode, CanChangeNode},
    MenuItem{"mnuNodePopUp", "mnuEditCopy", "Copy", editors::CopySelectedNode, CanCopy},
    MenuItem{"mnuNodePopUp", "mnuEditPaste", "Paste", editors::PasteNode, CanPaste},

    MenuItem{"mnuSearch", "mnuFind", "&Find", Find},

    MenuItem{"mnuConv", "mnuDDS", "Convert RS to .dds", Run<convert::ExportTexture>},
    MenuItem{"mnuConv", "mnuView", "View .dds File", ViewDdsFile},
    MenuItem{"mnuConv", "mnuEditDDS", "Edit .dds File", EditDdsFile},
    MenuItem{"mnuConv", "mnuDDStoKrs", "Convert .dds to RS", Run<convert::ImportTexture>},

    MenuItem{"mnuTools", "mnuDelRoute", "Check Routes or Scenarios", routes::OpenRoutes},
    MenuItem{"mnuTools", "mnuMarker", "Convert Marker files", markers::ConvertMarkerFile},
    MenuItem{"mnuTools", "mnuPackAss", "Package Assets", install::OpenAssetPackager},
    MenuItem{"mnuTools", "mnuPack", "Package Route", routes::OpenRoutePackager},
    MenuItem{"mnuTools", "mnuPackSce", "Package Scenarios", routes::OpenScenarioPackager},
    MenuItem{"mnuTools", "mnuDeveloper", "Set Up Developer Folder", authoring::SetUpDeveloperFolder},
    MenuItem{"mnuTools", "mnuDevFolders", "Set Up Sub- Folders", authoring::SetUpSubFolders},
    MenuItem{"mnuTools", "mnuCloneLoco", "Clone Loco", authoring::CloneLoco},

    MenuItem{"mnuEB", "mnuMarkN", "Markers - Named", authoring::MakeNamedMarker},
    MenuItem{"mnuEB", "mnuMarkS", "Markers - Series", authoring::MakeSeriesMarker},
    MenuItem{"mnuEB", "mnuRoute", "Route Template", authoring::MakeRouteTemplate},

    MenuItem{"mnuOpt", "mnuClear", "Clear Screen", ClearScreen},
    MenuItem{"mnuOpt", "mnuCTF", "Clear Temp Files", ClearTempFiles},
    MenuItem{"mnuOpt", "mnuReadWrite", "Make all RS files Read/Write", MakeGameFilesWritable},
    MenuItem{"mnuOpt", "mnuSelDefEdit", "Select Default Editor", SelectDefaultEditor},
    MenuItem{"mnuOpt", "mnuRSPath", "Select RS Path", SelectRailSimPath},
    MenuItem{"mnuOpt", "mnuIRF", "Texture Editor Path", SelectTextureEditor},
    MenuItem{"mnuOpt", "mnuURS", "Use Tamarind Editor this session only", UseTamarindEditor},
    MenuItem{"mnuOpt", "mnuUXML", "Use XML Editor this session only", UseXmlEditor},
    MenuItem{"mnuOpt", "mnuViewer", "Viewer Path", SelectViewer},

    MenuItem{"mnuHelp", "mnuContents", "Contents", ShowContents, nullptr, "F1"},
    MenuItem{"mnuHelp", "mnuAbout", "About", ShowAbout},
};

} // namespace

std::span<const Menu> Menus() { return kMenus; }

std::span<const MenuItem> MenuItems() { return kItems; }

bool IsItemEnabled(const MenuItem& item, const EditorContext& context) {
    return item.isEnabled == nullptr || item.isEnabled(context);
}

} // namespace tamarind::shell
