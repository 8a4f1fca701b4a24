#include "routes/report_sink.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"

namespace tamarind::routes {
namespace {

/// So that the dialog can start there.
void MakeReportsFolder(platform::Files& files, const std::string& folder) {
    try {
        if (!platform::FolderExists(files, folder)) files.CreateFolder(folder);
    } catch (const text::RuntimeError&) {
        return; // the dialog starts elsewhere
    }
}

} // namespace

bool SaveReport(session::EditorContext& context, const std::string& text) {
    const std::string folder = context.session.ProgramFolder + "\\Reports";
    MakeReportsFolder(context.platform.files, folder);
    const std::string path = context.ui.AskForFile({.save = true,
                                                    .title = "Save Object File",
                                                    .filter = "Text Files (*.txt)|*.txt",
                                                    .startFolder = folder,
                                                    .defaultExtension = "txt",
                                                    .confirmsOverwriting = true});
    if (path.empty() || !platform::WriteUniFile(context.platform.files, context.ui, path, text)) return false;
    context.ui.ShowStatus("Saved " + platform::ForDisplay(path));
    return true;
}

} // namespace tamarind::routes
