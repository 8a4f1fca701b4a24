#include "support/fault_runs.h"

#include <gtest/gtest.h>

namespace tamarind::tests {
namespace {

const char* KindName(FaultKind kind) {
    switch (kind) {
    case FaultKind::NoSpace: return "no space";
    case FaultKind::IoError: return "I/O error";
    case FaultKind::AccessDenied: return "access denied";
    case FaultKind::ShortWrite: return "short write";
    case FaultKind::Stop: return "stop";
    }
    return "";
}

constexpr int kFarTooMany = 10'000;

} // namespace

std::string FaultRun::Name() const {
    std::string name = std::string(KindName(fault.kind)) + (fault.forever ? " for ever" : "") + " from change " +
                       std::to_string(fault.at) + " on; changes:";
    for (const std::string& change : changes) {
        name += " " + change;
    }
    return name;
}

int TryEveryFault(const std::function<void(FaultRun&)>& attempt) {
    int struck = 0;
    for (const FaultKind kind :
         {FaultKind::NoSpace, FaultKind::IoError, FaultKind::AccessDenied, FaultKind::ShortWrite}) {
        for (const bool forever : {false, true}) {
            bool completed = false;
            for (int at = 1; !completed && at < kFarTooMany; ++at) {
                FaultRun run;
                run.fault = {at, kind, forever};
                attempt(run);
                completed = !run.struck;
                struck += run.struck ? 1 : 0;
            }
            EXPECT_TRUE(completed) << "the command never completed";
        }
    }
    return struck;
}

} // namespace tamarind::tests
