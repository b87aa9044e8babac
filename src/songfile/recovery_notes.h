// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <system_error>

#include "ports/clock.h"
#include "ports/files.h"

namespace quavix {

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
