// SPDX-License-Identifier: MIT
#include "shell/runtime_error.h"

#include <fmt/format.h>

namespace quavix {
namespace {

const char* ErrorText(RuntimeError::Code code) {
    switch (code) {
        case RuntimeError::Overflow:
            return "Overflow";
        case RuntimeError::SubscriptOutOfRange:
            return "Subscript out of range";
        case RuntimeError::DivisionByZero:
            return "Division by zero";
        case RuntimeError::TypeMismatch:
            return "Type mismatch";
        case RuntimeError::FileNotFound:
            return "File not found";
        case RuntimeError::DeviceIoError:
            return "Device I/O error";
        case RuntimeError::DiskFull:
            return "Disk full";
        case RuntimeError::BadRecordNumber:
            return "Bad record number";
        case RuntimeError::PermissionDenied:
            return "Permission denied";
        case RuntimeError::PathFileAccessError:
            return "Path/File access error";
        case RuntimeError::PathNotFound:
            return "Path not found";
        case RuntimeError::IndexOutOfBounds:
            return "Index out of bounds";
    }
    return "Application-defined or object-defined error";
}

std::string Message(RuntimeError::Code code, const std::string& detail) {
    return detail.empty() ? ErrorText(code) : fmt::format("{} ({})", ErrorText(code), detail);
}

}  // namespace

RuntimeError::RuntimeError(Code code, const std::string& detail)
    : std::runtime_error(Message(code, detail)), number_(code) {}

void RaiseFileError(std::error_code error, const std::string& fileName) {
    if (!error)
        return;
    auto code = RuntimeError::DeviceIoError;
    if (error == std::errc::no_such_file_or_directory)
        code = RuntimeError::FileNotFound;
    else if (error == std::errc::not_a_directory)
        code = RuntimeError::PathNotFound;
    else if (error == std::errc::no_space_on_device || error == std::errc::file_too_large)
        code = RuntimeError::DiskFull;
    else if (error == std::errc::permission_denied || error == std::errc::operation_not_permitted)
        code = RuntimeError::PermissionDenied;
    else if (error == std::errc::is_a_directory || error == std::errc::read_only_file_system)
        code = RuntimeError::PathFileAccessError;
    throw RuntimeError(code, fileName + ": " + error.message());
}

}  // namespace quavix
