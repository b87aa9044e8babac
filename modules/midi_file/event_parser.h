// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

constexpr std::uint8_t MetaStatus = 0xFF;
constexpr std::uint8_t TempoType = 0x51;
constexpr std::uint8_t EndOfTrackType = 0x2F;

/// Parses the bytes of a track into events, one by one. Running status is kept across meta and exclusive
/// events, because many files rely on it.
class EventParser {
  public:
    enum class Step { Event, Over, Damage };

    EventParser(const std::uint8_t* at, const std::uint8_t* end) : at_(at), end_(end) {}

    /// Reads the next event. Returns Over at the end of the bytes, and Damage, with the reason in Fault(), if
    /// the bytes are no event.
    Step Next(QuavixMidiFileEvent& event);

    /// Returns the position after the last event; after damage, the position of the faulty byte.
    const std::uint8_t* At() const { return at_; }
    const char* Fault() const { return fault_; }

    /// Moves the end of the track.
    void SetEnd(const std::uint8_t* end) { end_ = end; }

    static bool IsEndOfTrack(const QuavixMidiFileEvent& event) {
        return event.Status == MetaStatus && event.Data1 == EndOfTrackType;
    }

  private:
    bool ReadNumber(std::uint32_t& number);
    bool ReadContent(QuavixMidiFileEvent& event);
    bool ReadDataBytes(QuavixMidiFileEvent& event, int count);
    Step Damaged(const char* fault) {
        fault_ = fault;
        return Step::Damage;
    }

    const std::uint8_t* at_;
    const std::uint8_t* end_;
    std::uint64_t tick_ = 0;
    std::uint8_t running_ = 0;
    const char* fault_ = "";
};

/// Reads a variable-length number: seven bits per byte, at most four bytes.
inline bool EventParser::ReadNumber(std::uint32_t& number) {
    constexpr int MostBytes = 4;
    number = 0;
    const std::uint8_t* at = at_;
    for (int i = 0; i < MostBytes && at < end_; ++i) {
        const std::uint8_t byte = *at++;
        number = number << 7U | (byte & 0x7FU);
        if (byte < 0x80) {
            at_ = at;
            return true;
        }
    }
    fault_ = end_ - at_ >= MostBytes ? "a number of more than four bytes" : "an event that is cut off";
    return false;
}

/// Reads a meta or exclusive event: its length, or its tempo, into Value. Skips the content.
inline bool EventParser::ReadContent(QuavixMidiFileEvent& event) {
    const std::uint8_t* const start = at_;
    std::uint32_t length = 0;
    if (!ReadNumber(length))
        return false;
    if (length > static_cast<std::uint64_t>(end_ - at_)) {
        at_ = start;
        fault_ = "an event that is longer than its track";
        return false;
    }
    event.Value = length;
    if (event.Status == MetaStatus && event.Data1 == TempoType) {
        constexpr std::uint32_t TempoBytes = 3;
        event.Value = length < TempoBytes ? 0U
                                          : static_cast<std::uint32_t>(at_[0]) << 16U |
                                                static_cast<std::uint32_t>(at_[1]) << 8U | at_[2];
    }
    at_ += length;
    return true;
}

inline bool EventParser::ReadDataBytes(QuavixMidiFileEvent& event, int count) {
    if (end_ - at_ < count) {
        fault_ = "an event that is cut off";
        return false;
    }
    if (count > 0)
        event.Data1 = *at_++;
    if (count > 1)
        event.Data2 = *at_++;
    return true;
}

inline EventParser::Step EventParser::Next(QuavixMidiFileEvent& event) {
    if (at_ == end_)
        return Step::Over;
    std::uint32_t delta = 0;
    if (!ReadNumber(delta))
        return Step::Damage;
    if (at_ == end_)
        return Damaged("an event that is cut off");
    tick_ += delta;
    event = {};
    event.Tick = tick_;
    if (*at_ >= 0x80)
        event.Status = *at_++;
    else if (running_ != 0)
        event.Status = running_;
    else
        return Damaged("a data byte where a status byte was expected");

    bool whole = true;
    if (event.Status < 0xF0) {
        running_ = event.Status;
        const bool oneByte = (event.Status & 0xE0U) == 0xC0;  // program changes and channel pressure
        whole = ReadDataBytes(event, oneByte ? 1 : 2);
    } else if (event.Status == MetaStatus) {
        whole = ReadDataBytes(event, 1) && ReadContent(event);
    } else if (event.Status == 0xF0 || event.Status == 0xF7) {
        whole = ReadContent(event);
    } else {
        // System messages don't belong in a file, but their lengths are known.
        whole = ReadDataBytes(
            event, event.Status == 0xF2 ? 2 : (event.Status == 0xF1 || event.Status == 0xF3 ? 1 : 0));
    }
    return whole ? Step::Event : Step::Damage;
}

}  // namespace quavix::midi_file
