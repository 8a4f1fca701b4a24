#pragma once

#include "support/faulty_files.h"

#include <functional>
#include <string>

namespace tamarind::tests {

/// One run of a command with one fault in it.
struct FaultRun {
    Fault fault;
    bool struck = false;              ///< false in the last run of a row, which the command completed
    std::vector<std::string> changes; ///< as FaultyFiles::Changes
    /// For messages of failed expectations.
    [[nodiscard]] std::string Name() const;
};

/// Runs a command again and again, with every kind of fault that a program survives, once and for ever, at change
/// 1, 2, 3 … until it completes. `attempt` prepares a fresh state, runs the command on a FaultyFiles made with the
/// given fault, fills in `struck` and `changes`, and checks what is left. Returns the number of faults that struck.
int TryEveryFault(const std::function<void(FaultRun&)>& attempt);

} // namespace tamarind::tests
