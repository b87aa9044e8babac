// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "fmod/sound_mods.h"
#include "midi/control_installer.h"
#include "midi/held_note_cycler.h"
#include "midi/midi_file_playback.h"
#include "midi/midi_input.h"
#include "midi/midi_output.h"
#include "music/edit_history.h"
#include "music/line_clipboard.h"
#include "music/list_editing.h"
#include "music/main_fields.h"
#include "music/mod_buttons.h"
#include "music/music_list.h"
#include "music/note_entry.h"
#include "playback/beat.h"
#include "playback/circuit_bent.h"
#include "playback/metronome.h"
#include "playback/motor_mod_module.h"
#include "playback/piano_keys.h"
#include "playback/pitch_glide.h"
#include "playback/playback_engine.h"
#include "playback/position_display.h"
#include "playback/synchro_play.h"
#include "playback/tone_code.h"
#include "playback/tone_dispatcher.h"
#include "ports/batch_files.h"
#include "ports/clipboard.h"
#include "ports/clock.h"
#include "ports/event_pump.h"
#include "ports/file_picker.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/midi_devices.h"
#include "ports/midi_file_reader.h"
#include "ports/random_numbers.h"
#include "ports/serial_port.h"
#include "ports/sound_library.h"
#include "ports/speaker.h"
#include "ports/timers.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"
#include "songfile/loading_view.h"
#include "songfile/song_changes.h"
#include "songfile/song_document.h"
#include "songfile/song_reader.h"
#include "songfile/song_writer.h"

namespace quavix {

/// Everything outside the program that it works with. All of it must outlive the program.
struct ProgramPorts {
    Clock& Time;
    EventPump& Pump;
    Timers& Ticks;
    RandomNumbers& Random;
    MessageBoxes& Boxes;
    FilePicker& Picker;
    Clipboard& TextClipboard;
    Files& Disk;
    Speaker& PcSpeaker;
    SerialPort& Comm;
    SoundLibrary& Sound;
    MidiOutPort& MidiOutDevices;
    MidiInPort& MidiInDevices;
    MidiFileReader& MidiFiles;
    BatchFiles& Batches;
    LoadingView& Loading;
    /// The folder of the executable and of what it ships with.
    std::string ProgramFolder;
    /// The folder for what is installed on first use.
    std::string WinFolder;
    /// Where the debug log and the tone code go while they are switched on.
    std::string LogFile;
    std::string ToneCodeFile;
};

/// The program behind its window: the one place where its parts are put together, whatever stands behind the
/// ports.
class Program {
  public:
    explicit Program(const ProgramPorts& ports)
        : Log(ports.Disk, ports.Time, ports.LogFile),
          Handlers(ports.Boxes, Log),
          Wait(ports.Time, ports.Pump),
          History(Fields, List),
          Mods(Fields, List, History, Log),
          Position(Fields, List, ports.Boxes, Log),
          Code(Fields, ports.Disk, ports.ToneCodeFile),
          Glide(Fields, ports.PcSpeaker, ports.Ticks, Handlers, Log),
          Motor({Fields, ports.Comm, Wait, ports.Boxes, Handlers, Log}),
          Fmod({Fields, ports.Sound, ports.Random, ports.Ticks, ports.Disk, ports.Boxes, Wait, Handlers, Log,
                [this](const std::string& text) { Motor.SendString(text); }}),
          Controls({Fields, ports.Disk, ports.Batches, ports.TextClipboard, ports.Boxes, Wait, Log,
                    ports.ProgramFolder, ports.WinFolder}),
          MidiOut({Fields, ports.MidiOutDevices, Controls, Wait, ports.Boxes, Handlers, Log}),
          Tones(Fields, {ports.PcSpeaker, Motor, Fmod.Generator, MidiOut, Glide}, Code, Wait, ports.Boxes,
                Log),
          Cycler(Fields, Tones, Fmod.Generator),
          MidiIn({Fields, ports.MidiInDevices, Controls, Cycler, Fmod.Generator, ports.Ticks, ports.Boxes,
                  Handlers, Log}),
          MidiFile({Fields, ports.Time, ports.Ticks, Wait, ports.Disk, ports.Picker, ports.Boxes,
                    ports.MidiFiles, Controls, Cycler, Fmod.Generator, Handlers, Log}),
          Kick(Fields, Position, Tones, ports.Boxes, Handlers, Log),
          Clicks(Fields, Tones, Code, ports.Time, Wait, Log),
          Bending(Fields, Tones, ports.Random, ports.Ticks, Handlers, Log),
          Synchro({Fields, ports.Time, ports.Ticks, Wait, ports.Boxes, Handlers,
                   [this] { return Tones.IsSounding(); }, [this] { Playback.PlayAllButton_Click(); },
                   [this] { Playback.PlayFromLineButton_Click(); },
                   [this] { return Fmod.Engine.GetFMODBufferLength(); }}),
          Entry(Fields, List, History, Log),
          Keys(Fields, Entry, Tones, Position, Log),
          Editing(Fields, List, Entry, Mods, History, [this] { Position.ShowSelectedLine(); }),
          Lines(Fields, List, ports.TextClipboard, History, [this] { ShowPositionOfEdit(); }),
          Playback({Fields, List, Mods, Position, Tones, Code, Fmod.Generator, Fmod.Singer,
                    [this] { Kick.LineStarts(); }, Synchro, ports.Time, Wait, ports.Boxes, Log}),
          Reader(Fields, List, ports.Disk, ports.Boxes, ports.Picker, ports.Loading, Log),
          Writer(Fields, List, ports.Disk, ports.Boxes, ports.Picker, Log),
          Changes(Fields, List),
          Document({Fields, List, Reader, Writer, ports.Disk, ports.Boxes, Fields.Modified,
                    [this] { History.MarkSaved(); }, [this] { History.MarkUnsaved(); }}) {
        Writer.OnSaved = [this] { History.MarkSaved(); };
        Document.OnSongReplaced = [this] { ShowPositionOfEdit(); };
        History.OnRestored = [this](bool onlyMods) {
            if (onlyMods)
                Mods.UpdateModButtons();
            ShowPositionOfEdit();
        };
    }

    MainFields Fields;
    MusicList List;
    DebugLog Log;
    EventBoundary Handlers;
    Waiting Wait;
    EditHistory History;
    ModButtons Mods;
    PositionDisplay Position;
    ToneCode Code;
    PitchGlide Glide;
    MotorModModule Motor;
    SoundMods Fmod;
    ControlInstaller Controls;
    MidiOutput MidiOut;
    ToneDispatcher Tones;
    HeldNoteCycler Cycler;
    MidiInput MidiIn;
    MidiFilePlayback MidiFile;
    Beat Kick;
    Metronome Clicks;
    CircuitBent Bending;
    SynchroPlay Synchro;
    NoteEntry Entry;
    PianoKeys Keys;
    ListEditing Editing;
    LineClipboard Lines;
    PlaybackEngine Playback;
    SongReader Reader;
    SongWriter Writer;
    SongChanges Changes;
    SongDocument Document;

    /// A tone sounds, or held notes do in turn, so that nothing may hold the program up.
    bool IsSounding() const { return Tones.IsSounding() || MidiIn.HoldsNotes() || MidiFile.IsPlaying(); }

    /// Closes the MIDI devices that are open, for the program's end.
    void ReleaseMidi() {
        if (Fields.MIDIOutIsOpen)
            MidiOut.CloseOutputDevice();
        if (Fields.MIDIInIsOpen)
            MidiIn.CloseInputDevice();
    }

  private:
    /// The labels belong to the music while it plays.
    void ShowPositionOfEdit() {
        if (!Fields.MusicIsPlaying)
            Position.ShowSelectedLine();
    }
};

}  // namespace quavix
