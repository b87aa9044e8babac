// SPDX-License-Identifier: MIT
#include "midi/midi_notes.h"

#include <array>

#include "music/notes.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr std::int32_t NotesPerOctave = 12;

// These spellings are fixed, misspellings included. Four names per line, two lines per family.
// clang-format off
constexpr std::array<const char*, 128> InstrumentNames = {
    "Grand Piano", "Bright Acoustic", "Electric Grand", "Honkey-Tonk",
    "Electric Piano 1", "Electric Piano 2", "Harpsichord", "Clavichord",
    "Celesta", "Glockenspiel", "Music Box", "Vibraphone",
    "Marimba", "Xylophone", "Tubular Bells", "Dulcimer",
    "Drawbar Organ", "Percussive Organ", "Rock Organ", "Church Organ",
    "Reed Organ", "Accordian", "Harmonica", "Tango Accordian",
    "Acoustic Guitar (Nylon)", "Acoustic Guitar (Steel)", "Electric Guitar (Jazz)", "Electric Guitar (Clean)",
    "Electric Guitar (Muted)", "Overdriven Guitar", "Distortion Guitar", "Guitar Harmonics",
    "Acoustic Bass", "Electric Bass (Finger)", "Electric Bass (Pick)", "Fretless Bass",
    "Slap Bass 1", "Slap Bass 2", "Synth Bass 1", "Synth Bass 2",
    "Violin", "Viola", "Cello", "Contrabassoon",
    "Tremelo Strings", "Pizzicato Strings", "Orchestral Strings", "Timpani",
    "String Ensemble 1", "String Ensemble 2", "Synth Strings 1", "Synth Strings 2",
    "Choir Aahs", "Voice Oohs", "Synth Voice", "Orchestra Hit",
    "Trumpet", "Trombone", "Tuba", "Muted Trumpet",
    "French Horn", "Brass Section", "Synth Brass 1", "Synth Brass 2",
    "Soprano Saxophone", "Alto Saxophone", "Tenor Saxophone", "Baritone Saxophone",
    "Oboe", "English Horn", "Bassoon", "Clarinet",
    "Piccolo", "Flute", "Recorder", "Pan Flute",
    "Blown Bottle", "Skakuhachi", "Whistle", "Ocarina",
    "Lead 1 (Square)", "Lead 2 (Sawtooth)", "Lead 3 (Calliope)", "Lead 4 (Chiff)",
    "Lead 5 (Charang)", "Lead 6 (Voice)", "Lead 7 (Fifths)", "Lead 8 (Bass + Lead)",
    "Pad 1 (New Age)", "Pad 2 (Warm)", "Pad 3 (Polysynth)", "Pad 4 (Choir)",
    "Pad 5 (Bowed Glass)", "Pad 6 (Metallic)", "Pad 7 (Halo)", "Pad 8 (Sweep)",
    "Effect 1 (Rain)", "Effect 2 (Soundtrack)", "Effect 3 (Crystal)", "Effect 4 (Atmosphere)",
    "Effect 5 (Brightness)", "Effect 6 (Goblins)", "Effect 7 (Echoes)", "Effect 8 (Sci-fi)",
    "Sitar", "Banjo", "Shamisen", "Koto",
    "Kalimba", "Bagpipe", "Fiddle", "Shanai",
    "Tinkle Bell", "Agogo", "Steel Drums", "Woodblock",
    "Taiko Drum", "Melodic Tom", "Synth Drum", "Reversed Cymbal",
    "Guitar Fret Noise", "Breath Noise", "Seashore", "Bird Tweet",
    "Telephone Ring", "Helicopter", "Applause", "Gunshot",
};
// clang-format on

}  // namespace

std::int32_t NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum) {
    const double octave = ToInt32(static_cast<double>(octaveNum) * NotesPerOctave);
    return ToInt32(octave + noteNum);
}

std::string MIDIToNoteString(std::int32_t midiNoteNum) {
    const std::int32_t octave = midiNoteNum / NotesPerOctave;
    return NoteNumToLetter(midiNoteNum % NotesPerOctave) + std::to_string(octave);
}

Tone ToneOfMidiNote(std::int32_t midiNoteNum, double durationMs, const ToneOptions& options) {
    return Tone::OfNote(midiNoteNum % NotesPerOctave, midiNoteNum / NotesPerOctave, durationMs, options);
}

std::string MIDIInstrumentName(std::int32_t instrument) {
    if (instrument < 0 || instrument >= static_cast<std::int32_t>(InstrumentNames.size()))
        return {};
    return InstrumentNames[static_cast<std::size_t>(instrument)];
}

std::string MIDIInstrumentListText(std::int32_t instrument) {
    return std::to_string(std::int64_t{instrument} + 1) + " - " + MIDIInstrumentName(instrument);
}

}  // namespace quavix
