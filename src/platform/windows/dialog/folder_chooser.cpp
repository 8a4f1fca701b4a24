#include "platform/windows/dialog/folder_chooser.h"

#include "platform/windows/wide.h"

#include <memory>
#include <shobjidl.h>

namespace tamarind::platform {
namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface> using Object = std::unique_ptr<Interface, ReleaseObject>;

std::string PathOf(IShellItem& item) {
    wchar_t* name = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
    std::string path = FromWide(name);
    CoTaskMemFree(name);
    return path;
}

Object<IShellItem> ItemOf(const std::string& folder) {
    IShellItem* item = nullptr;
    if (folder.empty() || FAILED(SHCreateItemFromParsingName(ToWide(folder).c_str(), nullptr, IID_PPV_ARGS(&item)))) {
        return nullptr;
    }
    return Object<IShellItem>(item);
}

std::string ChooseWith(IFileOpenDialog& dialog, HWND owner, const std::string& title, const std::string& startFolder) {
    FILEOPENDIALOGOPTIONS options = 0;
    dialog.GetOptions(&options);
    dialog.SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM);
    dialog.SetTitle(ToWide(title).c_str());
    if (const Object<IShellItem> start = ItemOf(startFolder)) dialog.SetFolder(start.get());
    IShellItem* chosen = nullptr;
    if (FAILED(dialog.Show(owner)) || FAILED(dialog.GetResult(&chosen))) return {};
    return PathOf(*Object<IShellItem>(chosen));
}

} // namespace

std::string ChooseFolder(HWND owner, const std::string& title, const std::string& startFolder) {
    const bool isReady = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE));
    std::string chosen;
    IFileOpenDialog* dialog = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&dialog)))) {
        chosen = ChooseWith(*Object<IFileOpenDialog>(dialog), owner, title, startFolder);
    }
    if (isReady) CoUninitialize();
    return chosen;
}

} // namespace tamarind::platform
