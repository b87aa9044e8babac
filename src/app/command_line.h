// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quavix {

/// Returns the answer to `quavix --help` and `quavix --version`; nothing for any other first argument.
std::optional<std::string> AnswerToOption(const std::vector<std::string>& arguments);

/// Returns the FILE of `quavix --register FILE`; nothing for any other command line.
std::optional<std::string> ControlToRegister(const std::vector<std::string>& arguments);

/// Returns the arguments after the program's name, joined by blanks.
std::string CommandText(const std::vector<std::string>& arguments);

/// Returns the file name in a command line: all of it, without its double quotes.
std::string FileNameIn(const std::string& commandLine);

}  // namespace quavix
