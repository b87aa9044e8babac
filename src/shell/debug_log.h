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

/// Yes: a log line joins the end of the previous one instead of starting its own.
enum class NoNewLine : bool { No, Yes };

/// The debug log: an opt-in trace in a text file, one line per entry, nested by indentation. Off until
/// Enable(); while it is off, every call returns at once. The file is opened and closed for each entry, so
/// that it is complete even if the process dies. If the file can't be written, the call raises the classic
/// file error.
class DebugLog {
  public:
    DebugLog(Files& files, Clock& clock, std::string fileName);

    void Enable() { enabled_ = true; }
    /// Turns the log off if its file turns out to be unwritable at the start.
    void Disable() { enabled_ = false; }
    bool Enabled() const { return enabled_; }

    /// Writes one entry: time of day, " - ", 4 blanks per level, the text, CR LF. With NoNewLine::Yes,
    /// appends the text and one blank to the previous line; raises BadRecordNumber if the log has no line.
    void LogText(std::string_view textToLog, NoNewLine noNewLine = NoNewLine::No);

    /// Raises the depth by one, then writes the text. Raises Overflow if the depth or the indentation's width
    /// exceeds 32767.
    void LogIndentInc(std::string_view textToLog);

    /// Writes the text and an empty line at the current depth, then lowers the depth by one.
    void LogIndentDec(std::string_view textToLog);

    /// Same as the three above; the text is formatted only while the log is on.
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
    /// Restores a depth from LogIndent() when a block ends without a closing line.
    void SetLogIndent(std::int16_t logIndent) { logIndent_ = logIndent; }

  private:
    Files& files_;
    Clock& clock_;
    std::string fileName_;
    bool enabled_ = false;
    std::int16_t logIndent_ = 0;
};

/// A block of lines in the log: "NAME - START" one level deeper, and "NAME - END" at the end of its scope. If
/// an error leaves the scope, no closing line is written, unless CloseOnError() was called, and the event
/// boundary restores the depth. Both lines raise the errors of the log; the closing one only without another
/// error.
class LogBlock {
  public:
    /// `name` must be a literal.
    LogBlock(DebugLog& log, const char* name) : LogBlock(log, name, "{} - START", name) {}
    /// Same, with an opening line that says more than the name.
    template <typename... Args>
    LogBlock(DebugLog& log, const char* name, fmt::format_string<Args...> start, Args&&... args)
        : log_(log), name_(name), indentBefore_(log.LogIndent()) {
        log_.IndentInc(start, std::forward<Args>(args)...);
    }
    ~LogBlock() noexcept(false);
    LogBlock(const LogBlock&) = delete;
    LogBlock& operator=(const LogBlock&) = delete;

    /// Makes an error write the closing line too.
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

/// Turns the log on if the marker file "logenable" is in the program's folder, and tells the user about it.
/// Returns true if the log is on. Called first at start-up.
bool EnableDebugLogIfWanted(const std::string& programFolder, Files& files, MessageBoxes& boxes,
                            DebugLog& log);

/// Returns "TRUE" or "FALSE", the log's form of a flag.
constexpr const char* LogFlag(bool flag) {
    return flag ? "TRUE" : "FALSE";
}

}  // namespace quavix
