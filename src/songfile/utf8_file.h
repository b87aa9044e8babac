// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ports/files.h"
#include "shell/debug_log.h"
#include "songfile/loading_view.h"

namespace quavix {

/// Returns true if the whole text is well-formed UTF-8 (shortest forms, no surrogates, at most U+10FFFF).
bool IsUtf8(std::string_view text);

/// Converts bytes that come in pieces into UTF-8: well-formed sequences stay, every other byte becomes the
/// character of its Latin-1 value. The division into pieces does not change the result.
class Utf8Repair {
  public:
    /// Appends to `text`, which must outlive the repair.
    explicit Utf8Repair(std::string& text) : text_(text) {}

    void Add(std::string_view bytes);
    /// Appends the bytes still held back, at the end of the text.
    void Finish();

  private:
    void Take(std::string_view bytes, bool isEnd);

    std::string& text_;
    std::string heldBack_;  // a possible start of a sequence, 3 bytes at most
};

/// Reads a whole file as UTF-8 text in pieces, and reports progress to the loading view between them.
class Utf8File {
  public:
    /// Share of a load's progress that reading takes: from 0 to this ratio.
    static constexpr double ProgressShare = 0.5;

    Utf8File(Files& files, LoadingView& view, DebugLog& log) : files_(files), view_(view), log_(log) {}

    /// Reads the open `file`, named `name`, up to its length at the time of opening. If that fails, or the
    /// text is not UTF-8, opens the file again and reads it byte by byte: each byte that is not part of UTF-8
    /// becomes the character of its Latin-1 value. If that fails too, raises the classic file error. Returns
    /// nothing if the user has stopped it.
    std::optional<std::string> Read(std::unique_ptr<FileReader> file, const std::string& name);

    /// Returns true if the text was read byte by byte, so that it may differ from the file.
    bool Repaired() const { return repaired_; }

  private:
    enum class Outcome { Done, Failed, Stopped };

    Outcome ReadPieces(FileReader& file, const std::function<void(std::string_view)>& take,
                       std::error_code& error);
    std::optional<std::string> ReadByteByByte(const std::string& name);

    Files& files_;
    LoadingView& view_;
    DebugLog& log_;
    bool repaired_ = false;
};

}  // namespace quavix
