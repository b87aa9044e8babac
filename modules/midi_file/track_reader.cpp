// SPDX-License-Identifier: MIT
#include "modules/midi_file/track_reader.h"

#include <algorithm>
#include <cinttypes>
#include <utility>

namespace quavix::midi_file {

bool TrackReader::Progress(std::uint64_t offset) {
    constexpr std::uint64_t ProgressStep = 0x10000;
    if (sink_.Progress == nullptr || offset < nextProgress_)
        return true;
    nextProgress_ = offset + ProgressStep;
    return sink_.Progress(sink_.User, offset, bytes_.Size()) == 0 || messages_.Stop();
}

std::uint64_t TrackReader::NextTrack(std::uint64_t from) {
    // The last search result is reused, so that a file with many wrong track sizes is not slow to read.
    if (!knownTrack_ || from < knownFrom_ || from > *knownTrack_) {
        knownTrack_ = bytes_.Find(TrackName, from, bytes_.Size()).value_or(bytes_.Size());
        knownFrom_ = from;
    }
    return *knownTrack_;
}

bool TrackReader::CanStandBehindATrack(std::uint64_t offset) const {
    return offset == bytes_.Size() || offset == wrapperEnd_ || bytes_.LooksLikeChunk(offset) ||
           bytes_.Is(offset, TrackName);
}

TrackReader::Extent TrackReader::ExtentOf(std::uint64_t chunk) {
    Extent extent{};
    extent.Begin = chunk + ChunkHeadSize;
    extent.DeclaredEnd = extent.Begin + bytes_.U32(chunk + ChunkNameSize);
    extent.Trusted = extent.DeclaredEnd <= bytes_.Size() && CanStandBehindATrack(extent.DeclaredEnd);
    extent.Limit = extent.Trusted ? extent.DeclaredEnd : NextTrack(extent.Begin);
    return extent;
}

bool TrackReader::GoesOnToAnEnd(const EventParser& parser, std::uint64_t limit) const {
    EventParser ahead = parser;
    ahead.SetEnd(bytes_.At(limit));
    QuavixMidiFileEvent event{};
    while (ahead.Next(event) == EventParser::Step::Event) {
        if (EventParser::IsEndOfTrack(event))
            return true;
    }
    return false;
}

bool TrackReader::Flush(std::uint64_t offset) {
    const std::size_t count = std::exchange(inBlock_, 0);
    if (count > 0 && sink_.Events(sink_.User, tracks_ - 1, block_.data(), count) != 0)
        return messages_.Stop();
    return Progress(offset);
}

bool TrackReader::CountEvent(std::uint64_t offset) {
    if (++eventsOfTrack_ > QUAVIX_MIDI_FILE_TRACK_EVENTS)
        return messages_.Fail(QUAVIX_MIDI_FILE_TOO_MANY_EVENTS, offset,
                              "track %" PRIu32 " has more than %u events.", tracks_,
                              QUAVIX_MIDI_FILE_TRACK_EVENTS);
    return ++events_ <= QUAVIX_MIDI_FILE_EVENTS ||
           messages_.Fail(QUAVIX_MIDI_FILE_TOO_MANY_EVENTS, offset, "the file has more than %u events.",
                          QUAVIX_MIDI_FILE_EVENTS);
}

void TrackReader::Damaged(const EventParser& parser) {
    const std::uint64_t offset = OffsetOf(parser.At());
    messages_.Remark(offset, "track %" PRIu32 " ends here, at %s.", tracks_, parser.Fault());
    if (damage_ == nullptr) {
        damage_ = parser.Fault();
        damageOffset_ = offset;
        damagedTrack_ = tracks_;
    }
}

bool TrackReader::ReadEvents(const Extent& extent, std::uint64_t& next) {
    // An untrusted size still applies if an event ends there and no end-of-track event follows.
    bool atDeclaredEnd = !extent.Trusted && extent.DeclaredEnd < extent.Limit;
    const std::uint8_t* const declaredEnd = atDeclaredEnd ? bytes_.At(extent.DeclaredEnd) : nullptr;
    EventParser parser(bytes_.At(extent.Begin), bytes_.At(extent.Limit));
    for (;;) {
        if (atDeclaredEnd && parser.At() >= declaredEnd) {
            atDeclaredEnd = false;
            if (parser.At() == declaredEnd && !GoesOnToAnEnd(parser, extent.Limit)) {
                next = extent.DeclaredEnd;
                return true;
            }
            messages_.Remark(extent.DeclaredEnd, "track %" PRIu32 " should end here, but goes on.", tracks_);
        }
        QuavixMidiFileEvent& event = block_[inBlock_];
        const EventParser::Step step = parser.Next(event);
        const std::uint64_t offset = OffsetOf(parser.At());
        if (step != EventParser::Step::Event) {
            next = extent.Limit;
            if (step == EventParser::Step::Damage) {
                Damaged(parser);
                next = std::min(next, NextTrack(offset));
            }
            return true;
        }
        if (!CountEvent(offset))
            return false;
        playable_ |= event.Status < 0xF0;
        const bool end = EventParser::IsEndOfTrack(event);
        if (++inBlock_ == BlockSize && !Flush(offset))
            return false;
        if (end) {
            next = extent.Trusted && !bytes_.Is(offset, TrackName) ? extent.Limit : offset;
            if (next != offset)
                messages_.Remark(offset, "track %" PRIu32 " ends before its last byte.", tracks_);
            return true;
        }
    }
}

bool TrackReader::Read(std::uint64_t& chunk) {
    const Extent extent = ExtentOf(chunk);
    ++tracks_;
    eventsOfTrack_ = 0;
    if (sink_.Track != nullptr && sink_.Track(sink_.User, tracks_ - 1, extent.Begin) != 0)
        return messages_.Stop();
    if (extent.DeclaredEnd > bytes_.Size()) {
        messages_.Remark(chunk + ChunkNameSize,
                         "track %" PRIu32 " should have %" PRIu64 " bytes, but the file ends.", tracks_,
                         extent.DeclaredEnd - extent.Begin);
    }
    return ReadEvents(extent, chunk) && Flush(chunk);
}

bool TrackReader::Finish() {
    return playable_ || damage_ == nullptr ||
           messages_.Fail(Unreadable, damageOffset_,
                          "track %" PRIu32 " has %s, and nothing else in the file can be played.",
                          damagedTrack_, damage_);
}

}  // namespace quavix::midi_file
