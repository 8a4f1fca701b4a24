#include "cli/prepare.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "shell/start_up.h"
#include "text/runtime_error.h"

namespace tamarind::cli {

using session::EditorContext;

void FindGame(EditorContext& context, const Arguments& arguments) {
    auto& session = context.session;
    const auto step = [&context](void (*read)(EditorContext&)) {
        try {
            read(context);
        } catch (const text::RuntimeError& error) {
            context.ui.Show({.text = error.Details().empty()
                                         ? error.Description()
                                         : error.Description() + "\r\n" + platform::ForDisplay(error.Details())});
        }
    };
    step(shell::ReadSettings);
    if (!arguments.gameFolder.empty()) session.RailSimPath = platform::FromNative(arguments.gameFolder);
    step(shell::FindGameFolder);
}

void PrepareGame(EditorContext& context, const Arguments& arguments) {
    FindGame(context, arguments);
    const auto& session = context.session;
    auto& files = context.platform.files;
    if (!platform::FolderExists(files, session.TempFiles())) files.CreateFolder(session.TempFiles());
}

} // namespace tamarind::cli
