// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <RtMidi.h>

namespace quavix::midi_io {

/// A MIDI system of the machine, as far as RtMidi doesn't show it. Calls come from one thread.
class MidiSystem {
  public:
    virtual ~MidiSystem() = default;

    virtual RtMidi::Api Api() const = 0;
    virtual const char* Name() const = 0;

    /// Whether it still runs. Once it doesn't, everything that was open is gone. A system that has died must
    /// not be destroyed, nor must RtMidi objects that were connected to it.
    virtual bool IsAlive() = 0;

    /// All ports, those of this process too.
    virtual std::vector<std::string> Ports() = 0;

    /// Whether two ports are connected; ports that are not there are not. With an empty `device`, whether
    /// `own` is there.
    virtual bool AreConnected(const std::string& own, const std::string& device) = 0;

    /// The same, a moment after they were connected: that may take the system a while to show.
    virtual bool BecomeConnected(const std::string& own, const std::string& device) = 0;

    /// A number that changes when ports may have vanished.
    virtual unsigned Removals() = 0;

    /// Whether a message of `size` bytes can be sent without waiting, which is then taken to happen.
    virtual bool TakesMessage(std::size_t size) = 0;

    /// Waits until what was sent has left, as it is lost with the port it was sent to.
    virtual void LetMessagesLeave() = 0;
};

/// Called from any thread when ports have vanished or the system has.
using Changed = std::function<void()>;

/// Null, with `problem` saying why, where the system isn't there.
std::unique_ptr<MidiSystem> ConnectToAlsa(std::string& problem);
std::unique_ptr<MidiSystem> ConnectToJack(const Changed& changed, std::string& problem);

}  // namespace quavix::midi_io
