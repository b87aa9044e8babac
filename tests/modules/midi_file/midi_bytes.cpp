// SPDX-License-Identifier: MIT
#include "modules/midi_file/midi_bytes.h"

#include <array>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace quavix::test {
namespace {

Reading& Of(void* user) {
    return *static_cast<Reading*>(user);
}

std::int32_t TakeHeader(void* user, const QuavixMidiFileHeader* header) {
    EXPECT_TRUE(Of(user).Tracks.empty()) << "the header comes first";
    Of(user).Header = *header;
    return 0;
}

std::int32_t TakeTrack(void* user, std::uint32_t track, std::uint64_t offset) {
    EXPECT_EQ(track, Of(user).Tracks.size()) << "tracks come in order";
    Of(user).Tracks.push_back({offset, {}});
    return 0;
}

std::int32_t TakeEvents(void* user, std::uint32_t track, const QuavixMidiFileEvent* events,
                        std::size_t count) {
    EXPECT_EQ(track + 1, Of(user).Tracks.size()) << "events belong to the track that is being read";
    auto& into = Of(user).Tracks.back().Events;
    into.insert(into.end(), events, events + count);
    return 0;
}

void TakeRemark(void* user, const char* text) {
    Of(user).Remarks.emplace_back(text);
}

}  // namespace

Bytes operator+(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Bytes Text(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes U16(std::uint32_t number) {
    return {static_cast<std::uint8_t>(number >> 8U), static_cast<std::uint8_t>(number)};
}

Bytes U32(std::uint32_t number) {
    return U16(number >> 16U) + U16(number);
}

Bytes VarLen(std::uint32_t number) {
    Bytes bytes = {static_cast<std::uint8_t>(number & 0x7FU)};
    while ((number >>= 7U) > 0)
        bytes.insert(bytes.begin(), static_cast<std::uint8_t>(number | 0x80U));
    return bytes;
}

Bytes Header(std::uint32_t format, std::uint32_t tracks, std::uint32_t division) {
    return Text("MThd") + U32(6) + U16(format) + U16(tracks) + U16(division);
}

Bytes TrackSaying(std::uint32_t declaredSize, const Bytes& content) {
    return Text("MTrk") + U32(declaredSize) + content;
}

Bytes Track(const Bytes& events) {
    const Bytes content = events + EndOfTrack;
    return TrackSaying(static_cast<std::uint32_t>(content.size()), content);
}

Bytes File(std::uint32_t format, std::initializer_list<Bytes> tracks) {
    Bytes file = Header(format, static_cast<std::uint32_t>(tracks.size()), 96);
    for (const Bytes& track : tracks)
        file = std::move(file) + track;
    return file;
}

std::string ReadTrack::Text() const {
    std::string text;
    for (const QuavixMidiFileEvent& event : Events) {
        text += fmt::format("{}{}:{:02X} {:02X} {:02X}", text.empty() ? "" : ", ", event.Tick, event.Status,
                            event.Data1, event.Data2);
        if (event.Value != 0)
            text += fmt::format("={}", event.Value);
    }
    return text;
}

std::string Reading::Text() const {
    std::string text;
    for (std::size_t i = 0; i < Tracks.size(); ++i)
        text += (i == 0 ? "" : " | ") + Tracks[i].Text();
    return text;
}

std::size_t Reading::EventCount() const {
    std::size_t count = 0;
    for (const ReadTrack& track : Tracks)
        count += track.Events.size();
    return count;
}

Reading Read(std::span<const std::uint8_t> bytes) {
    Reading reading;
    const QuavixMidiFileSink sink{.User = &reading,
                                  .Header = &TakeHeader,
                                  .Track = &TakeTrack,
                                  .Events = &TakeEvents,
                                  .Progress = nullptr,
                                  .Remark = &TakeRemark};
    std::array<char, QUAVIX_MIDI_FILE_DETAIL_SIZE> detail{};
    // Bytes of their own, so that a look behind their end is seen.
    const Bytes exactly(bytes.begin(), bytes.end());
    reading.Result = QuavixMidiFileRead(exactly.data(), exactly.size(), &sink, detail.data(), detail.size());
    reading.Detail = detail.data();
    EXPECT_EQ(reading.Detail.empty(), reading.Result == QUAVIX_MIDI_FILE_OK) << "a failure says why";
    return reading;
}

}  // namespace quavix::test
