// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace quavix {

class EventBoundary;
class ListEditing;
class MessageBoxes;
class Metronome;
class MotorModModule;
class MusicList;
class PianoKeys;
class PlaybackEngine;
class PositionDisplay;
class Speaker;
class ToneDispatcher;
struct EntryOptions;
struct ModFields;
struct OutputOptions;
struct PlaybackView;
struct ProgramState;
struct SongFields;

// The panels of the main window. Each function makes one, owned by `parent`. What the panel is bound to must
// outlive its use.

/// The effect of a click on a key, and the form of added lines.
QWidget* MakeNoteEntryPanel(EntryOptions& entry, EventBoundary& handlers, QWidget* parent);

/// The timing settings: tempo, time signature, note/silence ratio, alternate time.
QWidget* MakeTimingPanel(SongFields& song, Metronome& metronome, EventBoundary& handlers, QWidget* parent);

/// The buttons that start and stop playback, and the lamp that is lit while a tone sounds.
QWidget* MakePlaybackPanel(PlaybackView& view, PlaybackEngine& playback, EventBoundary& handlers,
                           QWidget* parent);

/// The list of music.
QWidget* MakeListPanel(MusicList& list, ListEditing& editing, PlaybackEngine& playback,
                       EventBoundary& handlers, QWidget* parent);

/// The buttons that change the selected line.
QWidget* MakeEditingPanel(ListEditing& editing, EventBoundary& handlers, QWidget* parent);

/// The choice of the notes that sound when a line is clicked and when the music plays.
QWidget* MakeNotesToPlayPanel(SongFields& song, EventBoundary& handlers, QWidget* parent);

/// The check boxes of the mods, each with a button that explains it. Unavailable mods are disabled, but can
/// still be explained.
QWidget* MakeModsPanel(ModFields& mods, OutputOptions& output, MotorModModule& motor, MessageBoxes& boxes,
                       EventBoundary& handlers, QWidget* parent);

/// The piano, the octaves above its coloured groups, and the field that changes them.
QWidget* MakeKeyboardPanel(EntryOptions& entry, PlaybackView& view, PianoKeys& keys, EventBoundary& handlers,
                           QWidget* parent);

/// A line that names the speaker in use, with a button for the window with details.
QWidget* MakeSpeakerPanel(OutputOptions& output, ProgramState& state, PlaybackView& view,
                          ToneDispatcher& tones, Speaker& speaker, EventBoundary& handlers, QWidget* parent);

/// The labels of the current position, and the option that stops their update during playback.
QWidget* MakePositionPanel(PositionDisplay& position, EventBoundary& handlers, QWidget* parent);

}  // namespace quavix
