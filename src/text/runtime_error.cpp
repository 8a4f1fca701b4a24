#include "text/runtime_error.h"

#include <utility>

namespace tamarind::text {

std::string Description(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidProcedureCall: return "Invalid procedure call or argument";
    case ErrorNumber::Overflow: return "Overflow";
    case ErrorNumber::SubscriptOutOfRange: return "Subscript out of range";
    case ErrorNumber::TypeMismatch: return "Type mismatch";
    case ErrorNumber::FileNotFound: return "File not found";
    case ErrorNumber::DeviceIoError: return "Device I/O error";
    case ErrorNumber::FileAlreadyExists: return "File already exists";
    case ErrorNumber::DiskFull: return "Disk full";
    case ErrorNumber::InputPastEnd: return "Input past end of file";
    case ErrorNumber::PermissionDenied: return "Permission denied";
    case ErrorNumber::PathAccessError: return "Path/File access error";
    case ErrorNumber::PathNotFound: return "Path not found";
    case ErrorNumber::DuplicateKey: return "This key is already associated with an element of this collection";
    case ErrorNumber::UnsupportedValueType: return "Unsupported value type";
    }
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number, std::string details)
    : std::runtime_error(text::Description(number)), number_(number), details_(std::move(details)) {}

RuntimeError RuntimeError::With(const std::string& sentence) const {
    return RuntimeError(number_, details_.empty() ? sentence : details_ + "\r\n" + sentence);
}

} // namespace tamarind::text
