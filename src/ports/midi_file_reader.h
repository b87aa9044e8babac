// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quavix {

/// One event of a track. Status is 0x80..0xFF; data bytes of channel messages are those of the file, which
/// may be above 127. For meta events (Status 0xFF), Data1 is the type.
struct MidiFileEvent {
    static constexpr std::uint8_t MetaStatus = 0xFF;
    static constexpr std::uint8_t TempoType = 0x51;

    /// Ticks since the start of the track; never decreases.
    std::uint64_t Tick = 0;
    /// For tempo events, microseconds per quarter note, or 0 if the tempo stays; for other meta and exclusive
    /// events, their size in bytes; otherwise 0.
    std::uint32_t Value = 0;
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool IsTempo() const { return Status == MetaStatus && Data1 == TempoType && Value != 0; }
    bool operator==(const MidiFileEvent&) const = default;
};

/// The content of a MIDI file.
struct MidiFileContent {
    /// 0: one track; 1: simultaneous tracks; 2: independent tracks.
    std::uint32_t Format = 0;
    /// 1..32767; 0 if times are in SMPTE frames, so that tempo events have no effect.
    std::uint32_t TicksPerQuarter = 0;
    /// Ticks per second as a fraction, if TicksPerQuarter is 0.
    std::uint32_t TicksPerSecondNumerator = 0;
    std::uint32_t TicksPerSecondDenominator = 1;
    std::vector<std::vector<MidiFileEvent>> Tracks;
    /// Faults of the file that were corrected, as sentences with byte offsets; at most 100.
    std::vector<std::string> Remarks;
};

enum class MidiFileResult {
    Read,
    /// The file holds no playable music.
    Unreadable,
    /// More than 99,999 events in a track or 1,048,575 in the file.
    TooManyEvents,
    /// The caller asked to stop.
    Stopped,
    /// The reading module is missing; see Prepare().
    NoReader
};

/// Reads standard MIDI files.
///
/// Thread: the user-interface thread. Raises no error except for lack of memory.
class MidiFileReader {
  public:
    virtual ~MidiFileReader() = default;

    /// Loads the reading module if necessary. Returns an empty text, or the reason as a sentence for the user
    /// if that is impossible.
    virtual std::string Prepare() = 0;

    /// Reads a whole file. `goOn` (may be empty) is called from time to time with the finished share, 0..1,
    /// and stops the reading if it returns false; handlers may run in it. With any result but Read, `content`
    /// is empty and `detail` is a sentence with the fault and its place.
    virtual MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                                MidiFileContent& content, std::string& detail) = 0;
};

}  // namespace quavix
