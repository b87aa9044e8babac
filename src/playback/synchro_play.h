// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "music/main_fields.h"
#include "ports/clock.h"
#include "ports/message_boxes.h"
#include "ports/timers.h"
#include "shell/currency.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of SynchroPlay. All must outlive it.
struct SynchroParts {
    const ModFields& Mods;
    ProgramState& State;
    Clock& Time;
    Timers& Ticks;
    Waiting& Wait;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    /// A tone is sounding at this moment.
    std::function<bool()> IsSounding;
    /// The main window's buttons.
    std::function<void()> PlayAll;
    std::function<void()> PlayFromLine;
    /// How late the sound library's tones come, in ms; not asked where there is no library.
    std::function<std::int32_t()> GetFMODBufferLength;
};

/// Starts playback at a time of day, so that several copies of the program start together. Times of day are
/// compared within one day only: a time that has passed today starts at once.
class SynchroPlay {
  public:
    explicit SynchroPlay(SynchroParts parts);
    SynchroPlay(const SynchroPlay&) = delete;
    SynchroPlay& operator=(const SynchroPlay&) = delete;

    // The window's controls.
    Setting txtHour{parameter::Hour};
    Setting txtMinute{parameter::Minute};
    Setting txtSecond{parameter::Second};
    Watched<bool> TimeBoxesEnabled{true};
    Watched<std::string> lblCurrentTime{"12:00:00"};
    Watched<bool> optStart{true};
    Watched<bool> optCurrent{false};
    Watched<bool> chkStartInDelay{false};
    /// Only where there is a sound library, whose delay can be asked for.
    Watched<bool> chkStartInDelayEnabled;
    Watched<std::string> btnWaitCaption{"Start waiting"};
    Watched<bool> btnWaitEnabled{true};
    Watched<std::string> lblWaiting{"Currently NOT waiting"};
    Watched<std::int32_t> lblWaitingBackColor{colour::Red};

    /// Starts waiting, and returns after the playback that ends it; or stops waiting. What is no time of day
    /// shows a message and changes nothing. While music plays, or for as long as playback that this has
    /// started goes on, it does nothing.
    void btnWait_Click();

    /// True from the click that starts the waiting until the wait button is clicked again.
    bool CurrentlyWaiting() const { return p_.State.StartIsAwaited; }
    /// False while a playback that this has started has to hand the wait button back at its end.
    bool ShouldBeNotWaiting() const { return shouldBeNotWaiting_; }
    /// Sets ShouldBeNotWaiting() and enables the wait button.
    void ReenableWaitButton();

  private:
    void UseSynchroCheck_Click(bool ticked);
    void SuggestTime();
    void ShowCurrentTime();
    void StartWaiting();
    bool MayWait() const;
    void StopWaiting();
    void EndHoldUp();
    void WaitAndPlay();
    bool WaitForTime(std::int32_t key);
    void Play();
    void EnableWaitButton();
    std::optional<TimeOfDay> WantedTime() const;
    Currency ReadSeconds();
    /// Waits one slice; false when the waiting that is numbered so is over.
    bool WaitSlice(std::int64_t waitNumber);

    SynchroParts p_;
    int running_ = 0;
    bool shouldBeNotWaiting_ = true;
    /// Each waiting has its number, so that one that was stopped doesn't take the next for its own.
    std::int64_t waitNumber_ = 0;
    Timers::Id startTimer_ = 0;
    Timers::Id currentUpdateTimer_ = 0;
};

}  // namespace quavix
