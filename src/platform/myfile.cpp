#include "platform/myfile.h"

#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tamarind::platform {
namespace {

using text::ErrorNumber;
using text::RuntimeError;

constexpr std::size_t kBlock = std::size_t{256} * 1024;

/// `above` holds the folders, links followed, that are being copied: a link back to one of them is left out, since it
/// would be copied into itself for ever.
void CopyTree(Files& files, const std::string& from, const std::string& to, bool overwrite,
              std::vector<std::string>& above) {
    const std::string real = files.ResolveLinks(from);
    if (std::find(above.begin(), above.end(), real) != above.end()) {
        return;
    }
    above.push_back(real);
    // Listed before the target is made, which may lie inside.
    const std::vector<FolderEntry> entries = files.List(from);
    if (!files.IsFolder(to)) {
        files.CreateFolder(to);
    }
    for (const FolderEntry& entry : entries) {
        const std::string source = from + "\\" + entry.name;
        const std::string target = to + "\\" + entry.name;
        if (entry.isFolder || files.IsFolder(source)) {
            CopyTree(files, source, target, overwrite, above);
            continue;
        }
        if (!overwrite && files.EntryExists(target)) {
            throw RuntimeError(ErrorNumber::FileAlreadyExists, target);
        }
        CopyFile(files, source, target);
    }
    above.pop_back();
}

void DeleteTree(Files& files, const std::string& folder) {
    for (const FolderEntry& entry : files.List(folder)) {
        const std::string path = folder + "\\" + entry.name;
        if (entry.isFolder) {
            DeleteTree(files, path);
        } else {
            files.Remove(path, true);
        }
    }
    files.RemoveFolder(folder);
}

bool IsPlainCharacter(char c) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return letter || std::string_view("\"$',-.").find(c) != std::string_view::npos;
}

} // namespace

bool FileExists(const Files& files, const std::string& path) {
    try {
        return files.Open(path) != nullptr;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool FolderExists(const Files& files, const std::string& path) {
    const bool dropLast = path.size() > 1 && path.back() == '\\';
    return !path.empty() && files.IsFolder(dropLast ? path.substr(0, path.size() - 1) : path);
}

std::string ReadBytes(const Files& files, const std::string& path) {
    const std::unique_ptr<InputFile> file = files.Open(path);
    const std::optional<FileStamp> stamp = files.Stamp(path);
    std::string bytes;
    // One byte more than expected, so that the end shows in the same step.
    std::size_t step = stamp ? static_cast<std::size_t>(stamp->size) + 1 : kBlock;
    for (;;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + step);
        const std::size_t count = file->Read(std::span<char>(bytes).subspan(size));
        bytes.resize(size + count);
        if (count == 0) {
            return bytes;
        }
        step = count < step ? step - count : kBlock;
    }
}

void ReadUniFile(const Files& files, const std::string& path, std::string& text) {
    if (!files.Stamp(path)) {
        return;
    }
    std::string bytes = ReadBytes(files, path);
    text = text::EndsWithNoCase(path, "mkr") ? text::FromUtf16(bytes) : text::FromCodePage(std::move(bytes));
}

void ReadUniFile(const Files& files, const std::string& path, const std::function<void(std::string_view)>& take) {
    if (text::EndsWithNoCase(path, "mkr")) {
        std::string text;
        ReadUniFile(files, path, text);
        take(text);
        return;
    }
    if (!files.Stamp(path)) return;
    const std::unique_ptr<InputFile> file = files.Open(path);
    std::string block(kBlock, '\0');
    while (const std::size_t count = file->Read(block)) {
        const std::string_view bytes = std::string_view(block).substr(0, count);
        take(text::IsAscii(bytes) ? bytes : text::FromCodePage(std::string(bytes)));
    }
}

bool WriteUniFile(Files& files, UserInterface& ui, const std::string& path, std::string_view text) {
    try {
        WriteSafely(files, path, text::ToCodePage(text));
        return true;
    } catch (const RuntimeError& error) {
        ui.Show({error.Description() + " occurred in WriteUniFile while processing\r\nfile " + ForDisplay(path),
                 Icon::Exclamation, kApplicationTitle, Buttons::Ok});
        return false;
    }
}

void CopyFile(Files& files, const std::string& from, const std::string& to) {
    // The source is closed again before it could stand in the way of being replaced by its own copy.
    WriteSafely(files, to, [&](OutputFile& sink) { CopyContent(files, from, sink); });
}

void CopyFolderTree(Files& files, const std::string& from, const std::string& to, bool overwrite) {
    std::vector<std::string> above;
    CopyTree(files, from, to, overwrite, above);
}

void DelAll(Files& files, const std::string& folder) {
    try {
        files.RemoveFolder(folder); // empty, or a link: its target is not ours to delete
        return;
    } catch (const RuntimeError&) {
        // It holds something.
    }
    try {
        DeleteTree(files, folder);
    } catch (const RuntimeError&) {
        return; // by rule: callers go on with what is left
    }
}

bool IsPlainName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsPlainCharacter);
}

void SortStrings(std::span<std::string> items, std::ptrdiff_t low, std::ptrdiff_t high) {
    const auto at = [&](std::ptrdiff_t index) -> std::string& { return items[static_cast<std::size_t>(index)]; };
    while (low < high) {
        const std::string pivot = at((low + high) / 2);
        std::ptrdiff_t i = low;
        std::ptrdiff_t j = high;
        while (i <= j) {
            while (i < high && text::CompareNoCase(at(i), pivot) < 0) {
                ++i;
            }
            while (j > low && text::CompareNoCase(pivot, at(j)) < 0) {
                --j;
            }
            if (i <= j) {
                std::swap(at(i++), at(j--));
            }
        }
        // The shorter part by recursion, the longer one by going round: the stack stays small for every input.
        if (j - low < high - i) {
            SortStrings(items, low, j);
            low = i;
        } else {
            SortStrings(items, i, high);
            high = j;
        }
    }
}

} // namespace tamarind::platform
