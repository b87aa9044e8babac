// SPDX-License-Identifier: MIT
#include "midi/midi_event_list.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

#include <fmt/format.h>

namespace quavix {
namespace {

using TimedTrack = std::vector<TimedMidiEvent>;

constexpr std::uint32_t TracksOfTheirOwn = 2;

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
    explicit TempoMap(const MidiFileContent& file) : ticksPerQuarter_(file.TicksPerQuarter) {
        constexpr double MsPerSecond = 1000;
        const double msPerTick = ticksPerQuarter_ != 0 ? MsPerTick(DefaultMicroseconds)
                                                       : MsPerSecond * file.TicksPerSecondDenominator /
                                                             file.TicksPerSecondNumerator;
        segments_.push_back({0, 0, msPerTick});
    }

    /// Sets the length of a quarter note from `tick` on. Changes may come in any order; of several at one
    /// tick, the last one applies. Has no effect if the file's times are in frames.
    void Add(std::uint64_t tick, std::uint32_t microsecondsPerQuarter) {
        if (ticksPerQuarter_ != 0)
            segments_.push_back({tick, 0, MsPerTick(microsecondsPerQuarter)});
    }

    /// Has to be called once after the last change, before times are queried.
    void Finish() {
        if (!std::ranges::is_sorted(segments_, {}, &Segment::Tick))
            std::ranges::stable_sort(segments_, {}, &Segment::Tick);
        for (std::size_t i = 1; i < segments_.size(); ++i) {
            const Segment& before = segments_[i - 1];
            segments_[i].Ms =
                before.Ms + static_cast<double>(segments_[i].Tick - before.Tick) * before.MsPerTick;
        }
    }

    /// Returns the segments in order of their ticks; the first one begins at tick 0.
    const std::vector<Segment>& Segments() const { return segments_; }

  private:
    double MsPerTick(std::uint32_t microsecondsPerQuarter) const {
        constexpr double MicrosecondsPerMs = 1000;
        return microsecondsPerQuarter / MicrosecondsPerMs / ticksPerQuarter_;
    }

    std::uint32_t ticksPerQuarter_;
    std::vector<Segment> segments_;
};

/// A cursor over a track's ticks, which never decrease. The map must outlive it.
class TempoCursor {
  public:
    explicit TempoCursor(const TempoMap& map) : segments_(map.Segments()) { Use(0); }

    double MsAt(std::uint64_t tick) {
        if (tick >= nextChange_)
            GoTo(tick);
        return segment_.Ms + static_cast<double>(tick - segment_.Tick) * segment_.MsPerTick;
    }

  private:
    static constexpr std::uint64_t NoFurtherChange = std::numeric_limits<std::uint64_t>::max();

    /// Searches in growing steps: the next change is usually near, but a track may have few events and a file
    /// very many changes.
    void GoTo(std::uint64_t tick) {
        std::size_t step = 1;
        while (at_ + step < segments_.size() && segments_[at_ + step].Tick <= tick)
            step *= 2;
        const auto begin = segments_.begin();
        const auto found = std::ranges::upper_bound(
            begin + static_cast<std::ptrdiff_t>(at_ + step / 2),
            begin + static_cast<std::ptrdiff_t>(std::min(at_ + step, segments_.size())), tick, {},
            &TempoMap::Segment::Tick);
        Use(static_cast<std::size_t>(found - begin) - 1);
    }

    void Use(std::size_t segment) {
        at_ = segment;
        segment_ = segments_[segment];
        nextChange_ = segment + 1 < segments_.size() ? segments_[segment + 1].Tick : NoFurtherChange;
    }

    const std::vector<TempoMap::Segment>& segments_;
    std::size_t at_ = 0;
    TempoMap::Segment segment_{};
    std::uint64_t nextChange_ = NoFurtherChange;
};

/// Merges lists of events, each in ascending order of time, into one; at equal times, events of the earlier
/// list come first. The lists must outlive it and stay unchanged.
///
/// A tournament tree: the leaves are the next events of the lists, and each node is the earlier of its two
/// children. An event costs one step per level, without unpredictable branches.
class TimedEventMerge {
  public:
    explicit TimedEventMerge(const std::vector<TimedTrack>& lists)
        : leaves_(std::bit_ceil(lists.size())), nodes_(2 * leaves_, Node{NoMore, 0}) {
        heads_.reserve(lists.size());
        for (const auto& list : lists) {
            heads_.push_back({list.data(), list.data() + list.size()});
            nodes_[leaves_ + heads_.size() - 1] = {KeyOf(heads_.back()), heads_.size() - 1};
        }
        for (std::size_t node = leaves_ - 1; node > 0; --node)
            nodes_[node] = Earlier(node);
    }

    /// Returns the next event; null after the last one.
    const TimedMidiEvent* Next() {
        const Node winner = nodes_[1];
        if (winner.Key == NoMore)
            return nullptr;
        const TimedMidiEvent* const event = heads_[winner.List].At++;
        std::size_t node = leaves_ + winner.List;
        nodes_[node].Key = KeyOf(heads_[winner.List]);
        while (node > 1) {
            node /= 2;
            nodes_[node] = Earlier(node);
        }
        return event;
    }

  private:
    struct Head {
        const TimedMidiEvent* At;
        const TimedMidiEvent* End;
    };
    struct Node {
        std::uint64_t Key;
        std::size_t List;
    };
    static constexpr std::uint64_t NoMore = UINT64_MAX;

    /// Times are not negative, so their bits sort like the numbers.
    static std::uint64_t KeyOf(const Head& head) {
        return head.At == head.End ? NoMore : std::bit_cast<std::uint64_t>(head.At->AbsoluteMs);
    }
    const Node& Earlier(std::size_t node) const {
        const std::size_t left = 2 * node;
        return nodes_[left + static_cast<std::size_t>(nodes_[left + 1].Key < nodes_[left].Key)];
    }

    std::vector<Head> heads_;
    std::size_t leaves_;
    /// Node n is the parent of 2n and 2n + 1; index 0 is unused.
    std::vector<Node> nodes_;
};

class Decoding {
  public:
    Decoding(MidiFileContent file, const DecodingProgress& progress)
        : file_(std::move(file)), tempos_(file_), progress_(progress) {}

    std::optional<TimedTrack> Run() {
        if (!progress_("Initialising... "))
            return std::nullopt;
        SetOrigins();
        if (!CollectTempos() || !TimeTracks())
            return std::nullopt;
        return Merge();
    }

  private:
    /// Sets the tick of the list at which each track begins.
    void SetOrigins() {
        origins_.assign(file_.Tracks.size(), 0);
        if (file_.Format != TracksOfTheirOwn)
            return;
        std::uint64_t origin = 0;
        for (std::size_t i = 0; i < origins_.size(); ++i) {
            origins_[i] = origin;
            if (!file_.Tracks[i].empty())
                origin += file_.Tracks[i].back().Tick;
        }
    }

    bool CollectTempos() {
        for (std::size_t i = 0; i < file_.Tracks.size(); ++i) {
            if (!ShowTrack("Decoding tempo changes", i))
                return false;
            if (file_.Format == TracksOfTheirOwn)
                tempos_.Add(origins_[i], TempoMap::DefaultMicroseconds);
            for (const MidiFileEvent& event : file_.Tracks[i]) {
                if (event.IsTempo())
                    tempos_.Add(origins_[i] + event.Tick, event.Value);
            }
        }
        tempos_.Finish();
        return true;
    }

    /// Computes a track's times and frees its ticks, so that memory never holds both for all tracks.
    bool TimeTracks() {
        for (std::size_t i = 0; i < file_.Tracks.size(); ++i) {
            if (!ShowTrack("Decoding absolute timings", i))
                return false;
            const std::vector<MidiFileEvent> track = std::exchange(file_.Tracks[i], {});
            if (track.empty())
                continue;
            TimedTrack timed;
            timed.reserve(track.size());
            TempoCursor tempo(tempos_);
            for (const MidiFileEvent& event : track) {
                timed.push_back(
                    {tempo.MsAt(origins_[i] + event.Tick), event.Status, event.Data1, event.Data2});
            }
            count_ += timed.size();
            timed_.push_back(std::move(timed));
        }
        return true;
    }

    std::optional<TimedTrack> Merge() {
        constexpr std::size_t Percent = 100;
        if (timed_.size() <= 1) {
            if (!ShowShare(Percent))
                return std::nullopt;
            return timed_.empty() ? TimedTrack() : std::move(timed_.front());
        }
        TimedTrack events;
        events.reserve(count_);
        TimedEventMerge merge(timed_);
        for (std::size_t percent = 0; percent <= Percent; ++percent) {
            if (!ShowShare(percent))
                return std::nullopt;
            // The number of events whose share rounds to this percentage.
            const std::size_t end = std::min(count_, (2 * percent + 1) * count_ / (2 * Percent));
            while (events.size() < end)
                events.push_back(*merge.Next());
        }
        return events;
    }

    bool ShowTrack(const char* doing, std::size_t track) const {
        return progress_(fmt::format("{}... Track {:02}", doing, track + 1));
    }
    bool ShowShare(std::size_t percent) const {
        return progress_(fmt::format("Decoding events... {}%", percent));
    }

    MidiFileContent file_;
    TempoMap tempos_;
    const DecodingProgress& progress_;
    std::vector<std::uint64_t> origins_;
    std::vector<TimedTrack> timed_;
    std::size_t count_ = 0;
};

}  // namespace

std::optional<std::vector<TimedMidiEvent>> DecodeMidiFile(MidiFileContent file,
                                                          const DecodingProgress& progress) {
    return Decoding(std::move(file), progress).Run();
}

}  // namespace quavix
