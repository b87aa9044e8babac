// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quavix {

/// What `quavix --help` and `quavix --version` answer; nothing for any other first argument.
std::optional<std::string> AnswerToOption(const std::vector<std::string>& arguments);

/// The file that `quavix --register FILE` is asked to register; nothing for any other command line.
std::optional<std::string> ControlToRegister(const std::vector<std::string>& arguments);

/// The command line behind the program's name as one text: the arguments, joined by blanks.
std::string CommandText(const std::vector<std::string>& arguments);

/// The file name in a command line: all of it, without its double quotes.
std::string FileNameIn(const std::string& commandLine);

}  // namespace quavix
