// SPDX-License-Identifier: MIT
#include "shell/debug_log.h"

#include "shell/numbers.h"
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

}  // namespace quavix
