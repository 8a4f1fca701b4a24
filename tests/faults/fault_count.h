#pragma once

namespace tamarind::tests {

/// How many faults have struck in all tests of this program so far.
int& FaultCount();

} // namespace tamarind::tests
