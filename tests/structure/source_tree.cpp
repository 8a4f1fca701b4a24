#include "structure/source_tree.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace tamarind::tests {
namespace {

namespace fs = std::filesystem;

using Broken = std::vector<std::string>;

bool IsStandardHeader(const std::string& header) {
    return std::all_of(header.begin(), header.end(), [](char c) { return (c >= 'a' && c <= 'z') || c == '_'; });
}

bool OpensFiles(const std::string& header) {
    return header == "filesystem" || header == "fstream" || header == "cstdio";
}

/// Libraries that are the same on every system.
bool IsPortableLibrary(const std::string& header) {
    constexpr std::array kLibraries{"fmt/", "CLI/", "nlohmann/", "stb/", "expat.h"};
    return std::any_of(kLibraries.begin(), kLibraries.end(),
                       [&](const char* name) { return header.starts_with(name); });
}

/// One line for each of the includes that a rule forbids.
Broken Forbidden(const SourceTree& tree, std::vector<std::string> SourceFile::*includes,
                 const std::function<bool(const SourceFile&, const std::string&)>& isForbidden) {
    Broken broken;
    for (const auto& [path, file] : tree) {
        for (const std::string& include : file.*includes) {
            if (isForbidden(file, include)) broken.push_back(path + " includes " + include);
        }
    }
    return broken;
}

} // namespace

std::string SourceFile::Room() const { return path.substr(0, path.find('/')); }

bool SourceFile::IsWindow() const {
    const std::string name = path.substr(path.rfind('/') + 1);
    const std::string stem = name.substr(0, name.rfind('.'));
    return name.starts_with("frm") || name.starts_with("dlg") || stem.ends_with("_page");
}

SourceFile ParseSource(const std::string& path, const std::string& text) {
    static const std::regex include(R"re(\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>).*)re");
    SourceFile file{path, {}, {}, {}};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_match(line, found, include)) {
            if (found[1].matched) file.quoted.push_back(found[1]);
            if (found[2].matched) file.angled.push_back(found[2]);
        }
        file.lines.push_back(std::move(line));
    }
    return file;
}

SourceTree ReadSources(const std::string& folder) {
    SourceTree tree;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        const std::string path = entry.path().lexically_relative(folder).generic_string();
        tree[path] = ParseSource(path, text);
    }
    return tree;
}

Broken UpwardIncludes(const SourceTree& tree, const std::vector<std::string>& rooms) {
    const auto floor = [&rooms](const std::string& path) {
        return std::find(rooms.begin(), rooms.end(), path.substr(0, path.find('/'))) - rooms.begin();
    };
    return Forbidden(tree, &SourceFile::quoted, [&](const SourceFile& file, const std::string& include) {
        const bool inARoom = include.find('/') != std::string::npos;
        return inARoom && floor(include) > floor(file.path);
    });
}

Broken UnknownIncludes(const SourceTree& tree) {
    // Made by the build from the drawings.
    const std::set<std::string> generated{"icons.h"};
    return Forbidden(tree, &SourceFile::quoted, [&](const SourceFile&, const std::string& include) {
        return !tree.contains(include) && !generated.contains(include);
    });
}

Broken Circles(const SourceTree& tree) {
    Broken broken;
    std::set<std::string> finished;
    std::vector<std::string> path;
    const std::function<void(const std::string&)> visit = [&](const std::string& name) {
        const auto again = std::find(path.begin(), path.end(), name);
        if (again != path.end()) {
            std::string circle;
            for (auto step = again; step != path.end(); ++step)
                circle += *step + " -> ";
            broken.push_back(circle + name);
            return;
        }
        const auto file = tree.find(name);
        if (file == tree.end() || finished.contains(name)) return;
        path.push_back(name);
        for (const std::string& include : file->second.quoted)
            visit(include);
        path.pop_back();
        finished.insert(name);
    };
    for (const auto& [name, file] : tree)
        visit(name);
    return broken;
}

Broken StrayToolkitIncludes(const SourceTree& tree) {
    return Forbidden(tree, &SourceFile::angled, [](const SourceFile& file, const std::string& include) {
        return include.starts_with("wx/") && !file.IsWindow() && !file.IsIn("platform/wx");
    });
}

Broken SystemIncludes(const SourceTree& tree) {
    return Forbidden(tree, &SourceFile::angled, [](const SourceFile& file, const std::string& include) {
        const bool isPlain = IsStandardHeader(include) && !OpensFiles(include);
        return !file.IsIn("platform") && !isPlain && !IsPortableLibrary(include) && !include.starts_with("wx/");
    });
}

Broken ForeignIncludesOfText(const SourceTree& tree) {
    Broken broken = Forbidden(tree, &SourceFile::angled, [](const SourceFile& file, const std::string& include) {
        return file.IsIn("text") && !IsStandardHeader(include);
    });
    const Broken quoted = Forbidden(tree, &SourceFile::quoted, [](const SourceFile& file, const std::string& include) {
        return file.IsIn("text") && !include.starts_with("text/");
    });
    broken.insert(broken.end(), quoted.begin(), quoted.end());
    return broken;
}

Broken ConditionalLines(const SourceTree& tree) {
    static const std::regex conditional(R"(\s*#\s*(if|ifdef|ifndef|elif|else)\b.*)");
    Broken broken;
    for (const auto& [path, file] : tree) {
        for (const std::string& line : file.lines) {
            if (std::regex_match(line, conditional)) broken.push_back(path + ": " + line);
        }
    }
    return broken;
}

Broken FilesLongerThan(const SourceTree& tree, std::size_t lines) {
    Broken broken;
    for (const auto& [path, file] : tree) {
        if (file.lines.size() > lines) broken.push_back(path + " has " + std::to_string(file.lines.size()) + " lines");
    }
    return broken;
}

} // namespace tamarind::tests
