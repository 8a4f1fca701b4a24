#include "platform/posix/find_program.h"

#include "platform/paths.h"
#include "platform/posix/native_path.h"
#include "platform/posix/open_files.h"
#include "text/search.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace tamarind::platform {
namespace {

constexpr std::string_view kExecutableStart = "\177ELF";

std::vector<std::string> FoldersToSearch(const ProcessStart& start) {
    std::vector<std::string> folders = start.searchFolders;
    folders.push_back(start.folder);
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nothing changes the environment
    const char* searchPath = std::getenv("PATH");
    std::string_view rest = searchPath == nullptr ? "" : searchPath;
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        folders.push_back(ProgramSpelling(folder));
    }
    return folders;
}

std::optional<std::string> FileAt(const std::string& path) {
    std::optional<std::string> native = NativePath(path);
    struct stat status = {};
    if (!native || stat(native->c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return native;
}

std::optional<std::string> FileWithEnding(const std::string& path) {
    std::optional<std::string> native = FileAt(path);
    if (!native && ExtensionOf(NameOf(path)).empty()) {
        native = FileAt(path + ".exe");
        if (!native) {
            native = FileAt(path + ".bat");
        }
    }
    return native;
}

std::optional<std::string> Locate(const std::string& name, const std::vector<std::string>& folders) {
    if (name.find('\\') != std::string::npos) {
        return FileWithEnding(name);
    }
    for (const std::string& folder : folders) {
        std::optional<std::string> native =
            folder.empty() ? std::nullopt : FileWithEnding(WithoutTrailingBackslash(folder) + "\\" + name);
        if (native) {
            return native;
        }
    }
    return std::nullopt;
}

ProgramKind KindOf(const std::string& native) {
    if (text::EndsWithNoCase(native, ".bat") || text::EndsWithNoCase(native, ".cmd")) {
        return ProgramKind::Batch;
    }
    const Descriptor file = OpenDescriptor(native, O_RDONLY);
    char start[4] = {};
    const ssize_t count = file.IsOpen() ? read(file.Number(), start, sizeof start) : -1;
    const std::string_view bytes(start, count > 0 ? static_cast<std::size_t>(count) : 0);
    if (bytes.starts_with("MZ")) {
        return ProgramKind::Windows;
    }
    const bool isNative = bytes.starts_with("#!") || bytes == kExecutableStart;
    return isNative ? ProgramKind::Native : ProgramKind::Unknown;
}

} // namespace

std::optional<FoundProgram> FindProgram(const ProcessStart& start) {
    const std::vector<std::string> folders = FoldersToSearch(start);
    for (const ProgramCandidate& candidate : ProgramCandidates(start.commandLine)) {
        const std::optional<std::string> native = Locate(candidate.name, folders);
        if (native) {
            const std::string rest = start.commandLine.substr(candidate.end);
            return FoundProgram{*native, KindOf(*native), ParseArguments(rest)};
        }
    }
    return std::nullopt;
}

} // namespace tamarind::platform
