#include "measure.h"

#include <cstdio>
#include <sys/resource.h>

namespace tamarind::bench {

namespace {

double Milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

} // namespace

void Measure::Print() const {
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start_;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const double processor = Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime);
    std::printf("%.1f %.1f %lld\n", time.count(), processor, static_cast<long long>(usage.ru_maxrss) * 1024);
}

} // namespace tamarind::bench
