#include "convert/recovered.h"

#include "document/xml_writer.h"
#include "platform/myfile.h"
#include "platform/safe_write.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

namespace tamarind::convert {
namespace {

constexpr int kMostNames = 9999;

std::string FreeName(const platform::Files& files, const std::string& folder, const std::string& base) {
    const std::string start = folder + "\\" + base;
    std::string path = start + "xml";
    for (int number = 1; files.EntryExists(path) && number <= kMostNames; ++number) {
        path = fmt::format("{}{}.xml", start, number);
    }
    return path;
}

/// A free name in TempFiles\Recovered for an XML text that belongs to the open game file.
std::string RecoveredPath(session::EditorContext& context) {
    const std::string& base = context.session.FileBaseName;
    return FreeRecoveredPath(context, base.empty() ? "Untitled." : base);
}

} // namespace

std::string FreeRecoveredPath(session::EditorContext& context, const std::string& baseName) {
    auto& files = context.platform.files;
    const std::string folder = context.session.TempFiles() + "\\Recovered";
    if (!platform::FolderExists(files, context.session.TempFiles())) files.CreateFolder(context.session.TempFiles());
    if (!platform::FolderExists(files, folder)) files.CreateFolder(folder);
    return FreeName(files, folder, baseName);
}

std::string KeepUnsavedText(session::EditorContext& context) {
    if (!context.view.IsEditorTextModified()) return {};
    const std::string path = RecoveredPath(context);
    platform::WriteSafely(context.platform.files, path, text::ToCodePage(context.view.EditorText()));
    return path;
}

std::string KeepUnsavedDocument(session::EditorContext& context) {
    if (!context.document.isModified || context.document.document.IsEmpty()) return {};
    const std::string path = RecoveredPath(context);
    document::WriteXmlFile(context.document.document, context.platform.files, path);
    return path;
}

} // namespace tamarind::convert
