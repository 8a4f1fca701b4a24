#include "routes/working_files.h"

#include "platform/converter.h"
#include "platform/myfile.h"
#include "text/runtime_error.h"
#include "text/search.h"

namespace tamarind::routes {

using session::EditorContext;

Busy::Busy(EditorContext& context, RouteWindow& window, const std::string& tempBase)
    : context_(context), window_(window) {
    window_.isBusy = true;
    context_.session.convertingBases.push_back(tempBase);
}

// Commands nest, so the last base is this one's.
Busy::~Busy() {
    context_.session.convertingBases.pop_back();
    window_.isBusy = false;
}

bool MayUseTempFiles(EditorContext& context) {
    if (context.session.convertingBases.empty()) return true;
    context.ui.Show({.text = "This has to wait: a game file is being converted."});
    return false;
}

void ClearTempFiles(EditorContext& context) {
    auto& files = context.platform.files;
    const std::string folder = context.session.TempFiles();
    if (!platform::FolderExists(files, folder)) {
        files.CreateFolder(folder);
        return;
    }
    for (const platform::FolderEntry& entry : files.List(folder)) {
        const std::string path = folder + "\\" + entry.name;
        if (!entry.isFolder) {
            RemoveWorkingFile(files, path);
        } else if (!text::EqualNoCase(entry.name, "Recovered")) {
            platform::DelAll(files, path);
        }
    }
}

void RemoveWorkingFile(platform::Files& files, const std::string& path) {
    if (!files.EntryExists(path)) return;
    try {
        files.Remove(path, true);
    } catch (const text::RuntimeError&) {
        return; // it is in nobody's way but the next conversion's, which tells
    }
}

std::optional<std::string> ConvertToText(EditorContext& context, const std::string& binaryPath,
                                         const std::string& xmlPath) {
    auto& files = context.platform.files;
    if (files.EntryExists(xmlPath)) files.Remove(xmlPath, true);
    platform::ConvertToXml(context.platform.processes, context.ui, context.ConverterFolders(), binaryPath, xmlPath);
    if (!platform::FileExists(files, xmlPath)) return std::nullopt;
    std::string text;
    platform::ReadUniFile(files, xmlPath, text);
    return text;
}

} // namespace tamarind::routes
