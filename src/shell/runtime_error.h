// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <system_error>

namespace quavix {

/// A run-time error with its classic number and text. It ends its handler; the boundary of that handler logs
/// and shows it, and the program carries on.
class RuntimeError : public std::runtime_error {
  public:
    enum Code : std::int32_t {
        Overflow = 6,
        SubscriptOutOfRange = 9,
        DivisionByZero = 11,
        TypeMismatch = 13,
        FileNotFound = 53,
        DeviceIoError = 57,
        DiskFull = 61,
        BadRecordNumber = 63,
        PermissionDenied = 70,
        PathFileAccessError = 75,
        PathNotFound = 76,
        IndexOutOfBounds = 35600,
    };

    /// `detail`, unless empty, follows the error's own text in brackets.
    explicit RuntimeError(Code code, const std::string& detail = {});

    std::int32_t Number() const noexcept { return number_; }

  private:
    std::int32_t number_;
};

/// Raises the classic error for a file operation's system error; does nothing without one.
void RaiseFileError(std::error_code error, const std::string& fileName);

}  // namespace quavix
