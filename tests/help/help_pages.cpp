#include "help/help_pages.h"

#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "text/search.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <set>
#include <string_view>

namespace tamarind::tests {

namespace {

std::string Shown(std::string_view raw) {
    std::string text;
    for (const char c : raw) {
        const bool isBlank = c == '\n' || c == '\r' || c == ' ';
        if (!isBlank || text.empty() || text.back() != ' ') text += isBlank ? ' ' : c;
    }
    for (const auto& [entity, character] :
         {std::pair{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}, {"&amp;", "&"}})
        text = text::ReplaceAll(text, entity, character);
    return text;
}

std::string SmallLetters(std::string_view word) {
    std::string small(word);
    std::ranges::transform(small, small.begin(),
                           [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
    return small;
}

/// Attributes in double quotes, which is all that the pages use.
std::map<std::string, std::string> ReadAttributes(std::string_view text) {
    std::map<std::string, std::string> found;
    for (std::size_t at = 0; (at = text.find("=\"", at)) != std::string_view::npos;) {
        const std::size_t blank = text.find_last_of(" \n", at) + 1;
        const std::size_t end = text.find('"', at + 2);
        found[SmallLetters(text.substr(blank, at - blank))] = Shown(text.substr(at + 2, end - at - 2));
        at = end;
    }
    return found;
}

} // namespace

std::string HelpFolder() { return platform::ExecutableFolder() + "\\help"; }

std::string ReadHelp(const std::string& name) {
    const auto files = platform::MakeFiles();
    return platform::ReadBytes(*files, HelpFolder() + "\\" + text::ReplaceAll(name, "/", "\\"));
}

std::vector<std::string> HelpFiles(const std::string& ending) {
    const auto files = platform::MakeFiles();
    std::vector<std::string> found;
    const std::function<void(const std::string&)> look = [&](const std::string& below) {
        const std::string folder = HelpFolder() + "\\" + text::ReplaceAll(below, "/", "\\");
        for (const auto& entry : files->List(folder)) {
            const std::string path = below + entry.name;
            if (files->IsFolder(HelpFolder() + "\\" + text::ReplaceAll(path, "/", "\\"))) {
                look(path + "/");
            } else if (path.ends_with(ending)) {
                found.push_back(path);
            }
        }
    };
    look("");
    std::ranges::sort(found);
    return found;
}

std::vector<Tag> ReadTags(const std::string& html) {
    std::vector<Tag> tags;
    for (std::size_t at = html.find('<'); at != std::string::npos;) {
        const std::size_t end = html.find('>', at);
        const std::size_t next = html.find('<', at + 1);
        if (end >= next) {
            tags.push_back({"a tag without an end", {}, {}});
            return tags;
        }
        const std::string_view inside(html.data() + at + 1, end - at - 1);
        const std::size_t nameEnd = std::min(inside.find_first_of(" \n"), inside.size());
        tags.push_back({SmallLetters(inside.substr(0, nameEnd)), ReadAttributes(inside.substr(nameEnd)),
                        Shown(html.substr(end + 1, next - end - 1))});
        at = next;
    }
    return tags;
}

std::vector<std::string> Values(const std::vector<Tag>& tags, const std::string& tag, const std::string& attribute) {
    std::vector<std::string> values;
    for (const Tag& each : tags) {
        if (each.name == tag && each.attributes.contains(attribute)) values.push_back(each.attributes.at(attribute));
    }
    return values;
}

std::vector<std::string> Contents(const std::vector<Tag>& tags, const std::string& tag) {
    std::vector<std::string> contents;
    for (const Tag& each : tags) {
        if (each.name == tag) contents.push_back(each.text);
    }
    return contents;
}

std::string ShownText(const std::vector<Tag>& tags) {
    std::string text;
    for (const Tag& each : tags)
        text += each.text;
    return text;
}

std::string NestingFault(const std::vector<Tag>& tags) {
    static const std::set<std::string> kWithoutEnd{"!doctype", "meta", "link", "img", "hr"};
    std::vector<std::string> open;
    for (const Tag& tag : tags) {
        if (kWithoutEnd.contains(tag.name)) continue;
        if (!tag.name.starts_with('/')) {
            open.push_back(tag.name);
        } else if (open.empty() || "/" + open.back() != tag.name) {
            return "<" + tag.name + "> in <" + (open.empty() ? "" : open.back()) + "> before " + tag.text;
        } else {
            open.pop_back();
        }
    }
    return open.empty() ? "" : "<" + open.back() + "> has no end";
}

HelpEntries ReadEntries(const std::string& file) {
    HelpEntries entries;
    for (const Tag& tag : ReadTags(ReadHelp(file))) {
        if (tag.name == "object" && tag.attributes.at("type") == "text/sitemap") entries.emplace_back();
        if (tag.name != "param" || entries.empty()) continue;
        const std::string& value = tag.attributes.at("value");
        (tag.attributes.at("name") == "Name" ? entries.back().first : entries.back().second) = value;
    }
    return entries;
}

} // namespace tamarind::tests
