// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "modules/midi_io/midi_io_module.h"

namespace quavix::midi_io {

/// Messages on their way from the system's thread to the caller's. One thread puts, one takes; neither ever
/// waits.
class MessageQueue {
  public:
    /// From the system's thread. A message that finds no room is lost, and counted as that.
    void Put(const QuavixMidiIoMessage& message) {
        const std::uint32_t end = end_.load(std::memory_order_relaxed);
        if (end - begin_.load(std::memory_order_acquire) == Room) {
            lost_.store(true, std::memory_order_release);
            return;
        }
        messages_[end % Room] = message;
        end_.store(end + 1, std::memory_order_release);
    }

    /// False: none is there.
    bool Take(QuavixMidiIoMessage& message) {
        const std::uint32_t begin = begin_.load(std::memory_order_relaxed);
        if (begin == end_.load(std::memory_order_acquire))
            return false;
        message = messages_[begin % Room];
        begin_.store(begin + 1, std::memory_order_release);
        return true;
    }

    /// Whether messages were lost since the last call.
    bool TakeLost() { return lost_.exchange(false, std::memory_order_acq_rel); }

  private:
    // Some seconds of the busiest line there is.
    static constexpr std::uint32_t Room = 0x4000;

    std::array<QuavixMidiIoMessage, Room> messages_{};
    std::atomic<std::uint32_t> begin_{0};
    std::atomic<std::uint32_t> end_{0};
    std::atomic<bool> lost_{false};
};

}  // namespace quavix::midi_io
