#pragma once

#include "session/editor_context.h"

#include <string>

/// What the commands that work in TempFiles share.
namespace tamarind::convert {

/// While a command converts a game file, none of the same base name may be opened or saved: they share their working
/// files.
class Converting {
public:
    Converting(session::Session& session, std::string tempBase);
    ~Converting();
    Converting(const Converting&) = delete;
    Converting& operator=(const Converting&) = delete;

private:
    session::Session& session_;
};

/// Makes the folder "TempFiles" where there is none.
void MakeTempFiles(session::EditorContext& context);

/// Whether the working files are free; if not, the person was told that `file` has to wait.
[[nodiscard]] bool MayConvert(session::EditorContext& context, const std::string& tempBase, const std::string& file);

/// What was not saved stays in TempFiles\\Recovered when its place is taken. `what` names it for the person.
void KeepUnsaved(session::EditorContext& context, std::string (*keep)(session::EditorContext&),
                 const std::string& what);

/// Puts a text into the text editor; one there that was not saved is kept.
void ReplaceEditorText(session::EditorContext& context, const std::string& text);

} // namespace tamarind::convert
