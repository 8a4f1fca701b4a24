#pragma once

#include "platform/file_system.h"
#include "session/editor_view.h"
#include "session/session.h"

#include <string>
#include <string_view>

/// The settings file "preferences.txt" in the program's folder: one line of eight fields separated by commas (a line
/// break separates as well), ended by CR LF:
///   window width, height, top, left   twips, whole numbers from -32768 to 32767
///   texture editor, viewer, game folder   in double quotes
///   tree editor is the default   #TRUE# or #FALSE#
/// In Windows-1252; a path that does not fit it makes the file UTF-8 with a byte-order mark.
namespace tamarind::shell {

struct Preferences {
    session::Geometry window;
    std::string textureEditorPath;
    std::string viewerPath;
    std::string railSimPath;
    bool xmlEditorDefault = false;
};

/// Fields beyond the eighth are ignored. Throws InputPastEnd when one is missing, TypeMismatch when a number or the
/// truth value is none or a path is longer than any system allows (32,767 characters), Overflow when a number is out
/// of range.
[[nodiscard]] Preferences ParsePreferences(std::string_view bytes);
[[nodiscard]] std::string FormatPreferences(const Preferences& preferences);

[[nodiscard]] std::string PreferencesPath(const session::Session& session);

/// Applies the three paths and the default editor.
void ApplyTo(session::Session& session, const Preferences& preferences);

/// Writes session and geometry. A file that could not be understood at start-up is kept under a backup name first.
/// Throws RuntimeError; the old file is then unchanged.
void WritePreferences(platform::Files& files, session::Session& session, const session::Geometry& window);

} // namespace tamarind::shell
