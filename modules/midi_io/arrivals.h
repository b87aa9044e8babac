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

/// A queue of messages from the system's thread to the caller's. One thread puts, one takes; neither ever
/// waits.
class MessageQueue {
  public:
    /// Adds a message. If the queue is full, the message is lost, and TakeLost() reports it.
    void Put(const QuavixMidiIoMessage& message) {
        const std::uint32_t end = end_.load(std::memory_order_relaxed);
        if (end - begin_.load(std::memory_order_acquire) == Room) {
            lost_.store(true, std::memory_order_release);
            return;
        }
        messages_[end % Room] = message;
        end_.store(end + 1, std::memory_order_release);
    }

    /// Takes the oldest message. Returns false if there is none.
    bool Take(QuavixMidiIoMessage& message) {
        const std::uint32_t begin = begin_.load(std::memory_order_relaxed);
        if (begin == end_.load(std::memory_order_acquire))
            return false;
        message = messages_[begin % Room];
        begin_.store(begin + 1, std::memory_order_release);
        return true;
    }

    /// Returns true if messages were lost since the last call.
    bool TakeLost() { return lost_.exchange(false, std::memory_order_acq_rel); }

  private:
    // Enough for several seconds on the busiest line.
    static constexpr std::uint32_t Room = 0x4000;

    std::array<QuavixMidiIoMessage, Room> messages_{};
    std::atomic<std::uint32_t> begin_{0};
    std::atomic<std::uint32_t> end_{0};
    std::atomic<bool> lost_{false};
};

/// The messages and notifications from the system's threads. The object is shared with those threads, because
/// they may still run after the caller has gone.
class Arrivals {
  public:
    explicit Arrivals(std::function<void()> wake) : wake_(std::move(wake)) {}

    /// Calls the `wake` function. For the system's threads; never waits.
    void Wake() {
        ++callers_;
        if (!isCutOff_ && wake_)
            wake_();
        --callers_;
    }

    /// Takes bytes as they arrive. Called by the system's input thread.
    void Arrive(std::span<const std::uint8_t> bytes) {
        bool any = false;
        stream_.Feed(bytes, [&](const QuavixMidiIoMessage& message) {
            queue_.Put(message);
            any = true;
        });
        if (any && !isAwake_.exchange(true))
            Wake();
    }

    /// Forgets an incomplete message. No input may be open.
    void StartOver() { stream_ = {}; }

    /// Takes the oldest message. Returns QUAVIX_MIDI_IO_LOST once after a loss.
    std::int32_t Receive(QuavixMidiIoMessage& message) {
        if (queue_.TakeLost())
            return QUAVIX_MIDI_IO_LOST;
        if (queue_.Take(message))
            return QUAVIX_MIDI_IO_OK;
        // The order matters: a message that arrives in between is either taken here or wakes again.
        isAwake_ = false;
        return queue_.Take(message) ? QUAVIX_MIDI_IO_OK : QUAVIX_MIDI_IO_EMPTY;
    }

    /// Drops all waiting messages.
    void Drop() {
        QuavixMidiIoMessage dropped{};
        while (queue_.Take(dropped)) {
        }
        queue_.TakeLost();
        isAwake_ = false;
    }

    /// Stops calling the `wake` function, and waits for calls in progress.
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
