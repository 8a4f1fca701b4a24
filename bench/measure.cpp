#include "measure.h"

#include <cstdio>
#include <sys/resource.h>

namespace tamarind::bench {

void Measure::Print() const {
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start_;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%.1f %lld\n", time.count(), static_cast<long long>(usage.ru_maxrss) * 1024);
}

} // namespace tamarind::bench
