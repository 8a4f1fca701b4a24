#pragma once

#include "session/editor_context.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace tamarind::routes {

/// A text that was read as Windows-1252 although its bytes are UTF-8, as names in other scripts are, as what it is; any
/// other text as it stands.
[[nodiscard]] std::string AsUtf8(const std::string& text);

/// Looks for files below the game folder, for each name only once.
///
/// Names come from converted files, which are read as Windows-1252. Where a name taken so does not exist, but its bytes
/// are UTF-8, as the converter writes them for names in other scripts, it is looked for as that.
class AssetFinder {
public:
    AssetFinder(const platform::Files& files, std::string gameFolder)
        : files_(files), gameFolder_(std::move(gameFolder)) {}

    /// The full name under which the file exists; nothing when it does not.
    const std::optional<std::string>& Find(const std::string& fullName);

private:
    [[nodiscard]] std::optional<std::string> Look(const std::string& fullName) const;

    const platform::Files& files_;
    std::string gameFolder_;
    std::unordered_map<std::string, std::optional<std::string>> found_;
};

} // namespace tamarind::routes
