// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace quavix {

/// A channel message: Status 0x80..0xEF, data bytes 0..127. Data2 is 0 if the message has only one data byte.
struct MidiMessage {
    std::uint8_t Status = 0;
    std::uint8_t Data1 = 0;
    std::uint8_t Data2 = 0;

    bool operator==(const MidiMessage&) const = default;
};

/// Gone: the open device has vanished. The state lasts until the device is closed or another is opened.
enum class MidiDeviceState { Closed, Open, Gone };

/// Busy: the output is full, and the message was not sent; it can be sent again later. NotOpen: no device is
/// open, or it has vanished. NoMessage: not a channel message.
enum class MidiSendResult { Sent, Busy, NotOpen, NoMessage };

/// A MIDI direction: the common part of input and output.
///
/// Thread: the user-interface thread. No call raises an error or runs handlers. Calls return at once, but
/// opening and closing usually take 0.1 to 0.2 s, and up to five seconds if the MIDI system is overloaded.
class MidiPort {
  public:
    virtual ~MidiPort() = default;

    /// Loads the MIDI module if necessary. Returns an empty text, or the reason as a sentence for the user if
    /// that is impossible. Without the module there are no devices.
    virtual std::string Prepare() = 0;

    /// Returns the MIDI system in use, e.g. "JACK"; empty before the first search for devices, when both
    /// directions are closed, and if there is none.
    virtual std::string SystemName() = 0;

    /// Searches for devices again and numbers them from 0. Returns 0 if there is no MIDI system; Problem()
    /// then has the reason.
    virtual std::int32_t DeviceCount() = 0;

    /// Returns the name of a device by its number in the last DeviceCount(); empty for any other number.
    virtual std::string DeviceName(std::int32_t device) = 0;

    /// Closes the open device and opens the one with that number. Returns false, with the reason in
    /// Problem(), if that fails.
    virtual bool Open(std::int32_t device) = 0;

    /// Closes the device after all sent messages have gone out, and leaves the MIDI system. Does nothing if
    /// it is closed. To be called before the program ends, even after a mere search.
    virtual void Close() = 0;

    virtual MidiDeviceState State() = 0;

    /// Returns the reason of the last failure as a sentence; may be empty.
    virtual std::string Problem() = 0;
};

/// MIDI output. The device VirtualDevice, not included in DeviceCount(), is a port that other programs
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
        /// Messages were lost because they were not taken in time, so held notes may never end. Reported
        /// once.
        Lost
    };

    /// Takes the oldest arrived message. Messages from before a device vanished can still be taken.
    virtual Received Receive(MidiMessage& message) = 0;

    /// Sets the handler that runs as a window event, on the user-interface thread, when messages arrive after
    /// Receive() found none, and when the state of the device may have changed. An empty handler switches
    /// this off.
    virtual void SetHandler(std::function<void()> handler) = 0;
};

}  // namespace quavix
