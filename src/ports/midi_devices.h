// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quavix {

/// A channel message: Status 0x80..0xEF, data bytes 0..127. Messages of one data byte have Data2 = 0.
struct MidiMessage {
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool operator==(const MidiMessage&) const = default;
};

/// Gone: was open and has vanished. It stays so until it is closed or a device is opened.
enum class MidiDeviceState { Closed, Open, Gone };

/// Busy: nothing was sent, as much is still on its way; the same message can be sent later. NotOpen: no
/// device is open and there. NoMessage: not a channel message.
enum class MidiSendResult { Sent, Busy, NotOpen, NoMessage };

/// What both directions have in common.
///
/// Thread: the user-interface thread. Nothing is raised, and no call runs handlers. Calls return at once, but
/// opening and closing may take some milliseconds, and closing up to a second where the MIDI system has died.
class MidiPort {
  public:
    virtual ~MidiPort() = default;

    /// Makes ready what stands behind the port, where it isn't; empty, or a sentence for the user why that is
    /// impossible. Without it there are no devices.
    virtual std::string Prepare() = 0;

    /// The MIDI system in use, e.g. "JACK"; empty before the first search for devices, when both directions
    /// have been closed, and where there is none.
    virtual std::string SystemName() = 0;

    /// Searches for devices anew and numbers them from 0. None where there is no MIDI system, which Problem()
    /// tells.
    virtual std::int32_t DeviceCount() = 0;

    /// Name of a device as the last DeviceCount() has numbered it; empty for any other number.
    virtual std::string DeviceName(std::int32_t device) = 0;

    /// Closes what was open and opens the device with that number. False: it could not be, which Problem()
    /// tells.
    virtual bool Open(std::int32_t device) = 0;

    /// Closes the device when all that was sent has gone out. Closed already is fine. To be called before the
    /// program ends also where only a search was made: it is what leaves the MIDI system.
    virtual void Close() = 0;

    virtual MidiDeviceState State() = 0;

    /// Why the last call that failed has failed, as a sentence; may be empty.
    virtual std::string Problem() = 0;
};

/// MIDI output. Device VirtualDevice, which DeviceCount() doesn't count, is a port that other programs
/// connect to.
class MidiOutPort : public MidiPort {
  public:
    static constexpr std::int32_t VirtualDevice = -1;

    /// Sends one message at once.
    virtual MidiSendResult Send(const MidiMessage& message) = 0;
};

/// MIDI input. Channel messages arrive whole and in order; all others are left out.
class MidiInPort : public MidiPort {
  public:
    enum class Received {
        Message,
        None,
        /// Messages were lost, as they were not taken in time: held notes may never end. Told once.
        Lost
    };

    /// Takes the oldest message that has arrived. Those that came before a device vanished can still be
    /// taken.
    virtual Received Receive(MidiMessage& message) = 0;

    /// `handler` runs as a window event, on the user-interface thread, when messages have arrived after
    /// Receive() had found none, and when the state of the device may have changed. An empty one switches
    /// that off.
    virtual void SetHandler(std::function<void()> handler) = 0;
};

}  // namespace quavix
