// SPDX-License-Identifier: MIT
#include "midi/tempo_map.h"

#include <algorithm>
#include <iterator>

namespace quavix {

TempoMap::TempoMap(const MidiFileContent& file) : ticksPerQuarter_(file.TicksPerQuarter) {
    constexpr double MsPerSecond = 1000;
    const double msPerTick =
        ticksPerQuarter_ != 0 ? MsPerTick(DefaultMicroseconds)
                              : MsPerSecond * file.TicksPerSecondDenominator / file.TicksPerSecondNumerator;
    segments_.push_back({0, 0, msPerTick});
}

double TempoMap::MsPerTick(std::uint32_t microsecondsPerQuarter) const {
    constexpr double MicrosecondsPerMs = 1000;
    return microsecondsPerQuarter / MicrosecondsPerMs / ticksPerQuarter_;
}

void TempoMap::Add(std::uint64_t tick, std::uint32_t microsecondsPerQuarter) {
    if (ticksPerQuarter_ != 0)
        segments_.push_back({tick, 0, MsPerTick(microsecondsPerQuarter)});
}

void TempoMap::Finish() {
    const auto isEarlier = [](const Segment& a, const Segment& b) { return a.Tick < b.Tick; };
    if (!std::ranges::is_sorted(segments_, isEarlier))
        std::ranges::stable_sort(segments_, isEarlier);
    for (std::size_t i = 1; i < segments_.size(); ++i) {
        const Segment& before = segments_[i - 1];
        segments_[i].Ms = before.Ms + static_cast<double>(segments_[i].Tick - before.Tick) * before.MsPerTick;
    }
}

TempoCursor::TempoCursor(const TempoMap& map) : segments_(map.Segments()) {
    Use(0);
}

/// Searches in growing steps: the next change is usually near, but a track may have few events and a file
/// very many changes.
void TempoCursor::GoTo(std::uint64_t tick) {
    std::size_t step = 1;
    while (at_ + step < segments_.size() && segments_[at_ + step].Tick <= tick)
        step *= 2;
    const auto begin = segments_.begin();
    const auto found = std::upper_bound(
        begin + static_cast<std::ptrdiff_t>(at_ + step / 2),
        begin + static_cast<std::ptrdiff_t>(std::min(at_ + step, segments_.size())), tick,
        [](std::uint64_t wanted, const TempoMap::Segment& one) { return wanted < one.Tick; });
    Use(static_cast<std::size_t>(found - begin) - 1);
}

void TempoCursor::Use(std::size_t segment) {
    at_ = segment;
    segment_ = segments_[segment];
    nextChange_ = segment + 1 < segments_.size() ? segments_[segment + 1].Tick : NoFurtherChange;
}

}  // namespace quavix
