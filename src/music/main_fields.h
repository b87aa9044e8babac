// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "music/parameters.h"
#include "music/setting.h"
#include "shell/currency.h"
#include "shell/watched.h"

namespace quavix {

/// The notes of the line that is sounding; empty texts for none. Two notes sound in turn, too quickly to be
/// shown one by one.
struct SoundingNotes {
    std::string Note1{};
    std::string Note2{};

    friend bool operator==(const SoundingNotes&, const SoundingNotes&) = default;
};

/// The main window's fields: the switches of the mods, the song's settings, and what its controls hold. There
/// is one, passed by reference to those who need it. The window sets a control's value here when the user
/// changes it, and watches it for everybody else's changes; a check box is true when ticked.
struct MainFields {
    // Switches of the mods and options.
    bool UseMotor = false;
    bool UseFMOD = false;
    bool UsePortamento = false;
    bool MutePCSpeaker = false;
    bool UseMIDIOut = false;
    /// A device was asked to open; also where it did not.
    bool MIDIOutIsOpen = false;
    bool MIDIInIsOpen = false;
    bool UseMIDIFile = false;
    bool DoNotShutUpFMOD = false;
    bool UseNoUpdate = false;
    bool UseBeat = false;
    bool BeatEvenOnly = false;
    bool UseCircuitBent = false;
    bool UseWriteCode = false;
    Watched<bool> MusicIsPlaying;
    /// The synchronized start waits for its time, or plays what it has started.
    Watched<bool> StartIsAwaited;
    /// That wait was asked for in the middle of a tone, and begins at its end.
    bool StartIsHeldUp = false;
    bool ShuttingDown = false;
    /// Octaves between the played notes and the motor's range.
    Watched<std::int32_t> MotorOct{parameter::MotorOct.Default};

    /// Performance-counter counts per second, in the counter's own scale.
    Currency TickFreq;

    // Settings of the song.
    Setting KeyboardOctave{parameter::KeyboardOctave};
    Setting BPM{parameter::Bpm};
    Setting BeatsPerBar{parameter::TimeSig};
    Setting NoteSilenceRatio{parameter::NoteSilenceRatio};
    Setting AlternateTime{parameter::AlternateTime};
    Watched<std::int32_t> NoteLengthCombo{parameter::NoteLength.Default};

    // Editing options.
    Watched<bool> NoteClickPlayCheck{true};
    Watched<bool> NoteClickAddCheck{true};
    Watched<bool> AddNote1Option{true};
    Watched<bool> AddNote2Option{false};
    Watched<bool> NoteReplaceCheck{false};
    Watched<bool> NoteLengthReplaceCheck{false};
    Watched<bool> ModDottedCheck{false};
    Watched<bool> ModTripletCheck{false};
    Watched<bool> AddNote1OptionEnabled{true};
    Watched<bool> AddNote2OptionEnabled{true};
    Watched<bool> NoteReplaceCheckEnabled{true};
    Watched<bool> NoteLengthReplaceCheckEnabled{false};

    // What can be undone and redone, with the commands' captions ("Undo Erase line").
    Watched<bool> CanUndo;
    Watched<bool> CanRedo;
    Watched<std::string> UndoText{"Undo"};
    Watched<std::string> RedoText{"Redo"};
    /// The song is not as it was last saved or loaded.
    Watched<bool> Modified;

    /// Some line is selected, so that the commands for selected lines do something.
    Watched<bool> LinesSelected;

    // Which notes to play.
    Watched<bool> ClickPlayNote1Check{true};
    Watched<bool> ClickPlayNote2Check{true};
    Watched<bool> PlayNote1Check{true};
    Watched<bool> PlayNote2Check{true};

    // Playback options.
    Watched<bool> MuteTweebleCheck{false};
    Watched<bool> NoUpdateCheck{false};
    /// Volume of the voice in ten-thousandths.
    Watched<std::int32_t> VoiceVolSlider{parameter::VoiceVol.Default};

    // The mods' check boxes. Ticking or unticking one, by whomever, is what switches the mod: its part of the
    // program watches the value.
    Watched<bool> UseFMODCheck{false};
    Watched<bool> UseVoiceCheck{false};
    Watched<bool> UseMIDIOutCheck{false};
    Watched<bool> UseMIDIInCheck{false};
    Watched<bool> UseMIDIFileCheck{false};
    Watched<bool> UsePortaCheck{false};
    Watched<bool> UseMotorCheck{false};
    Watched<bool> UseBeatCheck{false};
    Watched<bool> UseCircuitBentCheck{false};
    Watched<bool> UseSynchroCheck{false};
    /// The sound library is there.
    Watched<bool> FmodAvailable{false};
    Watched<bool> UseFMODCheckEnabled{false};
    Watched<bool> UseVoiceCheckEnabled{false};
    Watched<bool> UseMIDIOutCheckEnabled{true};
    Watched<bool> UseMIDIInCheckEnabled{true};
    Watched<bool> UseMIDIFileCheckEnabled{true};
    Watched<bool> UsePortaCheckEnabled{true};
    Watched<bool> UseMotorCheckEnabled{true};
    Watched<bool> UseBeatCheckEnabled{true};
    Watched<bool> UseCircuitBentCheckEnabled{true};
    Watched<bool> UseSynchroCheckEnabled{true};

    // The beats that the beat sound is for.
    Watched<bool> optBeatAll{true};
    Watched<bool> optBeatEven{false};

    Watched<bool> MetronomeIsOn{false};
    Watched<bool> MetronomeButtonEnabled{true};

    // What playback enables and shows.
    Watched<bool> PianoKeysEnabled{true};
    Watched<bool> PlayAllButtonEnabled{true};
    Watched<bool> PlayFromLineButtonEnabled{true};
    Watched<bool> StopPlayButtonEnabled{false};
    Watched<bool> NoUpdateCheckEnabled{true};
    Watched<bool> BeepTextLabelVisible{false};
    Watched<SoundingNotes> NotesSounding;
    Watched<std::string> lblPlayBar{"001"};
    Watched<std::string> lblPlayPos{"001"};
    Watched<std::int32_t> lblPlayPosBackColor{colour::DarkGreen};
    Watched<std::string> lblPlaySig{"01.00"};
};

}  // namespace quavix
