// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quavix {

/// One event of a MIDI file's track. Status is 0x80..0xFF; data bytes of channel messages stand as the file
/// has them, which may be above 127. For meta events (Status 0xFF) Data1 is the type.
struct MidiFileEvent {
    static constexpr std::uint8_t MetaStatus = 0xFF;
    static constexpr std::uint8_t TempoType = 0x51;

    /// Since the start of the track, in ticks; never falls.
    std::uint64_t Tick = 0;
    /// For tempo events, microseconds per quarter note, or 0 where the tempo stays what it was; for other
    /// meta and exclusive events their size; otherwise 0.
    std::uint32_t Value = 0;
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool IsTempo() const { return Status == MetaStatus && Data1 == TempoType && Value != 0; }
    bool operator==(const MidiFileEvent&) const = default;
};

/// A MIDI file as it was read.
struct MidiFileContent {
    /// 0: one track; 1: tracks that sound together; 2: tracks of their own.
    std::uint32_t Format = 0;
    /// 1..32767; 0 where times are in SMPTE frames and tempo events have no effect.
    std::uint32_t TicksPerQuarter = 0;
    /// Ticks per second as a fraction, where TicksPerQuarter is 0.
    std::uint32_t TicksPerSecondNumerator = 0;
    std::uint32_t TicksPerSecondDenominator = 1;
    std::vector<std::vector<MidiFileEvent>> Tracks;
    /// Faults of the file that were put right, as sentences with byte offsets; at most 100.
    std::vector<std::string> Remarks;
};

enum class MidiFileResult {
    Read,
    /// Nothing in it can be played.
    Unreadable,
    /// More than 99,999 events in a track or 1,048,575 in the file.
    TooManyEvents,
    /// The caller has asked to stop.
    Stopped,
    /// What reads files is not there; see Prepare().
    NoReader
};

/// Reads standard MIDI files.
///
/// Thread: the user-interface thread. Nothing but a lack of memory is raised.
class MidiFileReader {
  public:
    virtual ~MidiFileReader() = default;

    /// Makes ready what stands behind the port, where it isn't; empty, or a sentence for the user why that is
    /// impossible.
    virtual std::string Prepare() = 0;

    /// Reads a whole file. `goOn` (may be empty) is called from time to time with the share that is done,
    /// 0..1, and ends the reading with false; handlers may run in it. With any result but Read, `content` is
    /// empty and `detail` a sentence that says what is wrong and where.
    virtual MidiFileResult Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                                MidiFileContent& content, std::string& detail) = 0;
};

}  // namespace quavix
