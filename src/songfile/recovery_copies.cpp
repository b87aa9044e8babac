// SPDX-License-Identifier: MIT
#include "songfile/recovery_copies.h"

#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "shell/file_access.h"

namespace quavix {
namespace {

constexpr std::string_view CopyEnding = ".QVX";

std::string LockNameOf(const std::string& copyName) {
    return copyName.substr(0, copyName.size() - CopyEnding.size()) + ".lock";
}

constexpr std::string_view FileNameKey = "//RecoveryFile ";
constexpr std::string_view WrittenKey = "//RecoveryTime ";

/// Escapes a file name, which may hold any bytes, even line ends, into printable ASCII.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c > ' ' && c <= '~' && c != '%')
            escaped += c;
        else
            escaped += fmt::format("%{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
    }
    return escaped;
}

int HexDigit(char c) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    const std::size_t digit = Digits.find(c);
    return digit == std::string_view::npos ? -1 : static_cast<int>(digit);
}

std::string Unescaped(std::string_view text) {
    constexpr int Base = 16;
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape =
            text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 && HexDigit(text[i + 2]) >= 0;
        if (!isEscape) {
            plain += text[i];
            continue;
        }
        plain += static_cast<char>(Base * HexDigit(text[i + 1]) + HexDigit(text[i + 2]));
        i += 2;
    }
    return plain;
}

/// Returns the unescaped rest of the last line that begins with the key.
std::string ValueOf(std::string_view text, std::string_view key) {
    const std::size_t line = text.rfind(key);
    if (line == std::string_view::npos || (line > 0 && text[line - 1] != '\n'))
        return {};
    const std::string_view value = text.substr(line + key.size());
    return Unescaped(value.substr(0, value.find_first_of("\r\n")));
}

/// Reads the end of a file: enough for the longest possible name with every byte escaped.
std::string EndOf(FileReader& file, std::error_code& error) {
    constexpr std::size_t Enough = std::size_t{64} * 1024;
    std::vector<char> buffer(Enough);
    std::string end;
    for (;;) {
        const std::size_t count = file.Read(buffer, error);
        if (error || count == 0)
            return end;
        end.append(buffer.data(), count);
        if (end.size() > Enough)
            end.erase(0, end.size() - Enough);
    }
}

}  // namespace

std::optional<RecoverySlot> RecoverySlots::TakeFree(std::error_code& error) {
    constexpr int Most = 999;
    error = files_.CreateFolder(folder_);
    for (int number = 1; number <= Most && !error; ++number) {
        const std::string copyName =
            FileInFolder(folder_, fmt::format("unsaved-{:03}{}", number, CopyEnding));
        // A left-over copy is not even locked for a moment, because another process may be about to offer it.
        if (files_.FindsNormalFile(copyName))
            continue;
        auto lock = files_.TryLock(LockNameOf(copyName), error);
        if (lock && !files_.FindsNormalFile(copyName))
            return RecoverySlot{copyName, std::move(lock)};
        if (error == std::errc::resource_unavailable_try_again)
            error.clear();
    }
    if (!error)
        error = std::make_error_code(std::errc::resource_unavailable_try_again);
    return std::nullopt;
}

std::vector<std::string> RecoverySlots::Copies() {
    return files_.NormalFiles(FileInFolder(folder_, fmt::format("unsaved-*{}", CopyEnding)));
}

std::optional<RecoverySlot> RecoverySlots::TakeLeftBehind(const std::string& copyName) {
    std::error_code error;
    auto lock = files_.TryLock(LockNameOf(copyName), error);
    if (!lock || !files_.FindsNormalFile(copyName))
        return std::nullopt;
    return RecoverySlot{copyName, std::move(lock)};
}

std::string RecoveryComments(const RecoveryNotes& notes) {
    return fmt::format("{}{}\r\n{}{}\r\n", FileNameKey, Escaped(notes.FileName), WrittenKey,
                       Escaped(notes.Written));
}

RecoveryNotes ReadRecoveryNotes(Files& files, const std::string& copy, std::error_code& error) {
    const auto file = files.OpenForInput(copy, error);
    if (!file)
        return {};
    const std::string end = EndOf(*file, error);
    return {ValueOf(end, FileNameKey), ValueOf(end, WrittenKey)};
}

std::string WrittenAt(const Date& date, const TimeOfDay& time) {
    return fmt::format("{:04}-{:02}-{:02} at {:02}:{:02}:{:02}", date.Year, date.Month, date.Day, time.Hour,
                       time.Minute, time.Second);
}

}  // namespace quavix
