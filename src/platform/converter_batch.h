#pragma once

#include "platform/converter.h"

#include <cstddef>
#include <functional>
#include <string>

namespace tamarind::platform {

/// Many conversions to XML, several at a time.
struct ConverterBatch {
    struct Conversion {
        std::string binaryPath;
        std::string xmlPath;
    };

    std::size_t count = 0;
    std::size_t jobs = 1; ///< how many converters run at a time; at least 1

    /// What to convert as number `index`, from 0. No two conversions that share a lane are under way or wait to be
    /// taken at the same time, so working files never collide when each lane has its own. With one job there is lane 0
    /// alone.
    std::function<Conversion(std::size_t index, std::size_t lane)> prepare;
    /// Takes the result; called in the order of the numbers, whichever conversion ends first. As with a single
    /// conversion, whether it worked shows in the XML file alone.
    std::function<void(std::size_t index, const Conversion& conversion)> take;
    /// Asked at each look; false ends the batch.
    std::function<bool()> mayGoOn;
};

/// Runs a batch. Each converter is waited for as ShellWait does: a look every 50 ms after its own start, with pending
/// events processed. False when the batch was ended by `mayGoOn` or by the user interface's StopRequested; the running
/// converters are stopped then, and their results are not taken. Errors of `prepare` and `take` end it as well.
bool ConvertToXml(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                  const ConverterBatch& batch);

} // namespace tamarind::platform
