#include "platform/batch_file.h"

#include "platform/command_line.h"
#include "platform/paths.h"
#include "platform/tree_copy.h"
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
        if (!files.IsFolder(command.source)) {
            TreeCopier copier(files, FolderOf(command.source), command.destination);
            PassOver([&] { copier.Copy(NameOf(command.source)); });
            return;
        }
        if (LiesInside(command.destination, command.source)) return; // it would never end
        TreeCopier copier(files, command.source, command.destination);
        for (const Tree::File& file : ListTree(files, command.source).files) {
            if (stop.stop_requested()) return;
            PassOver([&] { copier.Copy(file.path); });
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
