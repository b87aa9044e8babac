// SPDX-License-Identifier: MIT
// Results of reading well-formed files.
#include <limits>

#include <gmock/gmock.h>

#include "modules/midi_file/midi_bytes.h"

namespace quavix::test {
namespace {

using testing::IsEmpty;

TEST(MidiFile, ATracksEventsComeWithTheirTimesAndBytes) {
    const Reading file = Read(File(0, {Track(NoteOn + NoteOff)}));
    EXPECT_EQ(file.Result, QUAVIX_MIDI_FILE_OK);
    EXPECT_EQ(file.Text(), "0:90 3C 60, 96:80 3C 00, 96:FF 2F 00");
    EXPECT_THAT(file.Remarks, IsEmpty());
    EXPECT_EQ(file.Header.Format, 0U);
    EXPECT_EQ(file.Header.DeclaredTracks, 1U);
    EXPECT_EQ(file.Header.TicksPerQuarter, 96U);
    EXPECT_EQ(file.Header.TicksPerSecondNumerator, 0U);
}

TEST(MidiFile, TracksOfFormatsOneAndTwoComeInTheFilesOrder) {
    for (const std::uint32_t format : {1U, 2U}) {
        const Reading file = Read(File(format, {Track({}), Track(NoteOff), Track(NoteOn)}));
        EXPECT_EQ(file.Header.Format, format);
        EXPECT_EQ(file.Text(), "0:FF 2F 00 | 96:80 3C 00, 96:FF 2F 00 | 0:90 3C 60, 0:FF 2F 00");
        EXPECT_EQ(file.Tracks[0].Offset, 22U);
        EXPECT_THAT(file.Remarks, IsEmpty());
    }
}

TEST(MidiFile, RunningStatusStandsForTheStatusBefore) {
    const Reading file = Read(File(0, {Track({0, 0x93, 60, 1, 1, 62, 2, 1, 64, 0, 1, 0xC3, 5, 1, 6})}));
    EXPECT_EQ(file.Text(), "0:93 3C 01, 1:93 3E 02, 2:93 40 00, 3:C3 05 00, 4:C3 06 00, 4:FF 2F 00");
}

TEST(MidiFile, EveryChannelMessageHasItsLength) {
    const Reading file = Read(File(0, {Track({0, 0x80, 1, 2,    0, 0x91, 3,    4,  0, 0xA2, 5,  6, 0, 0xB3,
                                              7, 8,    0, 0xC4, 9, 0,    0xD5, 10, 0, 0xEF, 11, 12})}));
    EXPECT_EQ(file.Text(),
              "0:80 01 02, 0:91 03 04, 0:A2 05 06, 0:B3 07 08, 0:C4 09 00, 0:D5 0A 00, "
              "0:EF 0B 0C, 0:FF 2F 00");
}

TEST(MidiFile, DeltaTimesHaveOneToFourBytes) {
    const Reading file =
        Read(File(0, {Track(VarLen(0x7F) + Bytes{0x90, 1, 1} + VarLen(0x80) + Bytes{2, 1} + VarLen(0x4000) +
                            Bytes{3, 1} + VarLen(0x0FFFFFFF) + Bytes{4, 1})}));
    EXPECT_EQ(file.Text(),
              "127:90 01 01, 255:90 02 01, 16639:90 03 01, 268452094:90 04 01, 268452094:FF 2F 00");
}

TEST(MidiFile, TimesGoOnBeyondThirtyTwoBits) {
    Bytes events;
    for (int i = 0; i < 20; ++i)
        events = std::move(events) + VarLen(0x0FFFFFFF) + Bytes{0x90, 60, 1};
    const Reading file = Read(File(0, {Track(events)}));
    ASSERT_EQ(file.EventCount(), 21U);
    EXPECT_EQ(file.Tracks[0].Events.back().Tick, 20ULL * 0x0FFFFFFF);
    EXPECT_GT(file.Tracks[0].Events.back().Tick, std::numeric_limits<std::uint32_t>::max());
}

TEST(MidiFile, TemposComeFromEveryTrack) {
    const Bytes tempo = {0x10, 0xFF, 0x51, 3, 0x07, 0xA1, 0x20};
    const Reading file = Read(File(1, {Track(tempo), Track(NoteOn + tempo + NoteOff)}));
    EXPECT_EQ(file.Text(),
              "16:FF 51 00=500000, 16:FF 2F 00 | "
              "0:90 3C 60, 16:FF 51 00=500000, 112:80 3C 00, 112:FF 2F 00");
}

TEST(MidiFile, MetaEventsSayTheirTypeAndSize) {
    const Bytes name = Bytes{0, 0xFF, 0x03, 5} + Text("Piano");
    const Bytes longText = Bytes{0, 0xFF, 0x01} + VarLen(300) + Bytes(300, 'x');
    const Reading file = Read(File(0, {Track(name + longText)}));
    EXPECT_EQ(file.Text(), "0:FF 03 00=5, 0:FF 01 00=300, 0:FF 2F 00");
}

TEST(MidiFile, ExclusiveMessagesInPiecesAreSteppedOver) {
    const Bytes pieces = Bytes{0, 0xF0, 3, 0x43, 0x12, 0x00} + Bytes{0x81, 0x48, 0xF7, 2, 0x43, 0x12} +
                         Bytes{100, 0xF7, 2, 0x00, 0xF7};
    const Reading file = Read(File(0, {Track(pieces + NoteOn)}));
    EXPECT_EQ(file.Text(), "0:F0 00 00=3, 200:F7 00 00=2, 300:F7 00 00=2, 300:90 3C 60, 300:FF 2F 00");
}

TEST(MidiFile, SmpteDivisionsGiveTicksPerSecond) {
    struct Case {
        std::uint32_t Division;
        std::uint32_t Numerator;
        std::uint32_t Denominator;
    };
    for (const Case& smpte : {Case{0xE850, 24 * 80, 1}, Case{0xE728, 25 * 40, 1},
                              Case{0xE364, 30000 * 100, 1001}, Case{0xE204, 30 * 4, 1}}) {
        const Reading file = Read(Header(0, 1, smpte.Division) + Track(NoteOn));
        EXPECT_EQ(file.Result, QUAVIX_MIDI_FILE_OK);
        EXPECT_EQ(file.Header.TicksPerQuarter, 0U);
        EXPECT_EQ(file.Header.TicksPerSecondNumerator, smpte.Numerator);
        EXPECT_EQ(file.Header.TicksPerSecondDenominator, smpte.Denominator);
    }
}

/// A number of RIFF, which is little-endian.
Bytes Riff32(std::size_t number) {
    return {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8U),
            static_cast<std::uint8_t>(number >> 16U), static_cast<std::uint8_t>(number >> 24U)};
}

TEST(MidiFile, ARiffFileIsUnwrapped) {
    const Bytes midi = File(0, {Track(NoteOn)});
    const Bytes wrapped =
        Text("RIFF") + Riff32(12 + midi.size()) + Text("RMID") + Text("data") + Riff32(midi.size()) + midi;
    EXPECT_EQ(Read(wrapped).Text(), "0:90 3C 60, 0:FF 2F 00");
    EXPECT_THAT(Read(wrapped).Remarks, IsEmpty());
}

TEST(MidiFile, OddChunksOfARiffFileArePaddedOrNot) {
    const Bytes midi = File(0, {Track(NoteOn)});
    for (const Bytes& padding : {Bytes{0}, Bytes{}}) {
        const Bytes wrapped = Text("RIFF") + Riff32(1000) + Text("RMID") + Text("DISP") + Riff32(5) +
                              Text("hello") + padding + Text("data") + Riff32(midi.size()) + midi +
                              Text("LIST") + Riff32(4) + Text("INFO");
        EXPECT_EQ(Read(wrapped).Text(), "0:90 3C 60, 0:FF 2F 00") << padding.size();
    }
}

TEST(MidiFile, SixtyFiveThousandEmptyTracksAreRead) {
    Bytes file = Header(1, 65535, 96);
    for (int i = 0; i < 65535; ++i)
        file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 0});
    const Reading reading = Read(file);
    EXPECT_EQ(reading.Result, QUAVIX_MIDI_FILE_OK);
    EXPECT_EQ(reading.Tracks.size(), 65535U);
    EXPECT_EQ(reading.EventCount(), 0U);
}

Bytes TrackOfNotes(std::size_t notes) {
    Bytes events = {0, 0x90};
    for (std::size_t i = 0; i < notes; ++i)
        events.insert(events.end(), {60, 1, 0});
    events.pop_back();
    return Track(events);
}

TEST(MidiFile, ATrackHoldsItsLimitOfEventsAndNotOneMore) {
    EXPECT_EQ(Read(File(0, {TrackOfNotes(99998)})).EventCount(), 99999U);
    const Reading tooMany = Read(File(1, {Track({}), TrackOfNotes(99999)}));
    EXPECT_EQ(tooMany.Result, QUAVIX_MIDI_FILE_TOO_MANY_EVENTS);
    EXPECT_EQ(tooMany.Detail, "Byte 300036: track 2 has more than 99999 events.");
}

TEST(MidiFile, AFileHoldsItsLimitOfEventsAndNotOneMore) {
    const Bytes full = TrackOfNotes(99998);
    const auto with = [&](std::size_t notesOfLast) {
        Bytes file = Header(1, 11, 96);
        for (int i = 0; i < 10; ++i)
            file = std::move(file) + full;
        return std::move(file) + TrackOfNotes(notesOfLast);
    };
    constexpr std::size_t Left = 1048575 - 10 * 99999 - 1;
    EXPECT_EQ(Read(with(Left)).EventCount(), 1048575U);
    const Reading tooMany = Read(with(Left + 1));
    EXPECT_EQ(tooMany.Result, QUAVIX_MIDI_FILE_TOO_MANY_EVENTS);
    EXPECT_THAT(tooMany.Detail, testing::HasSubstr("the file has more than 1048575 events."));
}

TEST(MidiFile, ProgressIsToldAndCanStopTheReading) {
    struct Watch {
        std::vector<std::uint64_t> Done;
        std::size_t StopAt;
    };
    const Bytes file = File(1, {TrackOfNotes(90000), TrackOfNotes(90000)});
    const auto readUntil = [&file](Watch& watch) {
        QuavixMidiFileSink sink{};
        sink.User = &watch;
        sink.Events = [](void*, std::uint32_t, const QuavixMidiFileEvent*, std::size_t) { return 0; };
        sink.Progress = [](void* user, std::uint64_t done, std::uint64_t total) {
            auto& seen = *static_cast<Watch*>(user);
            EXPECT_LE(done, total);
            seen.Done.push_back(done);
            return static_cast<std::int32_t>(seen.Done.size() == seen.StopAt);
        };
        return QuavixMidiFileRead(file.data(), file.size(), &sink, nullptr, 0);
    };
    Watch all{{}, 1000};
    EXPECT_EQ(readUntil(all), QUAVIX_MIDI_FILE_OK);
    EXPECT_GE(all.Done.size(), 8U);
    EXPECT_TRUE(std::is_sorted(all.Done.begin(), all.Done.end()));
    Watch some{{}, 3};
    EXPECT_EQ(readUntil(some), QUAVIX_MIDI_FILE_STOPPED);
    EXPECT_EQ(some.Done.size(), 3U);
}

TEST(MidiFile, TheCallersFunctionsStopTheReadingAtOnce) {
    const Bytes file = File(1, {Track(NoteOn), Track(NoteOff)});
    for (const int stopping : {0, 1, 2}) {
        QuavixMidiFileSink sink{};
        static int calls;
        calls = 0;
        sink.Events = [](void*, std::uint32_t, const QuavixMidiFileEvent*, std::size_t) { return 0; };
        if (stopping == 0)
            sink.Header = [](void*, const QuavixMidiFileHeader*) { return ++calls; };
        if (stopping == 1)
            sink.Track = [](void*, std::uint32_t, std::uint64_t) { return ++calls; };
        if (stopping == 2)
            sink.Events = [](void*, std::uint32_t, const QuavixMidiFileEvent*, std::size_t) {
                return ++calls;
            };
        EXPECT_EQ(QuavixMidiFileRead(file.data(), file.size(), &sink, nullptr, 0), QUAVIX_MIDI_FILE_STOPPED);
        EXPECT_EQ(calls, 1);
    }
}

TEST(MidiFile, InvalidCallsAreRefused) {
    const Bytes file = File(0, {Track({})});
    QuavixMidiFileSink sink{};
    EXPECT_EQ(QuavixMidiFileRead(file.data(), file.size(), &sink, nullptr, 0), QUAVIX_MIDI_FILE_BAD_ARGUMENT);
    EXPECT_EQ(QuavixMidiFileRead(file.data(), file.size(), nullptr, nullptr, 0),
              QUAVIX_MIDI_FILE_BAD_ARGUMENT);
    EXPECT_EQ(QuavixMidiFileRead(nullptr, 1, &sink, nullptr, 0), QUAVIX_MIDI_FILE_BAD_ARGUMENT);
    EXPECT_EQ(QuavixMidiFileInit(QUAVIX_MIDI_FILE_VERSION), QUAVIX_MIDI_FILE_OK);
    EXPECT_EQ(QuavixMidiFileInit(QUAVIX_MIDI_FILE_VERSION + 1), QUAVIX_MIDI_FILE_WRONG_VERSION);
    EXPECT_EQ(QuavixMidiFileVersion(), QUAVIX_MIDI_FILE_VERSION);
}

TEST(MidiFile, ADetailIsTruncatedToTheBuffer) {
    QuavixMidiFileSink sink{};
    sink.Events = [](void*, std::uint32_t, const QuavixMidiFileEvent*, std::size_t) { return 0; };
    char detail[] = "0123456789ABCDEF";
    EXPECT_EQ(QuavixMidiFileRead(nullptr, 0, &sink, detail, 14), QUAVIX_MIDI_FILE_UNREADABLE);
    EXPECT_STREQ(detail, "Byte 0: the f");
    EXPECT_EQ(detail[14], 'E');
    char shortest[] = "01234";
    EXPECT_EQ(QuavixMidiFileRead(nullptr, 0, &sink, shortest, 1), QUAVIX_MIDI_FILE_UNREADABLE);
    EXPECT_STREQ(shortest, "");
}

}  // namespace
}  // namespace quavix::test
