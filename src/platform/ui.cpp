#include "platform/ui.h"

#include <cstdint>
#include <fmt/format.h>

namespace tamarind::platform {

std::string ProgressText(const Progress& progress) {
    constexpr std::int64_t kMinute = 60;
    const std::string files = fmt::format("{} of {}", progress.done, progress.total);
    if (!progress.left) return files;
    const std::int64_t seconds = progress.left->count();
    return seconds < 2 * kMinute ? fmt::format("{}, about {} s left", files, seconds)
                                 : fmt::format("{}, about {} min left", files, (seconds + kMinute / 2) / kMinute);
}

} // namespace tamarind::platform
