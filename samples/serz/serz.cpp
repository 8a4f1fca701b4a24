// A stand-in for the converter that comes with the game: turns the sample's binary files into XML and back. Which way
// is decided by what the input holds, not by the switch.

#include "serz/binary_format.h"
#include "serz/xml_check.h"
#include "system/program.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace tamarind::samples {
namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

int Fail(const std::string& reason, int exitCode = kFailed) {
    std::cerr << "serz: " << reason << '\n';
    return exitCode;
}

/// The path in a switch such as "xml:OUT" or "/bin:OUT"; nothing when it is no such switch.
std::optional<fs::path> OutputOf(const fs::path& argument) {
    std::u8string text = argument.u8string();
    if (text.starts_with(u8'/')) {
        text.erase(0, 1);
    }
    const bool isSwitch = text.starts_with(u8"xml:") || text.starts_with(u8"bin:");
    if (!isSwitch || text.size() == 4) {
        return std::nullopt;
    }
    return fs::path(text.substr(4));
}

std::optional<std::string> ReadWhole(const fs::path& path) {
    if (!fs::is_regular_file(path)) {
        return std::nullopt;
    }
    std::ifstream file(path, std::ios::binary);
    std::string bytes(fs::file_size(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file ? std::optional(std::move(bytes)) : std::nullopt;
}

bool WriteWhole(const fs::path& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file) {
        return false;
    }
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::error_code ignored;
        fs::remove(path, ignored);
        return false;
    }
    return true;
}

std::optional<std::string> Convert(const std::string& input) {
    if (IsBinary(input)) {
        return DecodeBinary(input);
    }
    return IsBalancedXml(input) ? std::optional(EncodeBinary(input)) : std::nullopt;
}

/// For tests: TAMARIND_SERZ_LOG names a file that gets one line a run, the arguments separated by tabs.
void LogArguments(const std::vector<fs::path>& arguments) {
    const std::optional<fs::path> log = EnvironmentValue("TAMARIND_SERZ_LOG");
    if (!log) {
        return;
    }
    std::string line;
    for (const fs::path& argument : arguments) {
        if (!line.empty()) {
            line += '\t';
        }
        line += Utf8(argument);
    }
    std::ofstream(Reachable(*log), std::ios::binary | std::ios::app) << line << '\n';
}

bool IsAsked(const std::string& variable) {
    const std::optional<fs::path> value = EnvironmentValue(variable);
    return value && *value != "0";
}

/// For tests: TAMARIND_SERZ_DELAY_MS waits so long, TAMARIND_SERZ_HANG for ever.
void WaitAsAsked() {
    if (const std::optional<fs::path> delay = EnvironmentValue("TAMARIND_SERZ_DELAY_MS")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::stol(delay->string())));
    }
    while (IsAsked("TAMARIND_SERZ_HANG")) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

} // namespace

int RunProgram(const std::vector<fs::path>& arguments) {
    LogArguments(arguments);
    const std::optional<fs::path> output = arguments.size() == 2 ? OutputOf(arguments[1]) : std::nullopt;
    if (!output) {
        return Fail("usage: serz.exe INPUT xml:OUTPUT | bin:OUTPUT | /xml:OUTPUT | /bin:OUTPUT", kWrongUsage);
    }
    WaitAsAsked();
    if (IsAsked("TAMARIND_SERZ_FAIL")) {
        return Fail("told to fail");
    }
    const std::optional<std::string> input = ReadWhole(Reachable(arguments[0]));
    if (!input) {
        return Fail("cannot read " + Utf8(arguments[0]));
    }
    std::optional<std::string> result = Convert(*input);
    if (!result) {
        return Fail("neither a whole binary file nor XML: " + Utf8(arguments[0]));
    }
    if (IsAsked("TAMARIND_SERZ_PARTIAL")) {
        result->resize(result->size() / 2);
    }
    if (!WriteWhole(Reachable(*output), *result)) {
        return Fail("cannot write " + Utf8(*output));
    }
    return kDone;
}

} // namespace tamarind::samples
