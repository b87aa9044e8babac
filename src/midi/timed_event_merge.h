// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "midi/midi_event_list.h"

namespace quavix {

/// Merges lists of events, each in ascending order of time, into one; of events at the same time, those of
/// the earlier list come first. The lists must outlive it and stay as they are.
///
/// A tournament: the leaves of a tree are the lists' next events, each node the number of the earlier one of
/// the two below. An event costs one step per level, and no branch that the processor has to guess.
class TimedEventMerge {
  public:
    explicit TimedEventMerge(const std::vector<std::vector<TimedMidiEvent>>& lists);

    /// Behind the last event, null.
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

    /// Times are not negative, so their bits are in the same order as they are.
    static std::uint64_t KeyOf(const Head& head) {
        return head.At == head.End ? NoMore : std::bit_cast<std::uint64_t>(head.At->AbsoluteMs);
    }
    const Node& Earlier(std::size_t node) const {
        const std::size_t left = 2 * node;
        return nodes_[left + static_cast<std::size_t>(nodes_[left + 1].Key < nodes_[left].Key)];
    }

    std::vector<Head> heads_;
    std::size_t leaves_;
    /// Node n stands above 2n and 2n + 1; 0 is none.
    std::vector<Node> nodes_;
};

inline TimedEventMerge::TimedEventMerge(const std::vector<std::vector<TimedMidiEvent>>& lists)
    : leaves_(std::bit_ceil(lists.size())), nodes_(2 * leaves_, Node{NoMore, 0}) {
    heads_.reserve(lists.size());
    for (const auto& list : lists) {
        heads_.push_back({list.data(), list.data() + list.size()});
        nodes_[leaves_ + heads_.size() - 1] = {KeyOf(heads_.back()), heads_.size() - 1};
    }
    for (std::size_t node = leaves_ - 1; node > 0; --node)
        nodes_[node] = Earlier(node);
}

}  // namespace quavix
