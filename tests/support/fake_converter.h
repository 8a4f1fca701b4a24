#pragma once

#include "platform/file_system.h"
#include "platform/processes.h"

#include <functional>
#include <string>
#include <string_view>

namespace tamarind::tests {

/// The bytes of a game file that the fake converter understands: "BIN:" and the XML as it is.
[[nodiscard]] inline std::string GameFile(std::string_view xml) { return "BIN:" + std::string(xml); }

/// Stands for the converter in FakeProcesses. It goes by the input alone; what begins neither with "BIN:" nor with "<"
/// gives no output where XML is asked for.
class FakeConverter {
public:
    explicit FakeConverter(platform::Files& files) : files_(files) {}

    bool isBroken = false;         ///< writes nothing
    std::function<void()> onStart; ///< called before it writes

    void operator()(const platform::ProcessStart& start);

private:
    platform::Files& files_;
};

} // namespace tamarind::tests
