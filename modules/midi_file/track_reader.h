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
/// A track's declared size is trusted if the end of the file or another chunk follows there. Otherwise the
/// track ends at its end-of-track event, and at the next track at the latest. Each byte is read at most three
/// times, even in damaged files.
class TrackReader {
  public:
    TrackReader(const FileBytes& bytes, std::uint64_t wrapperEnd, const QuavixMidiFileSink& sink,
                Messages& messages)
        : bytes_(bytes), wrapperEnd_(wrapperEnd), sink_(sink), messages_(messages) {}

    // Functions that return false have reported a failure, which ends the reading.

    /// Reads the track whose chunk begins at `chunk`, and sets `chunk` to the expected start of the next one.
    bool Read(std::uint64_t& chunk);

    /// Reports the reading position to the sink.
    bool Progress(std::uint64_t offset);

    /// Ends the reading. Fails if there was damage and no track holds a channel message.
    bool Finish();

    /// Returns the offset of the first track chunk at `from` or later; without one, the file's size.
    std::uint64_t NextTrack(std::uint64_t from);

    std::uint32_t Tracks() const { return tracks_; }

  private:
    struct Extent {
        std::uint64_t Begin;
        /// End of the track according to its declared size.
        std::uint64_t DeclaredEnd;
        /// True if the declared size is trusted.
        bool Trusted;
        /// Latest possible end of the track.
        std::uint64_t Limit;
    };

    Extent ExtentOf(std::uint64_t chunk);
    bool CanStandBehindATrack(std::uint64_t offset) const;
    bool GoesOnToAnEnd(const EventParser& parser, std::uint64_t limit) const;
    bool ReadEvents(const Extent& extent, std::uint64_t& next);
    bool CountEvent(std::uint64_t offset);
    bool Flush(std::uint64_t offset);
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
