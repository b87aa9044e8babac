// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "ports/clock.h"
#include "ports/files.h"

namespace quavix {

class MessageBoxes;

/// Yes: a text joins the end of the previous line of the log instead of starting its own.
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

/// A block of lines in the log: "NAME - START" one level deeper, and "NAME - END" at the end of its scope. An
/// error that leaves the scope writes no closing line, unless CloseOnError() was called; the depth is put
/// right by the event boundary. Both lines raise the errors of the log, the closing one only where there is
/// no other error.
class LogBlock {
  public:
    /// `name` is a literal.
    LogBlock(DebugLog& log, const char* name) : LogBlock(log, name, "{} - START", name) {}
    /// The same with an opening line that tells more than the name.
    template <typename... Args>
    LogBlock(DebugLog& log, const char* name, fmt::format_string<Args...> start, Args&&... args)
        : log_(log), name_(name), indentBefore_(log.LogIndent()) {
        log_.IndentInc(start, std::forward<Args>(args)...);
    }
    ~LogBlock() noexcept(false);
    LogBlock(const LogBlock&) = delete;
    LogBlock& operator=(const LogBlock&) = delete;

    /// Writes the closing line after an error too.
    void CloseOnError() { closesOnError_ = true; }
    /// Closes the block now, with another line than "NAME - END".
    void Close(std::string_view text);
    /// Ends the block now, without a closing line.
    void Abandon();

  private:
    void Close();

    DebugLog& log_;
    const char* name_;
    std::int16_t indentBefore_;
    int errorsBefore_ = std::uncaught_exceptions();
    bool isOpen_ = true;
    bool closesOnError_ = false;
};

/// Turns the log on when the marker file "logenable" lies in the program's folder, and tells the user what
/// that means. Returns true if it is on now. The first thing at start-up.
bool EnableDebugLogIfWanted(const std::string& programFolder, Files& files, MessageBoxes& boxes,
                            DebugLog& log);

/// "TRUE" or "FALSE", as flags are written into the log.
constexpr const char* LogFlag(bool flag) {
    return flag ? "TRUE" : "FALSE";
}

}  // namespace quavix
