// SPDX-License-Identifier: MIT
#include "platform/common/module_midi_file_reader.h"

#include <new>

#include <gmock/gmock.h>

#include "modules/midi_file/midi_bytes.h"

namespace quavix {
namespace {

using test::File;
using test::NoteOff;
using test::NoteOn;
using test::Track;
using test::operator+;
using testing::ElementsAre;
using testing::IsEmpty;

class ModuleMidiFile : public testing::Test {
  protected:
    MidiFileResult Read(const test::Bytes& bytes, const std::function<bool(double)>& goOn = {}) {
        return reader_.Read({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, goOn, content_,
                            detail_);
    }

    ModuleMidiFileReader reader_{QUAVIX_MIDI_FILE_MODULE};
    MidiFileContent content_;
    std::string detail_;
};

TEST_F(ModuleMidiFile, AFileIsReadByTheModule) {
    const test::Bytes tempo = {0, 0xFF, 0x51, 3, 0x07, 0xA1, 0x20};
    EXPECT_EQ(Read(File(1, {Track(tempo), Track(NoteOn + NoteOff)})), MidiFileResult::Read);
    EXPECT_EQ(detail_, "");
    EXPECT_EQ(content_.Format, 1U);
    EXPECT_EQ(content_.TicksPerQuarter, 96U);
    ASSERT_EQ(content_.Tracks.size(), 2U);
    EXPECT_THAT(content_.Tracks[0],
                ElementsAre(MidiFileEvent{0, 500000, 0xFF, 0x51, 0}, MidiFileEvent{0, 0, 0xFF, 0x2F, 0}));
    EXPECT_TRUE(content_.Tracks[0][0].IsTempo());
    EXPECT_THAT(content_.Tracks[1],
                ElementsAre(MidiFileEvent{0, 0, 0x90, 60, 96}, MidiFileEvent{96, 0, 0x80, 60, 0},
                            MidiFileEvent{96, 0, 0xFF, 0x2F, 0}));
    EXPECT_THAT(content_.Remarks, IsEmpty());
}

TEST_F(ModuleMidiFile, TimesInFramesAreAFraction) {
    EXPECT_EQ(Read(test::Header(0, 1, 0xE364) + Track(NoteOn)), MidiFileResult::Read);
    EXPECT_EQ(content_.TicksPerQuarter, 0U);
    EXPECT_EQ(content_.TicksPerSecondNumerator, 3000000U);
    EXPECT_EQ(content_.TicksPerSecondDenominator, 1001U);
}

TEST_F(ModuleMidiFile, AFileThatCanNotBePlayedSaysWhyAndLeavesNothing) {
    Read(File(0, {Track(NoteOn)}));
    EXPECT_EQ(Read(test::Header(1, 1, 0)), MidiFileResult::Unreadable);
    EXPECT_EQ(detail_, "Byte 12: the division is 0 ticks in a quarter note, so no event has a time.");
    EXPECT_THAT(content_.Tracks, IsEmpty());
}

TEST_F(ModuleMidiFile, FaultsThatWerePutRightAreRemarks) {
    EXPECT_EQ(Read(File(0, {Track(NoteOn)}) + test::Bytes{1}), MidiFileResult::Read);
    EXPECT_THAT(content_.Remarks, ElementsAre("Byte 30: passed over what stands behind the last track."));
}

TEST_F(ModuleMidiFile, TheLimitOfEventsIsAResultOfItsOwn) {
    test::Bytes events = {0, 0x90, 60, 1};
    for (int i = 0; i < 99999; ++i)
        events.insert(events.end(), {0, 60, 1});
    EXPECT_EQ(Read(File(0, {Track(events)})), MidiFileResult::TooManyEvents);
    EXPECT_EQ(detail_, "Byte 300023: track 1 has more than 99999 events.");
    EXPECT_THAT(content_.Tracks, IsEmpty());
}

TEST_F(ModuleMidiFile, ReadingCanBeStopped) {
    std::vector<double> shares;
    EXPECT_EQ(Read(File(0, {Track(NoteOn)}),
                   [&](double share) {
                       shares.push_back(share);
                       return false;
                   }),
              MidiFileResult::Stopped);
    EXPECT_EQ(shares.size(), 1U);
    EXPECT_THAT(content_.Tracks, IsEmpty());
}

TEST_F(ModuleMidiFile, AnExceptionOfTheProgressFunctionPassesTheModule) {
    EXPECT_THROW(Read(File(0, {Track(NoteOn)}), [](double) -> bool { throw std::bad_alloc(); }),
                 std::bad_alloc);
    EXPECT_THAT(content_.Tracks, IsEmpty());
}

}  // namespace
}  // namespace quavix
