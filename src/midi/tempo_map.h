// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "ports/midi_file_reader.h"

namespace quavix {

/// The times of a MIDI file's ticks, in milliseconds since tick 0.
class TempoMap {
  public:
    /// Tempo until the first change: 0.5 s per quarter note.
    static constexpr std::uint32_t DefaultMicroseconds = 500000;

    /// A part with constant tempo: it begins at a tick and a time, and each tick has the same length.
    struct Segment {
        std::uint64_t Tick;
        double Ms;
        double MsPerTick;
    };

    /// Takes the time division of the file; ignores its tracks.
    explicit TempoMap(const MidiFileContent& file);

    /// Sets the length of a quarter note from `tick` on. Changes may come in any order; of several at one
    /// tick, the last one applies. Has no effect if the file's times are in frames.
    void Add(std::uint64_t tick, std::uint32_t microsecondsPerQuarter);

    /// Has to be called once after the last change, before times are queried.
    void Finish();

    /// Returns the segments in order of their ticks; the first one begins at tick 0.
    const std::vector<Segment>& Segments() const { return segments_; }

  private:
    double MsPerTick(std::uint32_t microsecondsPerQuarter) const;

    std::uint32_t ticksPerQuarter_;
    std::vector<Segment> segments_;
};

/// A cursor over a track's ticks, which never decrease. The map must outlive it.
class TempoCursor {
  public:
    explicit TempoCursor(const TempoMap& map);

    double MsAt(std::uint64_t tick) {
        if (tick >= nextChange_)
            GoTo(tick);
        return segment_.Ms + static_cast<double>(tick - segment_.Tick) * segment_.MsPerTick;
    }

  private:
    static constexpr std::uint64_t NoFurtherChange = std::numeric_limits<std::uint64_t>::max();

    void GoTo(std::uint64_t tick);
    void Use(std::size_t segment);

    const std::vector<TempoMap::Segment>& segments_;
    std::size_t at_ = 0;
    TempoMap::Segment segment_{};
    std::uint64_t nextChange_ = NoFurtherChange;
};

}  // namespace quavix
