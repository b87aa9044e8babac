// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "midi/midi_event_list.h"
#include "modules/midi_file/midi_file_module.h"

// Reads any bytes as a MIDI file. The reading must end in one of the module's results, and the calls of the
// sink must keep the promises of the interface. The events are then put into a list in order of time.
namespace {

void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

struct Seen {
    std::uint32_t CallsLeft;
    bool Stopped = false;
    bool Header = false;
    std::uint32_t Tracks = 0;
    std::uint64_t Tick = 0;
    std::uint32_t EventsOfTrack = 0;
    std::uint32_t Events = 0;
    std::uint32_t Remarks = 0;
    quavix::MidiFileContent Content{};

    std::int32_t Stop() {
        Require(!Stopped, "nothing is called after a stop");
        Stopped = --CallsLeft == 0;
        return Stopped ? 1 : 0;
    }
};

Seen& Of(void* user) {
    return *static_cast<Seen*>(user);
}

std::int32_t TakeHeader(void* user, const QuavixMidiFileHeader* header) {
    Require(!Of(user).Header && Of(user).Tracks == 0, "the header comes once and first");
    Of(user).Header = true;
    Require((header->TicksPerQuarter > 0) != (header->TicksPerSecondNumerator > 0), "times are of one kind");
    Require(header->TicksPerQuarter <= 32767 && header->TicksPerSecondDenominator > 0,
            "times can be computed");
    quavix::MidiFileContent& content = Of(user).Content;
    content.Format = header->Format;
    content.TicksPerQuarter = header->TicksPerQuarter;
    content.TicksPerSecondNumerator = header->TicksPerSecondNumerator;
    content.TicksPerSecondDenominator = header->TicksPerSecondDenominator;
    return Of(user).Stop();
}

std::int32_t TakeTrack(void* user, std::uint32_t track, std::uint64_t) {
    Seen& seen = Of(user);
    Require(track == seen.Tracks && track < QUAVIX_MIDI_FILE_TRACKS, "tracks come in order");
    ++seen.Tracks;
    seen.Tick = 0;
    seen.EventsOfTrack = 0;
    seen.Content.Tracks.emplace_back();
    return seen.Stop();
}

std::int32_t TakeEvents(void* user, std::uint32_t track, const QuavixMidiFileEvent* events,
                        std::size_t count) {
    Seen& seen = Of(user);
    Require(track + 1 == seen.Tracks && count > 0, "events belong to the track that is read");
    for (const QuavixMidiFileEvent* event = events; event != events + count; ++event) {
        Require(event->Tick >= seen.Tick, "time never falls");
        Require(event->Status >= 0x80, "every event has a status");
        seen.Tick = event->Tick;
        seen.Content.Tracks.back().push_back(
            {event->Tick, event->Value, event->Status, event->Data1, event->Data2});
        ++seen.Events;
        ++seen.EventsOfTrack;
    }
    Require(seen.EventsOfTrack <= QUAVIX_MIDI_FILE_TRACK_EVENTS && seen.Events <= QUAVIX_MIDI_FILE_EVENTS,
            "the limits hold");
    return seen.Stop();
}

std::int32_t TakeProgress(void* user, std::uint64_t done, std::uint64_t total) {
    Require(done <= total, "progress is a share");
    return Of(user).Stop();
}

void TakeRemark(void* user, const char* text) {
    Require(std::strlen(text) < QUAVIX_MIDI_FILE_DETAIL_SIZE && ++Of(user).Remarks <= 100,
            "remarks are few and short");
}

/// `callsLeft` is the number of texts after which the decoding is stopped (0: not at all).
void Decode(quavix::MidiFileContent content, std::uint32_t events, std::uint32_t callsLeft) {
    bool stopped = false;
    const auto list = quavix::DecodeMidiFile(std::move(content), [&](const std::string& text) {
        Require(!stopped && !text.empty(), "nothing is told after a stop");
        stopped = callsLeft > 0 && --callsLeft == 0;
        return !stopped;
    });
    Require(list.has_value() != stopped, "a stop is a stop");
    if (!list)
        return;
    Require(list->size() == events, "no event is lost");
    double time = 0;
    for (const quavix::TimedMidiEvent& event : *list) {
        Require(event.AbsoluteMs >= time && std::isfinite(event.AbsoluteMs), "the list is in order of time");
        time = event.AbsoluteMs;
    }
}

}  // namespace

/// The first byte is the number of calls after which the reading is stopped (0: not at all), the second the
/// same for the decoding; the rest is the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Stops = 2;
    if (size < Stops)
        return 0;
    Seen seen{data[0]};
    const QuavixMidiFileSink sink{&seen, &TakeHeader, &TakeTrack, &TakeEvents, &TakeProgress, &TakeRemark};
    std::array<char, QUAVIX_MIDI_FILE_DETAIL_SIZE> detail{};
    detail.back() = 'x';
    const std::int32_t result =
        QuavixMidiFileRead(data + Stops, size - Stops, &sink, detail.data(), detail.size() - 1);
    Require(detail.back() == 'x' && std::strlen(detail.data()) < detail.size() - 2,
            "details are short enough");
    Require((detail[0] == '\0') == (result == QUAVIX_MIDI_FILE_OK), "a failure says why");
    Require((result == QUAVIX_MIDI_FILE_STOPPED) == seen.Stopped, "a stop is a stop");
    Require(result != QUAVIX_MIDI_FILE_OK || (seen.Header && seen.Tracks > 0),
            "a file has a header and a track");
    if (result == QUAVIX_MIDI_FILE_OK)
        Decode(std::move(seen.Content), seen.Events, data[1]);
    return 0;
}
