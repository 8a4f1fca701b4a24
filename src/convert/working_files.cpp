#include "convert/working_files.h"

#include "convert/recovered.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <utility>

namespace tamarind::convert {

using session::EditorContext;

Converting::Converting(session::Session& session, std::string tempBase) : session_(session) {
    session_.convertingBases.push_back(std::move(tempBase));
}

// Commands nest, so the last one is this one.
Converting::~Converting() { session_.convertingBases.pop_back(); }

void MakeTempFiles(EditorContext& context) {
    const std::string folder = context.session.TempFiles();
    if (!platform::FolderExists(context.platform.files, folder)) context.platform.files.CreateFolder(folder);
}

bool MayConvert(EditorContext& context, const std::string& tempBase, const std::string& file) {
    const auto& bases = context.session.convertingBases;
    const auto isSame = [&tempBase](const std::string& base) { return text::EqualNoCase(base, tempBase); };
    if (std::none_of(bases.begin(), bases.end(), isSame)) return true;
    context.ui.Show({.text = platform::ForDisplay(file) + "\r\nhas to wait: a file of that name is being converted."});
    return false;
}

void KeepUnsaved(EditorContext& context, std::string (*keep)(EditorContext&), const std::string& what) {
    try {
        const std::string kept = keep(context);
        if (!kept.empty()) context.ui.ShowStatus(what + " that was not saved is kept in " + platform::ForDisplay(kept));
    } catch (const text::RuntimeError& error) {
        context.ui.Show({.text = what + " that was not saved could not be kept in TempFiles: " + error.Description() +
                                 "\r\n" + platform::ForDisplay(error.Details())});
    }
}

void ReplaceEditorText(EditorContext& context, const std::string& text) {
    KeepUnsaved(context, KeepUnsavedText, "The text");
    context.view.SetEditorText(text);
}

} // namespace tamarind::convert
