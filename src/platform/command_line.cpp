#include "platform/command_line.h"

#include <algorithm>

namespace tamarind::platform {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kNone = std::string_view::npos;

bool IsBlank(char c) { return kBlanks.find(c) != kNone; }

/// Reads one argument off the front of a text that begins with none of the blanks.
class ArgumentReader {
public:
    explicit ArgumentReader(std::string_view& text) : text_(text) {}

    CommandArgument Read() {
        while (!text_.empty() && (inside_ || !IsBlank(text_.front()))) {
            if (text_.front() == '\\') {
                ReadBackslashes();
            } else if (text_.front() == '"') {
                ReadQuote();
            } else {
                Take(1);
            }
        }
        if (inside_) { // the closing quote is missing
            EndPart();
        }
        return argument_;
    }

private:
    void Take(std::size_t count) {
        argument_.text += text_.substr(0, count);
        text_.remove_prefix(count);
    }

    void ReadBackslashes() {
        const std::size_t count = std::min(text_.find_first_not_of('\\'), text_.size());
        if (count == text_.size() || text_[count] != '"') {
            Take(count);
            return;
        }
        Take(count / 2);
        text_.remove_prefix(count - count / 2);
        if (count % 2 == 1) {
            Take(1);
        } else {
            ReadQuote();
        }
    }

    void ReadQuote() {
        text_.remove_prefix(1);
        if (!inside_) {
            inside_ = true;
            partBegin_ = argument_.text.size();
        } else if (text_.starts_with('"')) {
            Take(1);
        } else {
            inside_ = false;
            EndPart();
        }
    }

    void EndPart() { argument_.quoted.push_back({partBegin_, argument_.text.size() - partBegin_}); }

    std::string_view& text_;
    CommandArgument argument_;
    bool inside_ = false;
    std::size_t partBegin_ = 0;
};

} // namespace

std::vector<ProgramCandidate> ProgramCandidates(std::string_view commandLine) {
    const std::size_t begin = std::min(commandLine.find_first_not_of(kBlanks), commandLine.size());
    std::vector<ProgramCandidate> candidates;
    if (begin == commandLine.size()) {
        return candidates;
    }
    if (commandLine[begin] == '"') {
        const std::size_t close = std::min(commandLine.find('"', begin + 1), commandLine.size());
        candidates.push_back(
            {std::string(commandLine.substr(begin + 1, close - begin - 1)), std::min(close + 1, commandLine.size())});
        return candidates;
    }
    const std::size_t limit = std::min(commandLine.find('"', begin), commandLine.size());
    for (std::size_t at = begin; at < limit;) {
        const std::size_t end = std::min(commandLine.find_first_of(kBlanks, at), limit);
        if (end > at) {
            candidates.push_back({std::string(commandLine.substr(begin, end - begin)), end});
        }
        at = end + 1;
    }
    return candidates;
}

std::vector<CommandArgument> ParseArguments(std::string_view text) {
    std::vector<CommandArgument> arguments;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
        if (text.empty()) {
            return arguments;
        }
        arguments.push_back(ArgumentReader(text).Read());
    }
}

std::string TranslatePaths(const CommandArgument& argument,
                           const std::function<std::string(const std::string&)>& translate) {
    std::string result;
    std::size_t done = 0;
    for (const CommandArgument::Part& part : argument.quoted) {
        const std::string inside = argument.text.substr(part.begin, part.length);
        result += argument.text.substr(done, part.begin - done);
        result += inside.starts_with('\\') ? translate(inside) : inside;
        done = part.begin + part.length;
    }
    return result + argument.text.substr(done);
}

} // namespace tamarind::platform
