#include "shell/preferences.h"

#include "platform/myfile.h"
#include "platform/safe_write.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>

#include <fmt/format.h>

namespace tamarind::shell {

using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestPath = 32767;
constexpr std::string_view kSeparators = ",\r\n";

/// Takes fields off the front of the settings line.
class FieldReader {
public:
    explicit FieldReader(std::string_view text) : rest_(text) {}

    std::string Next() {
        SkipBlanks();
        if (rest_.empty()) throw RuntimeError(ErrorNumber::InputPastEnd);
        const bool quoted = rest_.front() == '"';
        if (quoted) rest_.remove_prefix(1);
        const std::size_t end = rest_.find_first_of(quoted ? std::string_view("\"") : kSeparators);
        const std::string_view field = rest_.substr(0, end);
        rest_.remove_prefix(field.size());
        SkipSeparator();
        return std::string(quoted ? field : field.substr(0, field.find_last_not_of(" \t") + 1));
    }

private:
    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }

    void SkipSeparator() {
        rest_.remove_prefix(std::min(rest_.find_first_of(kSeparators), rest_.size()));
        rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, rest_.size()));
    }

    std::string_view rest_;
};

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
    const bool utf8 = bytes.starts_with(kByteOrderMark);
    const std::string line =
        utf8 ? std::string(bytes.substr(kByteOrderMark.size())) : text::FromCodePage(std::string(bytes));
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
    const std::string line = fmt::format("{},{},{},{},\"{}\",\"{}\",\"{}\",{}\r\n", window.width, window.height,
                                         window.top, window.left, preferences.textureEditorPath, preferences.viewerPath,
                                         preferences.railSimPath, preferences.xmlEditorDefault ? "#TRUE#" : "#FALSE#");
    return text::FitsCodePage(line) ? text::ToCodePage(line) : std::string(kByteOrderMark) + line;
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
