#include "routes/assets.h"

#include "platform/myfile.h"
#include "text/code_page.h"

namespace tamarind::routes {
namespace {

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!text::TakeCodePoint(bytes).valid) return false;
    }
    return true;
}

} // namespace

std::string AsUtf8(const std::string& text) {
    if (text::IsAscii(text) || !text::FitsCodePage(text)) return text;
    std::string bytes = text::ToCodePage(text);
    return IsUtf8(bytes) ? bytes : text;
}

const std::optional<std::string>& AssetFinder::Find(const std::string& fullName) {
    const auto known = found_.find(fullName);
    return known != found_.end() ? known->second : found_.emplace(fullName, Look(fullName)).first->second;
}

std::optional<std::string> AssetFinder::Look(const std::string& fullName) const {
    if (platform::FileExists(files_, fullName)) return fullName;
    // The game folder's own name was not read from a converted file.
    const std::size_t front = fullName.starts_with(gameFolder_) ? gameFolder_.size() : 0;
    const std::string name = fullName.substr(front);
    const std::string other = AsUtf8(name);
    if (other == name) return std::nullopt;
    const std::string otherName = gameFolder_.substr(0, front) + other;
    return platform::FileExists(files_, otherName) ? std::optional(otherName) : std::nullopt;
}

} // namespace tamarind::routes
