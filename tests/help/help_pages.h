#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tamarind::tests {

/// The folder "help" beside the tests.
std::string HelpFolder();
std::string ReadHelp(const std::string& name);
/// Paths below the folder with "/", whose names end so.
std::vector<std::string> HelpFiles(const std::string& ending);

/// A tag of HTML, with the text behind it up to the next one.
struct Tag {
    std::string name; ///< small letters; with "/" in front where it ends an element
    std::map<std::string, std::string> attributes;
    std::string text; ///< entities read, blanks and line breaks as one blank
};
std::vector<Tag> ReadTags(const std::string& html);

/// The values of an attribute of all tags of a name.
std::vector<std::string> Values(const std::vector<Tag>& tags, const std::string& tag, const std::string& attribute);
/// What stands within all elements of a name, which must not hold others.
std::vector<std::string> Contents(const std::vector<Tag>& tags, const std::string& tag);
/// All that is shown.
std::string ShownText(const std::vector<Tag>& tags);
/// What is wrong with the nesting of the tags; empty when nothing is.
std::string NestingFault(const std::vector<Tag>& tags);

/// Names and pages of a table of contents or an index, in order.
using HelpEntries = std::vector<std::pair<std::string, std::string>>;
HelpEntries ReadEntries(const std::string& file);

} // namespace tamarind::tests
