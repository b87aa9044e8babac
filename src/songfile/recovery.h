// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "music/song_changes.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/timers.h"
#include "shell/event_boundary.h"
#include "shell/watched.h"
#include "songfile/recovery_copies.h"
#include "songfile/song_document.h"

namespace quavix {

/// What recovery works with; all of it must outlive it.
struct RecoveryParts {
    const SongFields& Song;
    const EntryOptions& Entry;
    const ProgramState& State;
    const MusicList& List;
    SongChanges& Changes;
    SongDocument& Document;
    Files& Disk;
    Timers& Ticks;
    Clock& Time;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
    /// Whether a tone sounds that a moment's work would disturb.
    std::function<bool()> ToneSounds;
    /// Where the copies are kept; created when the first one is written.
    std::string Folder;
};

/// Keeps a copy of unsaved work apart from the song's own file, for the case that the program ends before its
/// user has ended it, and offers at the next start what was left behind.
///
/// A copy is written some seconds after a change, in one step, so that it is a whole song at any moment;
/// nothing is written while nothing changes. It is only written from a timer's tick, never while the music
/// plays, a tone sounds or a song is loaded: writing takes a moment, and the song's time goes before. Each
/// process has a copy of its own, which goes when the song is saved, or given up.
///
/// It must outlive every change of the song.
class Recovery {
  public:
    /// From a change to its copy.
    static constexpr std::int32_t DelayMs = 5000;
    /// Until the next attempt where this moment was not the right one.
    static constexpr std::int32_t RetryMs = 500;
    /// Until the next attempt where the copy couldn't be written.
    static constexpr std::int32_t RetryAfterErrorMs = 30'000;

    explicit Recovery(RecoveryParts parts);
    /// Leaves the copy behind, as a process that is killed does.
    ~Recovery();
    Recovery(const Recovery&) = delete;
    Recovery& operator=(const Recovery&) = delete;

    /// Offers the copies that were left behind, one after another; those of running processes aren't touched.
    /// Yes loads one, as a modified song under its own name; No deletes it; Cancel keeps it for the next
    /// start. A second one that is loaded puts the first aside for the next start. Where `songIsLoaded`, none
    /// is offered: they are told, and kept. Raises what loading or deleting raises; the copy is kept then.
    void OfferLeftovers(bool songIsLoaded);

    /// The user doesn't want unsaved changes to be kept when the program ends.
    void GiveUpUnsaved() { givenUp_ = true; }

    /// The program ends. No copy is left, except where the song has changes that nobody has given up, as when
    /// the system ends the session: then the copy is brought up to date and kept.
    void End();

    /// What keeps the copy from being written; empty while nothing does.
    const Watched<std::string>& Problem() const { return problem_; }

  private:
    void SongChanged();
    void Tick();
    bool HasUncopiedChanges() const;
    void Write();
    std::error_code WriteCopy();
    void DeleteCopy();
    void TickIn(std::int32_t ms);
    void StopTicking();
    void Offer(const std::string& copyName);
    void Load(RecoverySlot leftover, const std::string& fileName);
    void TellLeftovers(const std::vector<std::string>& copies);

    RecoveryParts p_;
    RecoverySlots slots_;
    /// This process's place while it has a copy, or is about to.
    std::optional<RecoverySlot> slot_;
    /// Count of changes that the copy holds.
    std::uint64_t copied_;
    Timers::Id timer_ = 0;
    bool hasRecovered_ = false;
    bool givenUp_ = false;
    bool ended_ = false;
    Watched<std::string> problem_;
};

}  // namespace quavix
