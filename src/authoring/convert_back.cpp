#include "authoring/convert_back.h"

#include "platform/converter.h"
#include "platform/safe_write.h"
#include "text/code_page.h"

namespace tamarind::authoring {

using session::EditorContext;

Busy::Busy(EditorContext& context, ScenarioWindow& window, const std::string& tempBase)
    : context_(context), window_(window) {
    window_.isBusy = true;
    context_.session.convertingBases.push_back(tempBase);
}

// Commands nest, so the last base is this one's.
Busy::~Busy() {
    context_.session.convertingBases.pop_back();
    window_.isBusy = false;
}

void WriteLine(platform::Files& files, const std::string& path, const std::string& text) {
    platform::WriteSafely(files, path, [&text](platform::OutputFile& sink) {
        sink.Write(text::IsAscii(text) ? text : text::ToCodePage(text));
        sink.Write("\r\n");
    });
}

ConvertedBack ConvertBack(EditorContext& context, const std::string& source, const std::string& stem) {
    auto& files = context.platform.files;
    const std::string file = stem + ".bin";
    ConvertedBack converted{.backup = platform::FreeBackupName(files, stem)};
    if (!converted.backup.empty()) files.Rename(file, converted.backup);
    const auto before = files.Stamp(file);
    // The converter knows by the file which way to go; the word is the same both ways.
    platform::ConvertToXml(context.platform.processes, context.ui, context.ConverterFolders(), source, file);
    converted.isNew = platform::IsNewFile(files, file, before);
    if (!converted.isNew && !converted.backup.empty()) platform::PutBack(files, converted.backup, file);
    return converted;
}

} // namespace tamarind::authoring
