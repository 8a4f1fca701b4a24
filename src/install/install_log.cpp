#include "install/install_log.h"

#include "install/package_reader.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/field_reader.h"

namespace tamarind::install {
namespace {

constexpr const char* kLineEnd = "\r\n";

void AddList(std::string& text, const std::string& title, const std::vector<std::string>& lines) {
    text += kLineEnd + title + ": " + std::to_string(lines.size()) + kLineEnd;
    for (const std::string& line : lines)
        text.append("  ").append(platform::ForDisplay(line)).append(kLineEnd);
}

} // namespace

std::string FormatLog(const InstallLog& log) {
    std::string text = "RouteSetup " TAMARIND_VERSION ": " + log.what + kLineEnd;
    text += "Game folder: " + platform::ForDisplay(log.gameFolder) + kLineEnd;
    text += log.ending + kLineEnd;
    AddList(text, "Indexes changed", log.indexes);
    AddList(text, "Files replaced (there are no backups of them)", log.replaced);
    text += kLineEnd + std::string("Files added: ") + std::to_string(log.added) + kLineEnd;
    AddList(text, "Files removed, which the game makes anew", log.removed);
    AddList(text, "Not done, or worth knowing", log.notes);
    return text;
}

void WriteLog(platform::Files& files, const std::string& packageFolder, const InstallLog& log) {
    const std::string path = packageFolder + "\\" + kInstallLog;
    MakeRoom(files, path);
    platform::WriteSafely(files, path, text::FieldFileBytes(FormatLog(log)));
}

} // namespace tamarind::install
