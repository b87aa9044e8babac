// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "modules/midi_file/midi_bytes.h"

namespace quavix::test {

/// A message of a track, and its time in milliseconds from the start.
struct At {
    std::uint32_t Ms;
    Bytes Message;
};

inline Bytes NoteOnOf(std::uint8_t note, std::uint8_t channel = 0) {
    return {static_cast<std::uint8_t>(0x90 | channel), note, 96};
}
inline Bytes NoteOffOf(std::uint8_t note, std::uint8_t channel = 0) {
    return {static_cast<std::uint8_t>(0x80 | channel), note, 0};
}

/// A file of one track whose ticks are milliseconds, which ends at its last message.
inline std::string MidiSong(std::initializer_list<At> messages) {
    Bytes events;
    std::uint32_t now = 0;
    for (const At& at : messages) {
        events = events + VarLen(at.Ms - now) + at.Message;
        now = at.Ms;
    }
    const Bytes file = Header(0, 1, 500) + Track(events);
    return {file.begin(), file.end()};
}

}  // namespace quavix::test
