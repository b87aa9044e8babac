// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

#include "modules/midi_io/midi_io_module.h"

namespace quavix::midi_io {

/// Assembles channel messages from the bytes of a MIDI line, however the bytes are divided. Running status is
/// resolved, exclusive messages are left out, real-time messages may come anywhere, and a message interrupted
/// by a status byte is dropped.
class MidiStream {
  public:
    /// Passes every completed message to `deliver`.
    template <typename Deliver>
    void Feed(std::span<const std::uint8_t> bytes, Deliver deliver) {
        for (const std::uint8_t byte : bytes) {
            if (Take(byte))
                deliver(message_);
        }
    }

    /// Returns true for the status of program changes and channel pressure.
    static bool HasOneDataByte(std::uint8_t status) { return (status & 0xE0U) == 0xC0; }

  private:
    static constexpr std::uint8_t FirstStatus = 0x80;
    static constexpr std::uint8_t FirstSystemStatus = 0xF0;
    static constexpr std::uint8_t FirstRealTimeStatus = 0xF8;

    /// Returns true if the byte completes a message.
    bool Take(std::uint8_t byte) {
        if (byte >= FirstRealTimeStatus)
            return false;
        if (byte >= FirstStatus) {
            message_ = {byte, 0, 0};
            hasData1_ = false;
            return false;
        }
        // Data bytes of system messages, and those before the first status byte, are ignored.
        if (message_.Status < FirstStatus || message_.Status >= FirstSystemStatus)
            return false;
        const bool oneByte = HasOneDataByte(message_.Status);
        if (oneByte || !hasData1_) {
            message_.Data1 = byte;
            message_.Data2 = 0;
        } else {
            message_.Data2 = byte;
        }
        hasData1_ = !oneByte && !hasData1_;
        return !hasData1_;
    }

    QuavixMidiIoMessage message_{};
    bool hasData1_ = false;
};

}  // namespace quavix::midi_io
