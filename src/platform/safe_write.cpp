#include "platform/safe_write.h"

#include "platform/paths.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace tamarind::platform {
namespace {

using text::ErrorNumber;
using text::RuntimeError;

constexpr int kBackupNames = 50;
constexpr int kNameAttempts = 100;
constexpr std::size_t kBlock = std::size_t{256} * 1024;

/// Used where another failure is being reported already: a second one must not hide it.
void RemoveQuietly(Files& files, const std::string& path) {
    try {
        files.Remove(path, true);
    } catch (const RuntimeError&) {
        return;
    }
}

std::string TemporaryNameBeside(const std::string& target) {
    std::random_device random;
    const std::uint64_t number = std::uint64_t{random()} << 32 | random();
    std::string name = "~tamarind-";
    for (int shift = 60; shift >= 0; shift -= 4) {
        name += "0123456789abcdef"[number >> shift & 0xF];
    }
    return target.substr(0, target.size() - NameOf(target).size()) + name + ".tmp";
}

/// Fills the new, open file and brings it to the disk. Its attributes come first, so that nobody can read it who
/// could not read the old one. On failure the file is removed.
void FillNewFile(Files& files, std::unique_ptr<OutputFile> file, const std::string& name,
                 const std::optional<std::string>& attributesOf, const WriteContent& write) {
    try {
        if (attributesOf) {
            files.CopyAttributes(*attributesOf, name);
        }
        write(*file);
        file->Flush();
        file->Close();
    } catch (...) {
        file.reset(); // some systems do not remove an open file
        RemoveQuietly(files, name);
        throw;
    }
}

/// Creates a temporary file beside `target`, with its attributes where it exists, and returns its name.
std::string WriteTemporary(Files& files, const std::string& target, const WriteContent& write) {
    std::string name;
    std::unique_ptr<OutputFile> file;
    for (int attempt = 1; !file; ++attempt) {
        name = TemporaryNameBeside(target);
        try {
            file = files.Create(name, CreateMode::New);
        } catch (const RuntimeError& error) {
            if (error.Code() != ErrorNumber::FileAlreadyExists || attempt == kNameAttempts) {
                throw RuntimeError(error.Code(), target);
            }
        }
    }
    try {
        FillNewFile(files, std::move(file), name,
                    files.Stamp(target) ? std::optional<std::string>(target) : std::nullopt, write);
    } catch (const RuntimeError& error) {
        if (error.Details() == name) {
            throw RuntimeError(error.Code(), target); // the name that the user knows
        }
        throw;
    }
    return name;
}

/// A second name for the old file, or where there are none a copy of it.
void MakeBackup(Files& files, const std::string& target, const std::string& backup) {
    try {
        files.HardLink(target, backup);
        return;
    } catch (const RuntimeError& error) {
        if (error.Code() != ErrorNumber::PathAccessError) {
            throw;
        }
    }
    FillNewFile(files, files.Create(backup, CreateMode::New), backup, target,
                [&](OutputFile& sink) { CopyContent(files, target, sink); });
}

/// The steps of ReplaceGameFile; `target` is `original` with its links followed.
std::string ReplaceWithBackup(Files& files, const std::string& original, const std::string& target,
                              const std::string& newFile, const std::optional<FileStamp>& before) {
    std::string backup = FreeBackupName(files, original);
    if (backup.empty() && files.IsWriteProtected(target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied, original); // as an ordinary overwrite
    }
    const std::string temporary =
        WriteTemporary(files, target, [&](OutputFile& sink) { CopyContent(files, newFile, sink); });
    bool backupMade = false;
    try {
        if (!backup.empty()) {
            MakeBackup(files, target, backup);
            backupMade = true;
        }
        files.Replace(temporary, target);
    } catch (...) {
        if (files.Stamp(target) == before) {
            RemoveQuietly(files, temporary);
            if (backupMade) {
                RemoveQuietly(files, backup);
            }
        }
        throw;
    }
    return backup;
}

} // namespace

void WriteSafely(Files& files, const std::string& path, const WriteContent& write) {
    const std::string target = files.ResolveLinks(path);
    if (files.IsFolder(target)) {
        throw RuntimeError(ErrorNumber::PathAccessError, path);
    }
    if (files.IsWriteProtected(target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    }
    const std::string temporary = WriteTemporary(files, target, write);
    try {
        files.Replace(temporary, target);
    } catch (...) {
        RemoveQuietly(files, temporary);
        throw;
    }
}

void WriteSafely(Files& files, const std::string& path, std::string_view bytes) {
    WriteSafely(files, path, [bytes](OutputFile& sink) { sink.Write(bytes); });
}

void CopyContent(const Files& files, const std::string& from, OutputFile& sink) {
    const std::unique_ptr<InputFile> source = files.Open(from);
    std::vector<char> buffer(kBlock);
    while (const std::size_t count = source->Read(buffer)) {
        sink.Write(std::string_view(buffer.data(), count));
    }
}

std::string FreeBackupName(const Files& files, const std::string& path) {
    std::string name = path + ".bak";
    for (int number = 1; files.EntryExists(name); ++number) {
        if (number > kBackupNames) {
            return {};
        }
        name = path + ".bak" + std::to_string(number);
    }
    return name;
}

std::string ReplaceGameFile(Files& files, const std::string& original, const std::string& newFile) {
    const std::string target = files.ResolveLinks(original);
    const std::optional<FileStamp> before = files.Stamp(target);
    if (!before) {
        throw RuntimeError(files.IsFolder(target) ? ErrorNumber::PathAccessError : ErrorNumber::FileNotFound, original);
    }
    try {
        return ReplaceWithBackup(files, original, target, newFile, before);
    } catch (const RuntimeError& error) {
        // The last step may fail after the new file has taken its place; then the backup stays.
        const bool unchanged = files.Stamp(target) == before;
        throw error.With(unchanged ? "The game file is unchanged." : "The game file was replaced nevertheless.");
    }
}

bool IsNewFile(const Files& files, const std::string& path, const std::optional<FileStamp>& before) {
    const auto after = files.Stamp(path);
    return after && after->size > 0 && after != before;
}

void PutBack(Files& files, const std::string& backup, const std::string& original) {
    try {
        WriteSafely(files, original, [&](OutputFile& sink) { CopyContent(files, backup, sink); });
        files.CopyAttributes(backup, original);
    } catch (const RuntimeError&) {
        if (!files.Stamp(original)) files.Replace(backup, original);
    }
}

} // namespace tamarind::platform
