#pragma once

#include <stdexcept>
#include <string>

namespace tamarind::text {

/// Numbers of the run-time errors that the program raises or shows. Each has one fixed description.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathAccessError = 75,
    PathNotFound = 76,
    DuplicateKey = 457,
    UnsupportedValueType = 1001,
};

/// The fixed description of an error number, for example "File not found" for 53.
[[nodiscard]] std::string Description(ErrorNumber number);

/// A failure that helpers throw: a number with its description, and in `Details` plain words for the user (which
/// file it was about, what state it was left in), possibly empty.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(ErrorNumber number, std::string details = {});

    [[nodiscard]] int Number() const { return static_cast<int>(number_); }
    [[nodiscard]] ErrorNumber Code() const { return number_; }
    /// The fixed description; `what()` is the same text.
    [[nodiscard]] std::string Description() const { return what(); }
    [[nodiscard]] const std::string& Details() const { return details_; }

    /// The same error with one more line (after CR LF) in its details.
    [[nodiscard]] RuntimeError With(const std::string& sentence) const;

private:
    ErrorNumber number_;
    std::string details_;
};

} // namespace tamarind::text
