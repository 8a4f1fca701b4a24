#include "shell/closing.h"

#include "convert/game_file.h"
#include "convert/recovered.h"
#include "platform/paths.h"
#include "shell/preferences.h"

#include <fmt/format.h>

namespace tamarind::shell {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using session::EditorContext;
using text::RuntimeError;

namespace {

void KeepSettings(EditorContext& context) {
    try {
        WritePreferences(context.platform.files, context.session, context.view.CurrentGeometry());
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = "The settings could not be saved: " + error.Description() + "\r\n" +
                                 platform::ForDisplay(error.Details())});
    }
}

/// In plain words: where unsaved work is now, or why it could not be kept; empty when there was none.
std::string Keep(EditorContext& context, std::string (*keep)(EditorContext&), const std::string& what) {
    try {
        const std::string path = keep(context);
        return path.empty() ? "" : what + " that was not saved is kept in " + platform::ForDisplay(path);
    } catch (const RuntimeError& error) {
        return what + " that was not saved could not be kept: " + error.Description();
    }
}

std::string KeepText(EditorContext& context) { return Keep(context, convert::KeepUnsavedText, "The text"); }

std::string KeepDocument(EditorContext& context) {
    return Keep(context, convert::KeepUnsavedDocument, "The XML document");
}

bool SaveBeforeClosing(EditorContext& context) {
    if (context.document.hasFileName) {
        convert::SaveRailSimFileFromTree(context);
    } else {
        convert::SaveXmlFromTreeAs(context);
    }
    return !context.document.isModified;
}

} // namespace

bool MayClose(EditorContext& context) {
    KeepSettings(context);
    if (context.document.isModified) {
        const Answer answer = context.ui.Show({.text = "The file has been modified, do you wish to save the changes?",
                                               .icon = Icon::Question,
                                               .title = "File Modified",
                                               .buttons = Buttons::YesNoCancel});
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::Yes && !SaveBeforeClosing(context)) return false;
    }
    const std::string kept = KeepText(context);
    if (!kept.empty()) context.ui.ShowStatus(kept);
    return true;
}

void ReportFatalError(EditorContext& context, const RuntimeError& error) {
    std::string text = fmt::format("Run-time error '{}':\r\n\r\n{}", error.Number(), error.Description());
    for (const std::string& paragraph :
         {platform::ForDisplay(error.Details()), KeepText(context), KeepDocument(context)}) {
        if (!paragraph.empty()) text += "\r\n\r\n" + paragraph;
    }
    context.ui.Show({.text = text + "\r\n\r\nTamarind ends now.", .icon = Icon::Critical});
}

} // namespace tamarind::shell
