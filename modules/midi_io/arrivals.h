// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <span>
#include <thread>
#include <utility>

#include "modules/midi_io/message_queue.h"
#include "modules/midi_io/midi_stream.h"

namespace quavix::midi_io {

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
            return QuavixMidiIoLost;
        if (queue_.Take(message))
            return QuavixMidiIoOk;
        // In this order: what arrives in between is either taken here or wakes again.
        isAwake_ = false;
        return queue_.Take(message) ? QuavixMidiIoOk : QuavixMidiIoEmpty;
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
