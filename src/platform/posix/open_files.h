#pragma once

#include "platform/file_system.h"

#include <string>

namespace tamarind::platform {

/// Owns an open file descriptor; -1 is none.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
    Descriptor& operator=(Descriptor&&) = delete;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    int Release();

private:
    int number_;
};

/// open() that goes on after a signal; the descriptor is closed in programs started later.
[[nodiscard]] Descriptor OpenDescriptor(const std::string& native, int flags, unsigned mode = 0);

/// Opens a file for reading; `path` names it in error details.
[[nodiscard]] std::unique_ptr<InputFile> OpenInput(const std::string& native, const std::string& path);
[[nodiscard]] std::unique_ptr<OutputFile> OpenOutput(const std::string& native, const std::string& path,
                                                     CreateMode mode);

} // namespace tamarind::platform
