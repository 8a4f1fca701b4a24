#include "routes/assets.h"

#include "platform/myfile.h"
#include "text/code_page.h"

#include <algorithm>

namespace tamarind::routes {
namespace {

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        if (!text::TakeCodePoint(bytes).valid) return false;
    }
    return true;
}

} // namespace

const std::optional<std::string>& AssetFinder::Find(const std::string& fullName) {
    const auto known = found_.find(fullName);
    return known != found_.end() ? known->second : found_.emplace(fullName, Look(fullName)).first->second;
}

std::optional<std::string> AssetFinder::Look(const std::string& fullName) const {
    if (platform::FileExists(files_, fullName)) return fullName;
    // The game folder's own name was not read from a converted file.
    const std::size_t front = fullName.starts_with(gameFolder_) ? gameFolder_.size() : 0;
    const std::string name = fullName.substr(front);
    if (IsAscii(name) || !text::FitsCodePage(name)) return std::nullopt;
    const std::string bytes = text::ToCodePage(name);
    const std::string other = gameFolder_.substr(0, front) + bytes;
    return IsUtf8(bytes) && platform::FileExists(files_, other) ? std::optional(other) : std::nullopt;
}

} // namespace tamarind::routes
