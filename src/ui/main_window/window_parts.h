// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "fmod/sound_mods.h"
#include "midi/midi_file_playback.h"
#include "midi/midi_input.h"
#include "midi/midi_output.h"
#include "music/edit_history.h"
#include "music/line_clipboard.h"
#include "music/list_editing.h"
#include "music/main_fields.h"
#include "music/music_list.h"
#include "playback/metronome.h"
#include "playback/motor_mod_module.h"
#include "playback/piano_keys.h"
#include "playback/pitch_glide.h"
#include "playback/playback_engine.h"
#include "playback/position_display.h"
#include "playback/synchro_play.h"
#include "playback/tone_dispatcher.h"
#include "ports/message_boxes.h"
#include "ports/speaker.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "songfile/song_document.h"

namespace quavix {

class SaveLoadForm;

/// What the windows show and call. All of it must outlive them.
struct WindowParts {
    MainFields& Fields;
    MusicList& List;
    EditHistory& History;
    ListEditing& Editing;
    LineClipboard& Lines;
    PianoKeys& Keys;
    PositionDisplay& Position;
    SoundMods& Fmod;
    ToneDispatcher& Tones;
    PlaybackEngine& Playback;
    Metronome& Clicks;
    PitchGlide& Glide;
    MotorModModule& Motor;
    MidiOutput& MidiOut;
    MidiInput& MidiIn;
    SynchroPlay& Synchro;
    MidiFilePlayback& MidiFile;
    SongDocument& Document;
    Speaker& PcSpeaker;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
    SaveLoadForm& SaveLoadWindow;
    /// The user wants the program to end.
    std::function<void()> CloseProgram;
    /// The text of the manual, empty where it can't be read.
    std::function<std::string()> ReadManual;
};

}  // namespace quavix
