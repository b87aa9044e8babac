// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <RtMidi.h>

namespace quavix::midi_io {

/// A MIDI system of the machine: the functions that RtMidi lacks. Calls come from one thread.
class MidiSystem {
  public:
    virtual ~MidiSystem() = default;

    virtual RtMidi::Api Api() const = 0;
    virtual const char* Name() const = 0;

    /// Returns true while the system runs. When it has died, all open devices are gone. A dead system, and
    /// RtMidi objects that were connected to it, must not be destroyed.
    virtual bool IsAlive() = 0;

    /// Returns all ports, including those of this process.
    virtual std::vector<std::string> Ports() = 0;

    /// Returns true if both ports exist and are connected; with an empty `device`, if `own` exists.
    virtual bool AreConnected(const std::string& own, const std::string& device) = 0;

    /// Like AreConnected(), but waits a while, because a new connection may take time to show.
    virtual bool BecomeConnected(const std::string& own, const std::string& device) = 0;

    /// Returns a number that changes when ports may have vanished.
    virtual unsigned Removals() = 0;

    /// Returns true if a message of `size` bytes can be sent without waiting. The caller then has to send it.
    virtual bool TakesMessage(std::size_t size) = 0;

    /// Waits, for a limited time, until sent messages have left and callbacks in progress have returned. Call
    /// it before a port is closed: closing drops messages that have not left, and is unsafe while the system
    /// tells its clients about removed ports. Call it again before the RtMidi object is destroyed: RtMidi
    /// frees an output's memory before it ends the thread that uses it.
    virtual void Settle() = 0;
};

/// Called from any thread when ports have vanished or the system has died.
using Changed = std::function<void()>;

/// Returns null, with the reason in `problem`, if the system is not running.
std::unique_ptr<MidiSystem> ConnectToAlsa(std::string& problem);
std::unique_ptr<MidiSystem> ConnectToJack(const Changed& changed, std::string& problem);

}  // namespace quavix::midi_io
