// SPDX-License-Identifier: MIT
#include "midi/midi_output.h"

#include "midi/midi_notes.h"

namespace quavix {
namespace {

constexpr std::int32_t NoteOff = 0x80;
constexpr std::int32_t NoteOn = 0x90;
constexpr std::int32_t NoteOnVelocity = 96;
constexpr std::int32_t NoteOffVelocity = 0;
constexpr std::int32_t LastChannel = 15;
constexpr std::int32_t LastData = 127;

}  // namespace

std::int32_t MidiOutput::NoteToMIDI(std::int32_t noteNum, std::int32_t octaveNum) {
    return quavix::NoteToMIDI(noteNum, octaveNum);
}

void MidiOutput::MIDINoteOn(std::int32_t midiNoteNum) {
    p_.Log.Text("MIDINoteOn({})", midiNoteNum);
    Send(NoteOn + midiChannel_, midiNoteNum, NoteOnVelocity);
}

void MidiOutput::MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel) {
    if (channel < 0 || channel > LastChannel) {
        channel = midiChannel_;
        p_.Log.Text("MIDINoteOff(MIDINOTENUM:{}, MIDISENDCHANNEL:{}) (MIDISendChannel = MIDIChannel)",
                    midiNoteNum, channel);
    }
    Send(NoteOff + channel, midiNoteNum, NoteOffVelocity);
}

/// A busy device is given time, while handlers run, for as long as it is there.
void MidiOutput::Send(std::int32_t status, std::int32_t data1, std::int32_t data2) {
    if (data1 < 0 || data1 > LastData)
        return;
    const MidiMessage message{static_cast<std::uint8_t>(status), static_cast<std::uint8_t>(data1),
                              static_cast<std::uint8_t>(data2)};
    while (p_.Device.Send(message) == MidiSendResult::Busy && !p_.Fields.ShuttingDown)
        p_.Wait.MsgWaitObj(1);
}

}  // namespace quavix
