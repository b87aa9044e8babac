// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "ports/clock.h"
#include "ports/files.h"

namespace quavix {

/// Whether a log line joins the end of the previous one instead of starting its own.
enum class NoNewLine : bool { No, Yes };

/// The debug log: an opt-in trace in a text file, one line per entry, nested by indentation. Off until
/// Enable(); while it is off every call returns at once. The file is opened and closed for each entry, so
/// that it is complete up to the last line even if the process dies. A file that can't be written raises the
/// classic file error in the caller.
class DebugLog {
  public:
    DebugLog(Files& files, Clock& clock, std::string fileName);

    void Enable() { enabled_ = true; }
    /// For a log that turns out not to be writable at the start.
    void Disable() { enabled_ = false; }
    bool Enabled() const { return enabled_; }

    /// Writes one entry: time of day, " - ", 4 blanks per level, the text, CR LF. With NoNewLine::Yes the
    /// text and one blank go onto the end of the previous line instead; a log without a line raises
    /// BadRecordNumber.
    void LogText(std::string_view textToLog, NoNewLine noNewLine = NoNewLine::No);

    /// Raises the depth by one, then writes the text at the new depth. Raises Overflow past 32767 levels, or
    /// where the indentation's width passes it.
    void LogIndentInc(std::string_view textToLog);

    /// Writes the text and an empty line at the current depth, then lowers the depth by one.
    void LogIndentDec(std::string_view textToLog);

    /// The same three with the text put together only while the log is on.
    template <typename... Args>
    void Text(fmt::format_string<Args...> format, Args&&... args) {
        if (enabled_)
            LogText(fmt::format(format, std::forward<Args>(args)...));
    }
    template <typename... Args>
    void IndentInc(fmt::format_string<Args...> format, Args&&... args) {
        if (enabled_)
            LogIndentInc(fmt::format(format, std::forward<Args>(args)...));
    }

    std::int16_t LogIndent() const { return logIndent_; }
    /// Goes back to a depth that LogIndent() has given, where a block ends without a closing line.
    void SetLogIndent(std::int16_t logIndent) { logIndent_ = logIndent; }

  private:
    Files& files_;
    Clock& clock_;
    std::string fileName_;
    bool enabled_ = false;
    std::int16_t logIndent_ = 0;
};

/// "TRUE" or "FALSE", as flags are written into the log.
constexpr const char* LogFlag(bool flag) {
    return flag ? "TRUE" : "FALSE";
}

}  // namespace quavix
