// SPDX-License-Identifier: MIT
#include "app/command_line.h"

#include <fmt/format.h>

#include "shell/program_info.h"

namespace quavix {

std::optional<std::string> AnswerToOption(const std::vector<std::string>& arguments) {
    if (arguments.empty())
        return std::nullopt;
    if (arguments.front() == "--version")
        return fmt::format("quavix {}\n", program::VersionText);
    if (arguments.front() == "--help" || arguments.front() == "-h")
        return "Usage: quavix [SONG]\n"
               "\n"
               "Compose simple two-voice music and hear it on the PC speaker.\n"
               "SONG is a song file (.QVX) to start with, or a MIDI file (.mid) to play.\n"
               "\n"
               "  --help     show this text and exit\n"
               "  --version  show the version and exit\n"
               "  --register CONTROL\n"
               "             register a control file (.ocx), as is done when it is first needed, and exit\n"
               "\n"
               "QUAVIX_SPEAKER chooses what the tones sound on: evdev[:PATH], soundcard, silent or "
               "wav:PATH.\n"
               "QUAVIX_SERIAL_PORT names the motor's serial port, where it isn't in its list.\n";
    return std::nullopt;
}

std::optional<std::string> ControlToRegister(const std::vector<std::string>& arguments) {
    if (arguments.size() == 2 && arguments.front() == "--register")
        return arguments.back();
    return std::nullopt;
}

std::string CommandText(const std::vector<std::string>& arguments) {
    return fmt::format("{}", fmt::join(arguments, " "));
}

std::string FileNameIn(const std::string& commandLine) {
    std::string name = commandLine;
    std::erase(name, '"');
    return name;
}

}  // namespace quavix
