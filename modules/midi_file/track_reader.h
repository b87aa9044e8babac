// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "modules/midi_file/event_parser.h"
#include "modules/midi_file/file_bytes.h"
#include "modules/midi_file/messages.h"
#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

/// Reads the tracks of a file into the sink, one after the other.
///
/// The size that a track says it has is believed where something that can stand behind a track does stand
/// there. Otherwise the track goes on to its end-of-track event, and at most up to the next track. Each byte
/// is read at most three times, whatever the bytes are.
class TrackReader {
  public:
    TrackReader(const FileBytes& bytes, std::uint64_t wrapperEnd, const QuavixMidiFileSink& sink,
                Messages& messages)
        : bytes_(bytes), wrapperEnd_(wrapperEnd), sink_(sink), messages_(messages) {}

    /// Reads the track whose chunk begins at `chunk` and sets that to where the next one should begin.
    /// Anything but QUAVIX_MIDI_FILE_OK ends the file.
    std::int32_t Read(std::uint64_t& chunk);

    /// Tells the sink how far the reading is.
    std::int32_t Progress(std::uint64_t offset);

    /// The offset of the next track's chunk at or behind `from`; the end of the file where there is none.
    std::uint64_t NextTrack(std::uint64_t from);

    std::uint32_t Tracks() const { return tracks_; }

    /// Whether nothing but damage was found: no message that can be played, and the first fault is here.
    const char* OnlyDamage() const { return playable_ ? nullptr : damage_; }
    std::uint64_t DamageOffset() const { return damageOffset_; }
    std::uint32_t DamagedTrack() const { return damagedTrack_; }

  private:
    struct Extent {
        std::uint64_t Begin;
        /// Where the track ends by its own account.
        std::uint64_t DeclaredEnd;
        /// Whether that is to be believed.
        bool Trusted;
        /// Where it ends at the latest.
        std::uint64_t Limit;
    };

    Extent ExtentOf(std::uint64_t chunk);
    bool CanStandBehindATrack(std::uint64_t offset) const;
    bool GoesOnToAnEnd(const EventParser& parser, std::uint64_t limit) const;
    std::int32_t ReadEvents(const Extent& extent, std::uint64_t& next);
    std::int32_t CountEvent(std::uint64_t offset);
    std::int32_t Flush(std::uint64_t offset);
    std::uint64_t OffsetOf(const std::uint8_t* at) const {
        return static_cast<std::uint64_t>(at - bytes_.At(0));
    }
    void Damaged(const EventParser& parser);

    static constexpr std::size_t BlockSize = 1024;

    const FileBytes& bytes_;
    std::uint64_t wrapperEnd_;
    const QuavixMidiFileSink& sink_;
    Messages& messages_;
    std::array<QuavixMidiFileEvent, BlockSize> block_{};
    std::size_t inBlock_ = 0;
    std::uint32_t tracks_ = 0;
    std::uint32_t eventsOfTrack_ = 0;
    std::uint32_t events_ = 0;
    std::uint64_t nextProgress_ = 0;
    std::optional<std::uint64_t> knownTrack_;
    std::uint64_t knownFrom_ = 0;
    bool playable_ = false;
    const char* damage_ = nullptr;
    std::uint64_t damageOffset_ = 0;
    std::uint32_t damagedTrack_ = 0;
};

}  // namespace quavix::midi_file
