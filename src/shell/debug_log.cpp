// SPDX-License-Identifier: MIT
#include "shell/debug_log.h"

#include "ports/message_boxes.h"
#include "shell/file_access.h"
#include "shell/numbers.h"
#include "shell/program_info.h"
#include "shell/runtime_error.h"

namespace quavix {

DebugLog::DebugLog(Files& files, Clock& clock, std::string fileName)
    : files_(files), clock_(clock), fileName_(std::move(fileName)) {}

void DebugLog::LogText(std::string_view textToLog, NoNewLine noNewLine) {
    if (!enabled_)
        return;
    std::error_code error;
    if (noNewLine == NoNewLine::Yes) {
        const std::uint64_t length = files_.Length(fileName_, error);
        RaiseFileError(error, fileName_);
        if (length < 2)
            throw RuntimeError(RuntimeError::BadRecordNumber);
        error = files_.WriteAt(fileName_, length - 2, fmt::format("{} \r\n", textToLog));
    } else {
        const TimeOfDay now = clock_.LocalTime();
        const int width = ToInt16(logIndent_ * 4.0);
        error = files_.Append(fileName_, fmt::format("{}:{:02}:{:02} - {:{}}{}\r\n", now.Hour, now.Minute,
                                                     now.Second, "", width > 0 ? width : 0, textToLog));
    }
    RaiseFileError(error, fileName_);
}

void DebugLog::LogIndentInc(std::string_view textToLog) {
    if (!enabled_)
        return;
    logIndent_ = ToInt16(logIndent_ + 1.0);
    LogText(textToLog);
}

void DebugLog::LogIndentDec(std::string_view textToLog) {
    if (!enabled_)
        return;
    LogText(fmt::format("{}\r\n", textToLog));
    logIndent_ = ToInt16(logIndent_ - 1.0);
}

LogBlock::~LogBlock() noexcept(false) {
    if (!isOpen_)
        return;
    if (std::uncaught_exceptions() == errorsBefore_) {
        Close();
    } else if (closesOnError_) {
        try {
            Close();
        } catch (const RuntimeError&) {
            // The error that has left the block takes precedence over one of the log.
        }
    }
}

void LogBlock::Close() {
    if (log_.Enabled())
        Close(fmt::format("{} - END", name_));
}

void LogBlock::Close(std::string_view text) {
    isOpen_ = false;
    log_.LogIndentDec(text);
}

void LogBlock::Abandon() {
    isOpen_ = false;
    log_.SetLogIndent(indentBefore_);
}

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
