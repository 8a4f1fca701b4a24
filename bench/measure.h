#pragma once

#include <chrono>

namespace tamarind::bench {

/// Prints the milliseconds since it was made, those of processor time, and the bytes of peak memory, for the script
/// that compares programs.
class Measure {
public:
    void Print() const;

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

} // namespace tamarind::bench
