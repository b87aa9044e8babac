// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/parameters.h"
#include "music/setting.h"
#include "shell/currency.h"
#include "shell/watched.h"

// The main window's fields by subject: the switches of the mods, the song's settings, and the values of the
// controls. There is one object of each, passed by reference. The window sets a value here when the user
// changes a control, and watches it for all other changes; a check box is true when ticked.
namespace quavix {

/// Settings of the sound of the song.
struct SongFields {
    Setting BPM{parameter::Bpm};
    Setting BeatsPerBar{parameter::TimeSig};
    Setting NoteSilenceRatio{parameter::NoteSilenceRatio};
    Setting AlternateTime{parameter::AlternateTime};

    // Notes to play.
    Watched<bool> ClickPlayNote1Check{true};
    Watched<bool> ClickPlayNote2Check{true};
    Watched<bool> PlayNote1Check{true};
    Watched<bool> PlayNote2Check{true};
};

/// Options for entering the next note.
struct EntryOptions {
    Setting KeyboardOctave{parameter::KeyboardOctave};
    Watched<std::int32_t> NoteLengthCombo{parameter::NoteLength.Default};
    Watched<bool> ModDottedCheck{false};
    Watched<bool> ModTripletCheck{false};
    Watched<bool> NoteClickPlayCheck{true};
    Watched<bool> NoteClickAddCheck{true};
    Watched<bool> AddNote1Option{true};
    Watched<bool> AddNote2Option{false};
    Watched<bool> NoteReplaceCheck{false};
    Watched<bool> NoteLengthReplaceCheck{false};
    /// AddNote1Option, AddNote2Option and NoteReplaceCheck are enabled with NoteClickAddCheck;
    /// NoteLengthReplaceCheck also needs NoteReplaceCheck.
    Watched<bool> NoteLengthReplaceCheckEnabled{false};
};

/// A mod's check box and its effect. A change of the value, from any source, switches the mod: its part of
/// the program watches the value.
struct Mod {
    Watched<bool> Ticked{false};
    Watched<bool> Enabled{true};
    /// True while the mod works; a ticked one may have found no device.
    bool InUse = false;
};

struct ModFields {
    // Enabled with the sound library.
    Mod UseFMOD{.Enabled = Watched<bool>(false)};
    Mod UseVoice{.Enabled = Watched<bool>(false)};

    Mod UseMIDIOut;
    Mod UseMIDIIn;
    Mod UseMIDIFile;
    Mod UsePorta;
    Mod UseMotor;
    Mod UseBeat;
    Mod UseCircuitBent;
    Mod UseSynchro;
};

/// Options of the outputs.
struct OutputOptions {
    Watched<bool> MuteTweebleCheck{false};
    bool MutePCSpeaker = false;
    bool DoNotShutUpFMOD = false;
    /// Octaves between the played notes and the motor's range.
    Watched<std::int32_t> MotorOct{parameter::MotorOct.Default};
    /// Volume of the voice in ten-thousandths.
    Watched<std::int32_t> VoiceVolSlider{parameter::VoiceVol.Default};
};

/// Activities of the whole program that exclude each other.
struct ProgramState {
    Watched<bool> MusicIsPlaying;
    /// True while the synchronized start waits for its time, or plays what it has started.
    Watched<bool> StartIsAwaited;
    /// True if that wait was requested during a tone, and begins at its end.
    bool StartIsHeldUp = false;
    bool ShuttingDown = false;
    /// Performance-counter counts per second, in the counter's own scale.
    Currency TickFreq;
};

/// The notes of the sounding line; empty texts for none. Alternating notes change too quickly to be shown one
/// by one.
struct SoundingNotes {
    std::string Note1{};
    std::string Note2{};

    friend bool operator==(const SoundingNotes&, const SoundingNotes&) = default;
};

/// State of the controls during playback.
struct PlaybackView {
    Watched<bool> PianoKeysEnabled{true};
    Watched<bool> PlayAllButtonEnabled{true};
    Watched<bool> PlayFromLineButtonEnabled{true};
    Watched<bool> StopPlayButtonEnabled{false};
    Watched<bool> BeepTextLabelVisible{false};
    Watched<SoundingNotes> NotesSounding;
};

struct MainFields {
    SongFields Song;
    EntryOptions Entry;
    ModFields Mods;
    OutputOptions Output;
    ProgramState State;
    PlaybackView View;
};

}  // namespace quavix
