#include "platform/posix/native_path.h"

#include "platform/paths.h"
#include "text/search.h"

#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace tamarind::platform {
namespace {

// U+F05C, the private use twin of the backslash (U+005C).
constexpr std::string_view kBackslashInName = "\xEF\x81\x9C";

std::string NativeSpelling(std::string_view path) {
    std::string native = text::ReplaceAll(path, "\\", "/");
    return text::ReplaceAll(native, kBackslashInName, "\\");
}

bool Exists(const std::string& native) {
    struct stat status = {};
    return lstat(native.c_str(), &status) == 0;
}

/// The entry of `folder` that differs from `name` in letter case only; of several the first in byte order, so that
/// the answer does not depend on the order on disk. Empty when there is none.
std::string EntryInOtherCase(const std::string& folder, const std::string& name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()), &closedir);
    const std::string wanted = text::ToLower(name);
    std::string found;
    if (!entries) {
        return found;
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the stream is ours alone
    while (const dirent* entry = readdir(entries.get())) {
        const std::string_view candidate = entry->d_name;
        if (text::ToLower(candidate) == wanted && (found.empty() || candidate < found)) {
            found = candidate;
        }
    }
    return found;
}

/// Component by component, the exact name first. From the first component that is missing in every letter case the
/// rest stays as written.
std::string InCaseOnDisk(const std::string& native) {
    if (Exists(native)) {
        return native;
    }
    std::string done;
    std::size_t start = 0;
    while (start < native.size()) {
        const std::size_t slash = native.find('/', start);
        if (slash == start) {
            done += '/';
            ++start;
            continue;
        }
        const std::string name = native.substr(start, slash == std::string::npos ? slash : slash - start);
        std::string onDisk = name;
        if (!Exists(done + name)) {
            onDisk = EntryInOtherCase(done, name);
            if (onDisk.empty()) {
                return done + native.substr(start);
            }
        }
        done += onDisk;
        start += name.size();
    }
    return done;
}

std::string WithoutTrailingSlash(std::string native) {
    while (native.size() > 1 && native.back() == '/') {
        native.pop_back();
    }
    return native;
}

} // namespace

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && path[1] == ':' &&
           ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}

std::optional<std::string> NativePath(std::string_view path) {
    if (HasDrive(path)) {
        return std::nullopt;
    }
    return InCaseOnDisk(WithoutTrailingSlash(NativeSpelling(path)));
}

std::optional<std::string> NativePathWithNameAsWritten(std::string_view path) {
    if (HasDrive(path)) {
        return std::nullopt;
    }
    const std::string native = WithoutTrailingSlash(NativeSpelling(path));
    const std::size_t slash = native.rfind('/');
    if (slash == std::string::npos) {
        return native;
    }
    return InCaseOnDisk(native.substr(0, slash + 1)) + native.substr(slash + 1);
}

std::string ProgramSpelling(std::string_view native) {
    return text::ReplaceAll(text::ReplaceAll(native, "\\", kBackslashInName), "/", "\\");
}

std::string ToNative(std::string_view path) { return NativePath(path).value_or(std::string(path)); }

} // namespace tamarind::platform
