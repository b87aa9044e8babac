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

/// The place of one recovery copy: its file, and the lock of the process that owns it.
struct RecoverySlot {
    std::string CopyName;
    std::unique_ptr<FileLock> Lock;
};

/// The places for recovery copies in a folder. A copy whose lock is free has been left behind.
class RecoverySlots {
  public:
    RecoverySlots(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// Returns a place without a copy, locked for this process, or none with `error` set. Creates the folder
    /// if it is missing.
    std::optional<RecoverySlot> TakeFree(std::error_code& error);

    /// Returns the names of all processes' copies.
    std::vector<std::string> Copies();

    /// Takes the place of a left-over copy. Returns none if its process still runs, or another process has
    /// taken or deleted it.
    std::optional<RecoverySlot> TakeLeftBehind(const std::string& copyName);

  private:
    Files& files_;
    std::string folder_;
};

/// The notes in a recovery copy. They are comments behind the last line of the song, so that the copy is an
/// ordinary song file, replaced together with its notes in one step.
struct RecoveryNotes {
    /// File name of the song; empty if it has none.
    std::string FileName;
    /// Time of writing, in the user's form.
    std::string Written;
};

/// Returns the notes as comments; each line has its line end.
std::string RecoveryComments(const RecoveryNotes& notes);

/// Reads the comments of a copy; sets `error` if the copy can't be read. A file without comments gives empty
/// notes.
RecoveryNotes ReadRecoveryNotes(Files& files, const std::string& copy, std::error_code& error);

/// Returns a date and time in the user's form: "2024-02-29 at 08:05:00".
std::string WrittenAt(const Date& date, const TimeOfDay& time);

}  // namespace quavix
