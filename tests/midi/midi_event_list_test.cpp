// SPDX-License-Identifier: MIT
#include "midi/midi_event_list.h"

#include <algorithm>
#include <random>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "modules/midi_file/midi_bytes.h"
#include "platform/common/module_midi_file_reader.h"

namespace quavix {
namespace {

using test::Bytes;
using test::File;
using test::Track;
using test::U16;
using test::U32;
using test::VarLen;
using test::operator+;
using testing::ElementsAre;

MidiFileContent Content(const Bytes& file) {
    ModuleMidiFileReader reader(QUAVIX_MIDI_FILE_MODULE);
    MidiFileContent content;
    std::string detail;
    EXPECT_EQ(reader.Read({reinterpret_cast<const char*>(file.data()), file.size()}, {}, content, detail),
              MidiFileResult::Read)
        << detail;
    return content;
}

std::vector<TimedMidiEvent> Decode(MidiFileContent content) {
    return DecodeMidiFile(std::move(content), [](const std::string&) { return true; }).value();
}

/// The notes, "milliseconds note" or "milliseconds -note" where they end.
std::string NotesOf(const Bytes& file) {
    std::string text;
    for (const TimedMidiEvent& event : Decode(Content(file))) {
        if (event.Status < 0xA0) {
            const bool ends = event.Status < 0x90 || event.Data2 == 0;
            text += fmt::format("{}{:.6g} {}{}", text.empty() ? "" : ", ", event.AbsoluteMs, ends ? "-" : "",
                                event.Data1);
        }
    }
    return text;
}

Bytes On(std::uint32_t delta, std::uint8_t note) {
    return VarLen(delta) + Bytes{0x90, note, 96};
}
Bytes Off(std::uint32_t delta, std::uint8_t note) {
    return VarLen(delta) + Bytes{0x80, note, 0};
}
Bytes Tempo(std::uint32_t delta, std::uint32_t microseconds) {
    const Bytes number = U32(microseconds);
    return VarLen(delta) + Bytes{0xFF, 0x51, 3, number[1], number[2], number[3]};
}

TEST(MidiEventList, WithoutATempoAQuarterNoteLastsHalfASecond) {
    EXPECT_EQ(NotesOf(File(0, {Track(On(96, 60) + Off(48, 60))})), "500 60, 750 -60");
}

TEST(MidiEventList, HoldsEveryEventWithItsThreeBytes) {
    const Bytes track = On(0, 60) + Bytes{5, 0xB1, 7, 100} + Bytes{0, 0xC2, 9} + Bytes{0, 0xE0, 1, 2};
    const auto events = Decode(Content(File(0, {Track(track)})));
    ASSERT_EQ(events.size(), 5U);
    EXPECT_EQ(events[0], (TimedMidiEvent{0, 0x90, 60, 96}));
    EXPECT_EQ(events[1], (TimedMidiEvent{5 * (500.0 / 96), 0xB1, 7, 100}));
    EXPECT_EQ(events[2], (TimedMidiEvent{5 * (500.0 / 96), 0xC2, 9, 0}));
    EXPECT_EQ(events[3], (TimedMidiEvent{5 * (500.0 / 96), 0xE0, 1, 2}));
    EXPECT_EQ(events[4], (TimedMidiEvent{5 * (500.0 / 96), 0xFF, 0x2F, 0})) << "the end of the track";
}

TEST(MidiEventList, ATempoChangeInsideALongNoteCountsFromItsTickOn) {
    EXPECT_EQ(NotesOf(File(1, {Track(Tempo(96, 1'000'000)), Track(On(0, 60) + Off(192, 60))})),
              "0 60, 1500 -60");
}

TEST(MidiEventList, ATempoChangeOnALaterTrackCountsForTheEarlierOnes) {
    EXPECT_EQ(NotesOf(File(1, {Track(On(0, 60) + Off(192, 60)), Track(On(96, 62) + Tempo(0, 250'000))})),
              "0 60, 500 62, 750 -60");
}

TEST(MidiEventList, TempoChangesOfSeveralTracksAreTakenInOrderOfTime) {
    const Bytes slowLater = Track(Tempo(192, 1'000'000) + On(96, 60));
    const Bytes fastEarlier = Track(Tempo(96, 250'000));
    EXPECT_EQ(NotesOf(File(1, {slowLater, fastEarlier})), "1750 60");
}

TEST(MidiEventList, TheLastOfSeveralTempiAtOneTickHolds) {
    EXPECT_EQ(NotesOf(File(1, {Track(Tempo(0, 1'000'000) + Tempo(0, 250'000) + On(96, 60))})), "250 60");
    EXPECT_EQ(NotesOf(File(1, {Track(Tempo(0, 1'000'000) + On(96, 60)), Track(Tempo(0, 250'000))})),
              "250 60");
}

TEST(MidiEventList, AnInvalidTempoChangesNothing) {
    const Bytes zero = {0, 0xFF, 0x51, 3, 0, 0, 0};
    const Bytes tooShort = {0, 0xFF, 0x51, 2, 7, 7};
    EXPECT_EQ(NotesOf(File(0, {Track(zero + tooShort + On(96, 60))})), "500 60");
}

TEST(MidiEventList, EventsOfSeveralTracksAreMergedByTime) {
    const Bytes first = Track(On(10, 60) + On(20, 61));
    const Bytes second = Track(On(0, 70) + On(20, 71) + On(30, 72));
    const Bytes third = Track(On(25, 80));
    const auto events = Decode(Content(File(1, {first, second, third})));
    std::vector<int> notes;
    for (const TimedMidiEvent& event : events) {
        if (event.Status == 0x90)
            notes.push_back(event.Data1);
    }
    EXPECT_THAT(notes, ElementsAre(70, 60, 71, 80, 61, 72));
    EXPECT_TRUE(std::ranges::is_sorted(events, {}, &TimedMidiEvent::AbsoluteMs));
}

TEST(MidiEventList, TheEarlierTracksEventsComeFirstAtTheSameTime) {
    const Bytes first = Track(On(96, 60) + On(0, 61));
    const Bytes second = Track(On(96, 70) + On(0, 71));
    const Bytes third = Track(On(96, 80));
    EXPECT_EQ(NotesOf(File(1, {first, second, third})), "500 60, 500 61, 500 70, 500 71, 500 80");
}

TEST(MidiEventList, TracksOfFormat2FollowEachOtherEachWithItsOwnTempo) {
    const Bytes first = Track(Tempo(0, 1'000'000) + On(0, 60) + Off(96, 60));
    const Bytes second = Track(On(48, 70) + Off(48, 70));
    EXPECT_EQ(NotesOf(File(2, {first, second})), "0 60, 1000 -60, 1250 70, 1500 -70");
}

TEST(MidiEventList, ADivisionInFramesIgnoresTempi) {
    const auto notes = [](std::uint32_t division) {
        return NotesOf(test::Header(0, 1, division) + Track(Tempo(0, 1'000'000) + On(200, 60)));
    };
    EXPECT_EQ(notes(0xE864), "83.3333 60") << "24 frames, 100 ticks each";
    EXPECT_EQ(notes(0xE764), "80 60") << "25 frames";
    EXPECT_EQ(notes(0xE364), "66.7333 60") << "29.97 frames";
    EXPECT_EQ(notes(0xE264), "66.6667 60") << "30 frames";
}

TEST(MidiEventList, TimesBeyond32BitsOfTicksAreRight) {
    constexpr std::uint32_t Longest = 0x0FFFFFFF;
    Bytes track;
    for (int i = 0; i < 20; ++i)
        track = track + Off(Longest, 60);
    const auto events = Decode(Content(File(0, {Track(track + On(96, 60))})));
    EXPECT_DOUBLE_EQ(events[20].AbsoluteMs, (20.0 * Longest + 96) * 500 / 96);
}

TEST(MidiEventList, ManyEmptyTracksGiveNoEvents) {
    Bytes file = test::Header(1, 65535, 96);
    for (int i = 0; i < 65534; ++i)
        file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 0});
    EXPECT_EQ(NotesOf(file + Track(On(96, 60))), "500 60");
}

TEST(MidiEventList, AFileWithoutEventsIsAnEmptyList) {
    EXPECT_TRUE(Decode(Content(test::Header(1, 1, 96) + test::TrackSaying(0, {}))).empty());
}

TEST(MidiEventList, ReportsItsProgress) {
    std::vector<std::string> texts;
    DecodeMidiFile(Content(File(1, {Track(Tempo(0, 1)), Track(On(0, 60))})), [&](const std::string& text) {
        texts.push_back(text);
        return true;
    });
    ASSERT_EQ(texts.size(), 5U + 101);
    EXPECT_EQ(texts[0], "Initialising... ");
    EXPECT_EQ(texts[1], "Decoding tempo changes... Track 01");
    EXPECT_EQ(texts[2], "Decoding tempo changes... Track 02");
    EXPECT_EQ(texts[3], "Decoding absolute timings... Track 01");
    EXPECT_EQ(texts[4], "Decoding absolute timings... Track 02");
    EXPECT_EQ(texts[5], "Decoding events... 0%");
    EXPECT_EQ(texts.back(), "Decoding events... 100%");
}

TEST(MidiEventList, CanBeStoppedAtAnyProgressReport) {
    const MidiFileContent content = Content(File(1, {Track(Tempo(0, 1)), Track(On(0, 60))}));
    std::size_t called = 0;
    std::size_t stopAt = 0;
    const auto goOn = [&](const std::string&) { return ++called != stopAt; };
    for (stopAt = 1; stopAt <= 106; ++stopAt) {
        called = 0;
        EXPECT_EQ(DecodeMidiFile(content, goOn), std::nullopt) << stopAt;
        EXPECT_EQ(called, stopAt);
    }
    called = 0;
    EXPECT_TRUE(DecodeMidiFile(content, goOn));
}

// Against the simplest way to compute the same: each event's time step by step, then a stable sort.
TEST(MidiEventList, EqualsAStepByStepComputation) {
    std::minstd_rand random(1);
    const auto below = [&](std::uint32_t limit) { return static_cast<std::uint32_t>(random() % limit); };
    for (int round = 0; round < 200; ++round) {
        MidiFileContent content;
        content.Format = 1;
        content.TicksPerQuarter = 1 + below(1000);
        content.Tracks.resize(1 + below(20));
        for (auto& track : content.Tracks) {
            std::uint64_t tick = 0;
            for (std::uint32_t i = below(60); i > 0; --i) {
                tick += below(4) == 0 ? below(2000) : 0;
                if (below(5) == 0)
                    track.push_back({tick, 1 + below(1'000'000), 0xFF, 0x51, 0});
                else
                    track.push_back({tick, 0, 0x90, static_cast<std::uint8_t>(below(128)), 1});
            }
        }
        std::vector<MidiFileEvent> tempos;
        for (const auto& track : content.Tracks)
            std::ranges::copy_if(track, std::back_inserter(tempos), &MidiFileEvent::IsTempo);
        std::ranges::stable_sort(tempos, {}, &MidiFileEvent::Tick);
        std::vector<TimedMidiEvent> expected;
        for (const auto& track : content.Tracks) {
            for (const MidiFileEvent& event : track) {
                double ms = 0;
                std::uint64_t at = 0;
                std::uint32_t tempo = 500000;
                for (const MidiFileEvent& change : tempos) {
                    if (change.Tick > event.Tick)
                        break;
                    ms += static_cast<double>(change.Tick - at) * tempo / 1000 / content.TicksPerQuarter;
                    at = change.Tick;
                    tempo = change.Value;
                }
                ms += static_cast<double>(event.Tick - at) * tempo / 1000 / content.TicksPerQuarter;
                expected.push_back({ms, event.Status, event.Data1, event.Data2});
            }
        }
        std::ranges::stable_sort(expected, [](const TimedMidiEvent& a, const TimedMidiEvent& b) {
            return a.AbsoluteMs + 1e-6 < b.AbsoluteMs;
        });
        const auto events = Decode(content);
        ASSERT_EQ(events.size(), expected.size());
        for (std::size_t i = 0; i < events.size(); ++i) {
            ASSERT_NEAR(events[i].AbsoluteMs, expected[i].AbsoluteMs, 1e-6) << round << ", " << i;
            ASSERT_EQ(events[i].Status, expected[i].Status) << round << ", " << i;
            ASSERT_EQ(events[i].Data1, expected[i].Data1) << round << ", " << i;
        }
    }
}

}  // namespace
}  // namespace quavix
