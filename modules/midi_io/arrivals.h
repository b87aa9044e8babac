// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <span>
#include <thread>
#include <utility>

#include "modules/midi_io/midi_io_module.h"
#include "modules/midi_io/midi_stream.h"

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

/// Messages and news from the system's threads. Those threads may still run when the caller has gone, so
/// they share this object with it.
class Arrivals {
  public:
    explicit Arrivals(std::function<void()> wake) : wake_(std::move(wake)) {}

    /// From the system's threads, which never wait here.
    void Wake() {
        ++callers_;
        if (!isCutOff_ && wake_)
            wake_();
        --callers_;
    }

    /// From the system's input thread: takes bytes as they arrive.
    void Arrive(std::span<const std::uint8_t> bytes) {
        bool any = false;
        stream_.Feed(bytes, [&](const QuavixMidiIoMessage& message) {
            queue_.Put(message);
            any = true;
        });
        if (any && !isAwake_.exchange(true))
            Wake();
    }

    /// Forgets the beginning of a message. No input may be open.
    void StartOver() { stream_ = {}; }

    /// Takes the oldest message.
    std::int32_t Receive(QuavixMidiIoMessage& message) {
        if (queue_.TakeLost())
            return QUAVIX_MIDI_IO_LOST;
        if (queue_.Take(message))
            return QUAVIX_MIDI_IO_OK;
        // In this order: what arrives in between is either taken here or wakes again.
        isAwake_ = false;
        return queue_.Take(message) ? QUAVIX_MIDI_IO_OK : QUAVIX_MIDI_IO_EMPTY;
    }

    /// Drops all messages that wait.
    void Drop() {
        QuavixMidiIoMessage dropped{};
        while (queue_.Take(dropped)) {
        }
        queue_.TakeLost();
        isAwake_ = false;
    }

    /// Calls the `wake` function no more; waits for calls that are under way.
    void CutOff() {
        isCutOff_ = true;
        while (callers_ != 0)
            std::this_thread::yield();
    }

  private:
    std::function<void()> wake_;
    MessageQueue queue_;
    MidiStream stream_;
    std::atomic<bool> isAwake_{false};
    std::atomic<bool> isCutOff_{false};
    std::atomic<int> callers_{0};
};

}  // namespace quavix::midi_io
