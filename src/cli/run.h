#pragma once

#include "platform/platform.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace tamarind::cli {

/// Runs one command line and returns the exit status: 0 done, 1 refused or failed, 2 wrong usage, 3 ended by the answer
/// No or Cancel. `words` are the arguments without the program's name.
int Run(const std::vector<std::string>& words, const platform::Platform& platform, std::istream& input,
        std::ostream& output, std::ostream& messages);

} // namespace tamarind::cli
