#include "authoring/name_rules.h"

#include "routes/folder_name.h"
#include "text/search.h"

#include <algorithm>
#include <array>

namespace tamarind::authoring {
namespace {

/// What some systems take for a device, whatever the ending: "con", "con.txt", "con .txt". "con brio" is none.
bool IsDevice(std::string_view name) {
    constexpr std::array<std::string_view, 6> kDevices = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    std::string_view base = name.substr(0, name.find('.'));
    base = base.substr(0, base.find_last_not_of(' ') + 1);
    const auto is = [base](std::string_view device) { return text::EqualNoCase(base, device); };
    if (std::any_of(kDevices.begin(), kDevices.end(), is)) return true;
    if (!text::StartsWithNoCase(base, "COM") && !text::StartsWithNoCase(base, "LPT")) return false;
    constexpr std::array<std::string_view, 3> kRaisedDigits = {"\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};
    const std::string_view port = base.substr(3);
    const bool isDigit = port.size() == 1 && port[0] >= '1' && port[0] <= '9';
    return isDigit || std::find(kRaisedDigits.begin(), kRaisedDigits.end(), port) != kRaisedDigits.end();
}

bool EndsInDotOrBlank(std::string_view name) { return name.ends_with('.') || name.ends_with(' '); }

std::string Quoted(std::string_view name) { return "\"" + std::string(name) + "\""; }

std::string CommonRefusal(std::string_view name, std::string_view whole) {
    if (name.empty()) return "Please enter a name.";
    if (IsDevice(whole)) return Quoted(name) + " is the name of a device in Windows. Please take another name.";
    if (!routes::IsFolderName(whole)) {
        return Quoted(name) + " cannot be used as a name: please leave out \\ / : * ? \" < > | and control characters.";
    }
    return {};
}

} // namespace

std::string FolderNameRefusal(std::string_view name) {
    if (!name.empty() && EndsInDotOrBlank(name)) {
        return Quoted(name) + " cannot be the name of a folder: it ends in a dot or a blank, which Windows drops.";
    }
    return CommonRefusal(name, name);
}

std::string FileNameRefusal(std::string_view name, std::string_view ending) {
    return CommonRefusal(name, std::string(name) + std::string(ending));
}

} // namespace tamarind::authoring
