// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "ports/files.h"
#include "shell/debug_log.h"
#include "songfile/loading_view.h"

namespace quavix {

/// Reads a whole file as UTF-8 text, in pieces, with a word to the loading view between them.
class Utf8File {
  public:
    /// Reading takes the first part of a load's progress, up to this ratio.
    static constexpr double ProgressShare = 0.5;

    Utf8File(Files& files, LoadingView& view, DebugLog& log) : files_(files), view_(view), log_(log) {}

    /// Reads the file open in `file`, named `name`, as far as its length at the time of opening. Where that
    /// fails or gives anything but UTF-8, the file is opened once more and read byte by byte: whatever is no
    /// UTF-8 becomes the character of its Latin-1 value. Where that fails too, raises the classic file error.
    /// Nothing is returned when the user has stopped it.
    std::optional<std::string> Read(std::unique_ptr<FileReader> file, const std::string& name);

    /// Whether the text had to be read byte by byte, so that it may differ from what the file says.
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
