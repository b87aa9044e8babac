// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "shell/event_timer.h"
#include "shell/watched.h"
#include "songfile/recovery_copies.h"
#include "songfile/song_document.h"

namespace quavix {

/// Dependencies of Recovery. All must outlive it.
struct RecoveryParts {
    const SongFields& Song;
    const EntryOptions& Entry;
    const ProgramState& State;
    const MusicList& List;
    /// Count of the song's changes.
    const Watched<std::uint64_t>& Changes;
    SongDocument& Document;
    Files& Disk;
    Timers& Ticks;
    Clock& Time;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
    /// Returns true if a tone is sounding that a short pause of the program would disturb.
    std::function<bool()> ToneSounds;
    /// Folder of the copies; created with the first copy.
    std::string Folder;
};

/// Keeps a copy of unsaved work apart from the song's own file, in case the program ends unexpectedly, and
/// offers left-over copies at the next start.
///
/// A copy is written some seconds after a change, in one step, so that it is always a whole song; without
/// changes nothing is written. Writing takes a moment, so it happens only in a timer's tick, and never while
/// the music plays, a tone sounds or a song is loaded. Each process has its own copy, which is deleted when
/// the song is saved or given up. The destructor keeps it, as a killed process does.
///
/// Recovery must outlive every change of the song.
class Recovery {
  public:
    /// Delay from a change to its copy, in ms.
    static constexpr std::int32_t DelayMs = 5000;
    /// Delay until the next attempt if music or a tone was sounding, in ms.
    static constexpr std::int32_t RetryMs = 500;
    /// Delay until the next attempt if the copy could not be written, in ms.
    static constexpr std::int32_t RetryAfterErrorMs = 30'000;

    explicit Recovery(RecoveryParts parts);

    /// Offers the left-over copies one after another; skips those of running processes. Yes loads a copy as a
    /// modified song under its own name, No deletes it, Cancel keeps it for the next start. If a second one
    /// is loaded, the first is kept for the next start. If `songIsLoaded`, only tells the user about the
    /// copies, and keeps them. Raises the errors of loading and deleting; the copy is kept then.
    void OfferLeftovers(bool songIsLoaded);

    /// Records that the user gives up unsaved changes when the program ends.
    void GiveUpUnsaved() { givenUp_ = true; }

    /// Prepares for the end of the program. Deletes the copy, unless the song has unsaved changes that were
    /// not given up, as when the system ends the session: then the copy is updated and kept.
    void End();

    /// Returns the reason why the copy can't be written; empty if there is none.
    const Watched<std::string>& Problem() const { return problem_; }

  private:
    void SongChanged();
    void Tick();
    bool HasUncopiedChanges() const;
    void Write();
    std::error_code WriteCopy();
    void DeleteCopy();
    void Offer(const std::string& copyName);
    void Load(RecoverySlot leftover, const std::string& fileName);
    void TellLeftovers(const std::vector<std::string>& copies);

    RecoveryParts p_;
    RecoverySlots slots_;
    /// The place of this process's copy; empty until one is needed.
    std::optional<RecoverySlot> slot_;
    /// Count of changes at the time of the copy.
    std::uint64_t copied_;
    EventTimer timer_;
    bool hasRecovered_ = false;
    bool givenUp_ = false;
    bool ended_ = false;
    Watched<std::string> problem_;
};

}  // namespace quavix
