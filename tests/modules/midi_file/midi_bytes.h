// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "modules/midi_file/midi_file_module.h"

namespace quavix::test {

// MIDI files as bytes, made of small pieces, and the results of reading them.

using Bytes = std::vector<std::uint8_t>;

Bytes operator+(Bytes first, const Bytes& second);
Bytes Text(std::string_view text);
/// Return a number as big-endian bytes, or with seven bits per byte.
Bytes U16(std::uint32_t number);
Bytes U32(std::uint32_t number);
Bytes VarLen(std::uint32_t number);

Bytes Header(std::uint32_t format, std::uint32_t tracks, std::uint32_t division);
/// A track of these events, with an end-of-track event behind them and the right size in front.
Bytes Track(const Bytes& events);
/// A track chunk of these bytes that says it has `declaredSize` of them.
Bytes TrackSaying(std::uint32_t declaredSize, const Bytes& content);
/// A file of 96 ticks per quarter note.
Bytes File(std::uint32_t format, std::initializer_list<Bytes> tracks);

inline const Bytes EndOfTrack = {0x00, 0xFF, 0x2F, 0x00};
inline const Bytes NoteOn = {0x00, 0x90, 60, 96};
inline const Bytes NoteOff = {0x60, 0x80, 60, 0};

struct ReadTrack {
    std::uint64_t Offset = 0;
    std::vector<QuavixMidiFileEvent> Events;

    /// "tick:status data1 data2", the bytes in hexadecimal, with "=value" where there is one; joined by ", ".
    std::string Text() const;
};

/// Result of reading a file through the module's C interface.
struct Reading {
    std::int32_t Result = -1;
    std::string Detail;
    QuavixMidiFileHeader Header{};
    std::vector<ReadTrack> Tracks;
    std::vector<std::string> Remarks;

    /// The texts of the tracks, joined by " | ".
    std::string Text() const;
    std::size_t EventCount() const;
};

Reading Read(std::span<const std::uint8_t> bytes);

}  // namespace quavix::test
