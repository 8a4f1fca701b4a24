#include "platform/batch_file.h"

#include "platform/command_line.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <set>

namespace tamarind::platform {
namespace {

constexpr std::string_view kAllFiles = "\\*.*";

/// An argument list taken apart into switches, in lower case, and the rest.
struct Words {
    std::set<std::string> switches;
    std::vector<std::string> names;
};

Words SortWords(const std::vector<CommandArgument>& arguments, std::size_t first) {
    Words words;
    for (std::size_t i = first; i < arguments.size(); ++i) {
        const CommandArgument& argument = arguments[i];
        const bool isSwitch =
            argument.quoted.empty() && (argument.text.starts_with('/') || argument.text.starts_with('-'));
        if (isSwitch) {
            words.switches.insert(text::ToLower(argument.text));
        } else {
            words.names.push_back(argument.text);
        }
    }
    return words;
}

std::string WithoutAllFiles(const std::string& path) {
    return path.ends_with(kAllFiles) ? path.substr(0, path.size() - kAllFiles.size()) : path;
}

std::optional<BatchCommand> ReadClearAttributes(Words words) {
    const bool wholeTree = words.switches.erase("/s") == 1 && words.switches.erase("/d") == 1;
    const bool onlyClears = !words.switches.empty() &&
                            std::all_of(words.switches.begin(), words.switches.end(), [](const std::string& name) {
                                return name == "-r" || name == "-h" || name == "-s";
                            });
    if (!wholeTree || !onlyClears || words.names.size() != 1 || !words.names[0].ends_with(kAllFiles)) {
        return std::nullopt;
    }
    return ClearAttributes{WithoutAllFiles(words.names[0])};
}

std::optional<BatchCommand> ReadCopy(const Words& words) {
    if (words.switches != std::set<std::string>{"/c", "/i", "/s"} || words.names.size() != 2 ||
        !words.names[1].ends_with(kAllFiles)) {
        return std::nullopt;
    }
    return CopyToFolder{WithoutAllFiles(words.names[0]), WithoutAllFiles(words.names[1])};
}

/// Calls `step`, and goes on where it fails.
template <typename Step> void PassOver(const Step& step) {
    try {
        step();
    } catch (const text::RuntimeError&) {
        return; // what the commands themselves do: they go on with the next entry
    }
}

void ClearTree(Files& files, const std::string& folder, const std::stop_token& stop) {
    PassOver([&] { files.MakeWritable(folder); });
    PassOver([&] {
        for (const FolderEntry& entry : files.List(folder)) {
            const std::string path = folder + "\\" + entry.name;
            if (stop.stop_requested()) {
                return;
            }
            if (entry.isFolder) {
                ClearTree(files, path, stop);
            } else {
                PassOver([&] { files.MakeWritable(path); });
            }
        }
    });
}

void CreateFolders(Files& files, const std::string& folder) {
    if (!folder.empty() && !files.IsFolder(folder)) {
        CreateFolders(files, FolderOf(folder));
        files.CreateFolder(folder);
    }
}

/// Copies a folder's content. Folders are made when a first file goes into them, so that empty ones are left out.
class TreeCopy {
public:
    TreeCopy(Files& files, const std::stop_token& stop) : files_(files), stop_(stop) {}

    void CopyOne(const std::string& from, const std::string& toFolder) {
        PassOver([&] {
            const std::unique_ptr<InputFile> readable = files_.Open(from);
            CreateFolders(files_, toFolder);
            CopyFile(files_, from, toFolder + "\\" + NameOf(from));
        });
    }

    void CopyContent(const std::string& from, const std::string& to) {
        const std::string real = files_.ResolveLinks(from);
        if (std::find(above_.begin(), above_.end(), real) != above_.end()) {
            return; // a link back to a folder that is being copied
        }
        above_.push_back(real);
        PassOver([&] {
            for (const FolderEntry& entry : files_.List(from)) {
                const std::string path = from + "\\" + entry.name;
                if (stop_.stop_requested()) {
                    return;
                }
                if (entry.isFolder || files_.IsFolder(path)) {
                    CopyContent(path, to + "\\" + entry.name);
                } else {
                    CopyOne(path, to);
                }
            }
        });
        above_.pop_back();
    }

private:
    Files& files_;
    const std::stop_token& stop_;
    std::vector<std::string> above_;
};

bool LiesInside(const std::string& path, const std::string& folder) {
    return text::EqualNoCase(path, folder) || (path.size() > folder.size() && path[folder.size()] == '\\' &&
                                               text::EqualNoCase(path.substr(0, folder.size()), folder));
}

struct Runner {
    Files& files;
    const std::stop_token& stop;

    void operator()(const ClearAttributes& command) const {
        if (!command.folder.empty()) { // never the whole disk
            ClearTree(files, command.folder, stop);
        }
    }

    void operator()(const CopyToFolder& command) const {
        TreeCopy copy(files, stop);
        if (!files.IsFolder(command.source)) {
            copy.CopyOne(command.source, command.destination);
        } else if (!LiesInside(command.destination, command.source)) { // else it would never end
            copy.CopyContent(command.source, command.destination);
        }
    }
};

} // namespace

std::optional<BatchCommand> ParseBatchCommand(std::string_view line) {
    const std::vector<CommandArgument> arguments = ParseArguments(line);
    const auto is = [&](std::size_t index, std::string_view name) {
        return index < arguments.size() && (text::EqualNoCase(arguments[index].text, name) ||
                                            text::EqualNoCase(arguments[index].text, std::string(name) + ".exe"));
    };
    const std::size_t first = is(0, "call") ? 1 : 0;
    if (is(first, "attrib")) {
        return ReadClearAttributes(SortWords(arguments, first + 1));
    }
    if (is(first, "xcopy")) {
        return ReadCopy(SortWords(arguments, first + 1));
    }
    return std::nullopt;
}

std::optional<std::vector<BatchCommand>> ParseBatchFile(std::string_view text) {
    std::vector<BatchCommand> commands;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (line.find_first_not_of(" \t") == std::string_view::npos) {
            continue;
        }
        std::optional<BatchCommand> command = ParseBatchCommand(line);
        if (!command) {
            return std::nullopt;
        }
        commands.push_back(std::move(*command));
    }
    return commands;
}

void RunBatchCommand(Files& files, const BatchCommand& command, const std::stop_token& stop) {
    std::visit(Runner{files, stop}, command);
}

} // namespace tamarind::platform
