// SPDX-License-Identifier: MIT
#include "simulation/recorded_outputs.h"

#include <fmt/format.h>

#include "midi/midi_notes.h"
#include "shell/numbers.h"
#include "shell/waiting.h"

namespace quavix {

void RecordedOutputs::Wait(double ms) {
    Waiting(time_, time_).MsgWaitObj(ToInt32(ms));
}

void RecordedOutputs::FMODBeep(double frequency, double durationMs, bool noStop, bool noWait) {
    Record(fmt::format("generator {} Hz {} ms{}{}", NumberText(frequency), NumberText(durationMs),
                       noStop ? " no stop" : "", noWait ? " no wait" : ""));
    if (!noWait)
        Wait(durationMs);
}

void RecordedOutputs::FMODBeepStop() {
    Record("generator stop");
}

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

void RecordedOutputs::ChangeVoiceVol(double volume) {
    Record(fmt::format("voice volume {}", NumberText(volume)));
}

void RecordedOutputs::ChangeBaseFreq(double frequency) {
    Record(fmt::format("voice {} Hz", NumberText(frequency)));
}

void RecordedOutputs::LineStarts() {
    Record("line");
    if (OnLine)
        OnLine();
}

}  // namespace quavix
