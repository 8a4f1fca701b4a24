#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamarind::samples {

using Arguments = std::vector<std::string>;             ///< UTF-8
using Environment = std::map<std::string, std::string>; ///< added to this program's own; UTF-8

/// Where a program runs and where its streams go; empty is as this program's own.
struct Surroundings {
    std::filesystem::path folder = {};
    std::filesystem::path output = {}; ///< made anew
    std::filesystem::path errors = {}; ///< made anew
};

/// A program started by a test. One that still runs is ended with the object.
class ChildProgram {
public:
    ChildProgram(const std::filesystem::path& program, const Arguments& arguments, const Environment& environment,
                 const Surroundings& surroundings = {});
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// Its exit code, or nothing when it still runs after that time.
    std::optional<int> WaitFor(std::chrono::milliseconds time);
    void Stop();

private:
    struct System;
    std::unique_ptr<System> system_;
};

/// The folder that holds this test program and, beside it, the sample programs.
std::filesystem::path ProgramFolder();

} // namespace tamarind::samples
