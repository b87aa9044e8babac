// SPDX-License-Identifier: MIT
#include "shell/log_switch.h"

#include "shell/file_exists.h"
#include "shell/program_info.h"

namespace quavix {

bool EnableDebugLogIfWanted(const std::string& programFolder, Files& files, MessageBoxes& boxes,
                            DebugLog& log) {
    if (!FileExists(FileInFolder(programFolder, "logenable"), files, log))
        return false;
    log.Enable();
    boxes.Show({
        .Title = "Debug logging is enabled",
        .Text = fmt::format(
            "Because there is a file called 'logenable' in the same folder as this program, the program will "
            "make a log file which you can send to me ({}) in order to help me debug any problems.\r\n\r\n"
            "Program performance might be decreased due to the additional CPU power required.\r\n"
            "Navigating Explorer out of the program's folder can often help to speed things up.\r\n\r\n"
            "Any existing 'debuglog.txt' will be appended to.\r\n\r\n"
            "Please try to use playback as little as possible, because playback causes the log file to get "
            "very big very quickly.",
            program::ContactAddress),
        .Icon = BoxIcon::Information,
    });
    return true;
}

}  // namespace quavix
