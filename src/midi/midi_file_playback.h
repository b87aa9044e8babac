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

/// Plays a MIDI file: its notes are held and released at their times, and the cycler pulses those that are
/// held. Switched on and off by UseMIDIFileCheck; while it is on, MIDI input can't be.
class MidiFilePlayback final : public UsingForm {
  public:
    explicit MidiFilePlayback(const MidiFileParts& parts);

    // The window's controls.
    Watched<bool> MIDIFileFormVisible{false};
    Watched<std::string> txtFile;
    Watched<bool> cmdBrowseEnabled{true};
    /// There is something to play.
    Watched<bool> frmPlaybackEnabled{false};
    Watched<bool> chkLoop{false};
    Watched<std::string> lblPosPercent{"100.00%"};
    Watched<std::string> lblPosSecs{"00:00.00"};
    /// Place of the slider: 0 to SliderHighest. When the user moves it, sldPosition_Change() is called.
    Watched<std::int32_t> sldPosition{0};
    static constexpr std::int32_t SliderHighest = 1000;
    Watched<bool> frmInfoTextVisible{false};
    Watched<std::string> lblInfoText;

    /// Asks for a file and opens it.
    void cmdBrowse_Click();
    /// Goes on where playback was stopped; from the beginning at the end. Nothing without a file.
    void cmdPlay_Click();
    /// Also ends an opening.
    void cmdStop_Click();
    void cmdRewind_Click();
    /// The user has moved the slider: playback stops, at that place.
    void sldPosition_Change(std::int32_t position);

    /// Switches the mod on, where it isn't, and MIDI input off, which it excludes, and opens a file.
    void UseFile(const std::string& fileName);

    /// Opens a file in the place of the one that is open, and stops at its beginning. False where it can't be
    /// played, which a message tells, or where the opening was stopped: all stays as it was. Too many events
    /// raise SubscriptOutOfRange.
    bool Open(const std::string& fileName);

    bool IsPlaying() const { return playing_; }
    /// Of the file that is open, in milliseconds.
    double Length() const { return events_.empty() ? 0 : events_.back().AbsoluteMs; }

    /// Playback has come to its end; told before it starts again.
    std::function<void()> OnEnd;

  private:
    void UseMIDIFileCheck_Click(bool ticked);
    void SwitchOn();
    void SwitchOff();
    void Form_Load();
    void EndPlaying();
    /// Silences what sounds. Handlers may run; false where one of them was another command.
    bool FadeOut();
    void tmrPlayback_Timer();
    /// True when playback was at its end.
    bool EndCheck();
    void MoveTo(std::size_t position);
    void ShowPosition();
    void ShowPositionTexts();
    void ShowSeconds(double ms);
    bool ShowInfoText(const std::string& text);
    double ClockMs() const;
    std::int64_t WholeClockMs() const;

    MidiFileParts p_;
    CycleTimer cTmr_;
    bool isLoaded_ = false;
    bool isOpening_ = false;
    bool stopOpening_ = false;
    double nextEventsRunMs_ = 0;
    std::vector<TimedMidiEvent> events_;
    /// Of the event to be played next.
    std::size_t playPosition_ = 0;
    /// On the clock, where the file's time 0 lies, in milliseconds.
    std::int64_t startTime_ = 0;
    bool playing_ = false;
    /// How many commands there have been, so that what waits for a tone sees that it is overtaken.
    std::int64_t commands_ = 0;
};

}  // namespace quavix
