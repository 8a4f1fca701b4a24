#pragma once

#include "platform/ui.h"

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

namespace tamarind::routes {

/// The time that the rest of a job takes when it goes on as until now; nothing before its first part is done.
[[nodiscard]] std::optional<std::chrono::seconds> TimeLeft(std::chrono::milliseconds elapsed, std::size_t done,
                                                           std::size_t total);

/// Shows how far a scan is, often enough for a person and no more often than that.
class ScanProgress {
public:
    ScanProgress(platform::UserInterface& ui, std::string title) : ui_(ui), title_(std::move(title)) {}
    ~ScanProgress() { End(); }
    ScanProgress(const ScanProgress&) = delete;
    ScanProgress& operator=(const ScanProgress&) = delete;

    void Expect(std::size_t files) { total_ += files; }
    /// One file more is done.
    void Count() { ++done_; }
    /// False from the moment on when the person asked to end the scan.
    bool Show(const std::string& current);
    void Cancel() { isCancelled_ = true; }
    /// Takes the display away, for a message to be shown; the next Show brings it back.
    void End();

    [[nodiscard]] bool IsCancelled() const { return isCancelled_; }
    [[nodiscard]] std::size_t Done() const { return done_; }
    [[nodiscard]] std::size_t Total() const { return total_; }

private:
    using Clock = std::chrono::steady_clock;

    platform::UserInterface& ui_;
    std::string title_;
    std::size_t done_ = 0;
    std::size_t total_ = 0;
    bool isCancelled_ = false;
    bool isShown_ = false;
    Clock::time_point start_ = Clock::now();
    Clock::time_point lastShown_;
};

} // namespace tamarind::routes
