#include "routes/scan_progress.h"

namespace tamarind::routes {

std::optional<std::chrono::seconds> TimeLeft(std::chrono::milliseconds elapsed, std::size_t done, std::size_t total) {
    if (done == 0 || done > total) return std::nullopt;
    const auto left =
        static_cast<double>(elapsed.count()) * static_cast<double>(total - done) / static_cast<double>(done);
    return std::chrono::ceil<std::chrono::seconds>(std::chrono::milliseconds(static_cast<std::int64_t>(left)));
}

bool ScanProgress::Show(const std::string& current) {
    constexpr std::chrono::milliseconds kInterval(100);
    const auto now = Clock::now();
    if (isCancelled_ || (isShown_ && now - lastShown_ < kInterval)) return !isCancelled_;
    const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(now - start_);
    isShown_ = true;
    lastShown_ = now;
    isCancelled_ = !ui_.ShowProgress({.title = title_,
                                      .current = current,
                                      .done = done_,
                                      .total = total_,
                                      .left = TimeLeft(elapsed, done_, total_)});
    return !isCancelled_;
}

void ScanProgress::End() {
    if (isShown_) ui_.EndProgress();
    isShown_ = false;
}

} // namespace tamarind::routes
