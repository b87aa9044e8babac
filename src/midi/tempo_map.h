// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "ports/midi_file_reader.h"

namespace quavix {

/// The times of the ticks of a MIDI file. Times are milliseconds since tick 0.
class TempoMap {
  public:
    /// Half a second per quarter note, which holds until the first change.
    static constexpr std::uint32_t DefaultMicroseconds = 500000;

    /// From this tick on, which is at this time, each tick lasts so long.
    struct Segment {
        std::uint64_t Tick;
        double Ms;
        double MsPerTick;
    };

    /// Ticks are measured as the file says; its tracks are not looked at.
    explicit TempoMap(const MidiFileContent& file);

    /// A quarter note lasts so many microseconds from `tick` on. Changes may come in any order; of those at
    /// one tick the last one holds. Without effect where the file's times are frames.
    void Add(std::uint64_t tick, std::uint32_t microsecondsPerQuarter);

    /// To be called once behind the last change, before times are asked for.
    void Finish();

    /// In order of their ticks; the first one begins at tick 0.
    const std::vector<Segment>& Segments() const { return segments_; }

  private:
    double MsPerTick(std::uint32_t microsecondsPerQuarter) const;

    std::uint32_t ticksPerQuarter_;
    std::vector<Segment> segments_;
};

/// Goes through a track's ticks, which never fall. The map must outlive it.
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
