#include "platform/ui.h"

#include <cstdint>

namespace tamarind::platform {

std::string ProgressText(const Progress& progress) {
    constexpr std::int64_t kMinute = 60;
    const std::string files = std::to_string(progress.done) + " of " + std::to_string(progress.total);
    if (!progress.left) return files;
    const std::int64_t seconds = progress.left->count();
    return seconds < 2 * kMinute ? files + ", about " + std::to_string(seconds) + " s left"
                                 : files + ", about " + std::to_string((seconds + kMinute / 2) / kMinute) + " min left";
}

} // namespace tamarind::platform
