#include "shell/preferences.h"

#include "platform/myfile.h"
#include "platform/safe_write.h"
#include "text/field_reader.h"
#include "text/numbers.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <fmt/format.h>

namespace tamarind::shell {

using text::ErrorNumber;
using text::FieldReader;
using text::RuntimeError;

namespace {

constexpr std::size_t kLongestPath = 32767;

std::int16_t ReadTwips(FieldReader& fields) { return text::ToInt16(text::ReadNumber(fields.Next())); }

std::string ReadPath(FieldReader& fields) {
    std::string path = fields.Next();
    if (path.size() > kLongestPath) throw RuntimeError(ErrorNumber::TypeMismatch);
    return path;
}

bool ReadTruth(FieldReader& fields) {
    const std::string field = fields.Next();
    if (text::EqualNoCase(field, "#TRUE#")) return true;
    if (text::EqualNoCase(field, "#FALSE#")) return false;
    throw RuntimeError(ErrorNumber::TypeMismatch);
}

} // namespace

Preferences ParsePreferences(std::string_view bytes) {
    const std::string line = text::FieldFileText(bytes);
    FieldReader fields(line);
    Preferences read;
    read.window.width = ReadTwips(fields);
    read.window.height = ReadTwips(fields);
    read.window.top = ReadTwips(fields);
    read.window.left = ReadTwips(fields);
    read.textureEditorPath = ReadPath(fields);
    read.viewerPath = ReadPath(fields);
    read.railSimPath = ReadPath(fields);
    read.xmlEditorDefault = ReadTruth(fields);
    return read;
}

std::string FormatPreferences(const Preferences& preferences) {
    const auto& window = preferences.window;
    return text::FieldFileBytes(fmt::format("{},{},{},{},\"{}\",\"{}\",\"{}\",{}\r\n", window.width, window.height,
                                            window.top, window.left, preferences.textureEditorPath,
                                            preferences.viewerPath, preferences.railSimPath,
                                            preferences.xmlEditorDefault ? "#TRUE#" : "#FALSE#"));
}

std::string PreferencesPath(const session::Session& session) { return session.ProgramFolder + "\\preferences.txt"; }

void ApplyTo(session::Session& session, const Preferences& preferences) {
    session.TextureEditorPath = preferences.textureEditorPath;
    session.ViewerPath = preferences.viewerPath;
    session.RailSimPath = preferences.railSimPath;
    session.XmlEditorDefault = preferences.xmlEditorDefault;
}

void WritePreferences(platform::Files& files, session::Session& session, const session::Geometry& window) {
    const std::string path = PreferencesPath(session);
    if (session.preferencesUnreadable) {
        const std::string backup = platform::FreeBackupName(files, path);
        if (!backup.empty()) platform::CopyFile(files, path, backup);
        session.preferencesUnreadable = false;
    }
    platform::WriteSafely(files, path,
                          FormatPreferences({.window = window,
                                             .textureEditorPath = session.TextureEditorPath,
                                             .viewerPath = session.ViewerPath,
                                             .railSimPath = session.RailSimPath,
                                             .xmlEditorDefault = session.XmlEditorDefault}));
}

} // namespace tamarind::shell
