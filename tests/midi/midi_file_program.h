// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "platform/common/module_midi_file_reader.h"
#include "support/midi_song.h"
#include "support/simulated_program.h"

namespace quavix::test {

/// The program with its playback of MIDI files switched on, and the real reader of them.
struct MidiFileProgram : SimulatedProgram {
    MidiFileProgram() {
        MidiFiles.Real = &Reader;
        Disk.Put("/windows/system32/midifl32.ocx", "the control");
        App.Fields.Mods.UseMIDIFile.Ticked = true;
    }

    /// Browses for a file with this content.
    void Open(const std::string& content, const std::string& name = "/music/song.mid") {
        Disk.Put(name, content);
        Picker.AnswerNext(name);
        App.Handlers.Run("cmdBrowse_Click", [this] { Form.cmdBrowse_Click(); });
        Timeline.Clear();
    }
    void PlayAt(double ms) {
        Time.At(ms, [this] { Form.cmdPlay_Click(); });
    }
    void StopAt(double ms) {
        Time.At(ms, [this] { Form.cmdStop_Click(); });
    }
    /// Runs to this time, and returns the tones of an output since the last call.
    std::string TonesUntil(double ms, const char* output = "speaker") {
        Time.RunUntil(ms);
        const std::string tones = Timeline.Text(output);
        Timeline.Clear();
        return tones;
    }
    std::string Position() const { return Form.lblPosPercent.Get() + " " + Form.lblPosSecs.Get(); }

    ModuleMidiFileReader Reader{QUAVIX_MIDI_FILE_MODULE};
    MidiFilePlayback& Form = App.Playing.MidiFilePlayback;
};

/// One note after the other: C5, then E5.
inline const std::string TwoNotes =
    MidiSong({{0, NoteOnOf(60)}, {30, NoteOffOf(60)}, {30, NoteOnOf(64)}, {60, NoteOffOf(64)}});

}  // namespace quavix::test
