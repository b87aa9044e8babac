// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "ports/clock.h"
#include "ports/files.h"

namespace quavix {

/// The place of one recovery copy: its file, and the lock of the process it belongs to.
struct RecoverySlot {
    std::string CopyName;
    std::unique_ptr<FileLock> Lock;
};

/// The places for recovery copies in a folder. A copy whose lock nobody holds has been left behind.
class RecoverySlots {
  public:
    RecoverySlots(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// A place without a copy, locked for this process; creates the folder where it is missing. None with
    /// `error` set.
    std::optional<RecoverySlot> TakeFree(std::error_code& error);

    /// The copies of all processes.
    std::vector<std::string> Copies();

    /// Takes the place of a copy that was left behind; none where its process still runs, or somebody else
    /// has taken it or done away with it.
    std::optional<RecoverySlot> TakeLeftBehind(const std::string& copyName);

  private:
    Files& files_;
    std::string folder_;
};

/// What a recovery copy says about itself. It stands in comments behind the last line of the song, so that
/// the copy is a song file like any other, replaced in one step with all that belongs to it.
struct RecoveryNotes {
    /// The file that the song belongs to; empty where it has none.
    std::string FileName;
    /// When the copy was written, as the user reads it.
    std::string Written;
};

/// The comments, each line ended.
std::string RecoveryComments(const RecoveryNotes& notes);

/// Reads the comments of a copy; `error` is set when the copy can't be read. A file without comments gives
/// empty notes.
RecoveryNotes ReadRecoveryNotes(Files& files, const std::string& copy, std::error_code& error);

/// A day and a time as the user reads them: "2024-02-29 at 08:05:00".
std::string WrittenAt(const Date& date, const TimeOfDay& time);

}  // namespace quavix
