// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "fmod/fmod_tone_generator.h"
#include "midi/control_installer.h"
#include "midi/cycle_timer.h"
#include "midi/held_note_cycler.h"
#include "midi/midi_event_list.h"
#include "midi/using_form.h"
#include "music/main_fields.h"
#include "ports/clock.h"
#include "ports/file_picker.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/midi_file_reader.h"
#include "ports/timers.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of MidiFilePlayback. All must outlive it.
struct MidiFileParts {
    const SongFields& Song;
    ModFields& Mods;
    const ProgramState& State;
    Clock& Time;
    Timers& Ticks;
    Waiting& Wait;
    Files& Disk;
    FilePicker& Picker;
    MessageBoxes& Boxes;
    MidiFileReader& Reader;
    ControlInstaller& Controls;
    HeldNoteCycler& Cycler;
    FmodToneGenerator& Generator;
    EventBoundary& Handlers;
    DebugLog& Log;
};

/// Plays a MIDI file: its notes are held and released at their times, and the cycler pulses the held ones.
/// Switched by UseMIDIFileCheck; while it is on, MIDI input is disabled.
class MidiFilePlayback final : public UsingForm {
  public:
    explicit MidiFilePlayback(const MidiFileParts& parts);

    // The window's controls.
    Watched<bool> MIDIFileFormVisible{false};
    Watched<std::string> txtFile;
    Watched<bool> cmdBrowseEnabled{true};
    /// True if a file with events is open.
    Watched<bool> frmPlaybackEnabled{false};
    Watched<bool> chkLoop{false};
    Watched<std::string> lblPosPercent{"100.00%"};
    Watched<std::string> lblPosSecs{"00:00.00"};
    /// Position of the slider: 0 to SliderHighest. The user's changes arrive in sldPosition_Change().
    Watched<std::int32_t> sldPosition{0};
    static constexpr std::int32_t SliderHighest = 1000;
    Watched<bool> frmInfoTextVisible{false};
    Watched<std::string> lblInfoText;

    /// Asks for a file and opens it.
    void cmdBrowse_Click();
    /// Continues where playback was stopped; at the end, starts again. Does nothing without a file.
    void cmdPlay_Click();
    /// Stops playback, or opening a file.
    void cmdStop_Click();
    void cmdRewind_Click();
    /// Handles a move of the slider by the user: playback stops at that place.
    void sldPosition_Change(std::int32_t position);

    /// Switches the mod on if necessary, MIDI input off, and opens a file.
    void UseFile(const std::string& fileName);

    /// Replaces the open file, and stops at its beginning. Returns false, with nothing changed, if the file
    /// can't be played, which a message shows, or if opening was stopped. Too many events raise
    /// SubscriptOutOfRange.
    bool Open(const std::string& fileName);

    bool IsPlaying() const { return playing_; }
    /// Returns the length of the open file in milliseconds.
    double Length() const { return events_.empty() ? 0 : events_.back().AbsoluteMs; }

    /// Called when playback has reached its end, before it may repeat.
    std::function<void()> OnEnd;

  private:
    void UseMIDIFileCheck_Click(bool ticked);
    void SwitchOn();
    void SwitchOff();
    void Form_Load();
    void EndPlaying();
    /// Stops playback and the tone. Handlers may run; returns false if one of them was another command.
    bool FadeOut();
    void tmrPlayback_Timer();
    /// Returns true if playback has reached its end.
    bool EndCheck();
    void MoveTo(std::size_t position);
    double PlayedShare() const;
    void ShowPosition();
    void ShowPositionTexts();
    bool ShowInfoText(const std::string& text);
    double ClockMs() const;

    MidiFileParts p_;
    CycleTimer cTmr_;
    bool isLoaded_ = false;
    bool isOpening_ = false;
    bool stopOpening_ = false;
    double nextEventsRunMs_ = 0;
    std::vector<TimedMidiEvent> events_;
    /// Index of the next event to be played.
    std::size_t playPosition_ = 0;
    /// Clock time in milliseconds of the file's time 0.
    std::int64_t startTime_ = 0;
    bool playing_ = false;
    /// Number of commands so far; a command that waits for a tone sees by it that a later one came.
    std::int64_t commands_ = 0;
};

}  // namespace quavix
