// SPDX-License-Identifier: MIT
#include "simulation/recorded_outputs.h"

#include <fmt/format.h>

#include "midi/midi_notes.h"

namespace quavix {

std::int32_t RecordedOutputs::NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum) {
    return quavix::NoteToMIDI(noteNum, octaveNum);
}

void RecordedOutputs::MIDINoteOn(std::int32_t midiNoteNum) {
    Record(fmt::format("midi on {}", midiNoteNum));
}

void RecordedOutputs::MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel) {
    Record(fmt::format("midi off {} channel {}", midiNoteNum, channel));
}

void RecordedOutputs::SetWantedPitch(std::int32_t frequency) {
    Record(fmt::format("portamento {} Hz", frequency));
}

void RecordedOutputs::StartSound() {
    Record("portamento start");
}

void RecordedOutputs::LineStarts() {
    Record("line");
    if (OnLine)
        OnLine();
}

}  // namespace quavix
