// SPDX-License-Identifier: MIT
// Files with faults: what can be played is read, the rest says what is wrong and where.
#include <gmock/gmock.h>

#include "modules/midi_file/midi_bytes.h"

namespace quavix::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* Played = "0:90 3C 60, 96:80 3C 00, 96:FF 2F 00";
const Bytes Notes = NoteOn + NoteOff;

std::string DetailOf(const Bytes& file) {
    const Reading reading = Read(file);
    EXPECT_EQ(reading.Result, QUAVIX_MIDI_FILE_UNREADABLE) << reading.Text();
    return reading.Detail;
}

TEST(MidiFileFaults, AnotherFileIsRefusedWithItsFirstBytes) {
    EXPECT_EQ(DetailOf({}), "Byte 0: the file is empty.");
    EXPECT_EQ(DetailOf(Text("MTh")), "Byte 0: not a MIDI file, which begins with 4D 54 68 64 (\"MThd\").");
    EXPECT_EQ(DetailOf(Text("%PDF-1.7")),
              "Byte 0: not a MIDI file, which begins with 4D 54 68 64 (\"MThd\"), not 25 50 44 46.");
}

TEST(MidiFileFaults, ATruncatedHeaderIsReported) {
    EXPECT_EQ(DetailOf(Text("MThd")), "Byte 4: the file ends within its header.");
    const Bytes whole = Header(0, 1, 96);
    EXPECT_EQ(DetailOf({whole.begin(), whole.end() - 1}), "Byte 13: the file ends within its header.");
}

TEST(MidiFileFaults, AnUnusableDivisionIsReported) {
    EXPECT_EQ(DetailOf(Header(0, 1, 0) + Track(Notes)),
              "Byte 12: the division is 0 ticks in a quarter note, so no event has a time.");
    EXPECT_EQ(DetailOf(Header(0, 1, 0xE700) + Track(Notes)),
              "Byte 13: the division has 0 ticks in a frame, so no event has a time.");
    EXPECT_EQ(DetailOf(Header(0, 1, 0xE928) + Track(Notes)),
              "Byte 12: the times are in 23 frames a second, which is not 24, 25, 29 or 30.");
    EXPECT_EQ(DetailOf(Header(0, 1, 0x8001) + Track(Notes)),
              "Byte 12: the times are in 128 frames a second, which is not 24, 25, 29 or 30.");
}

TEST(MidiFileFaults, AFileWithoutTracksIsReported) {
    EXPECT_EQ(DetailOf(Header(1, 1, 96)), "Byte 14: the file has no track.");
    EXPECT_EQ(DetailOf(Header(0, 0, 96) + Text("MTr")), "Byte 14: the file has no track.");
    EXPECT_EQ(DetailOf(Header(1, 1, 96) + Text("MTrk\0\0")), "Byte 14: the file has no track.");
}

TEST(MidiFileFaults, ARiffFileWithoutMidiIsReported) {
    EXPECT_EQ(DetailOf(Text("RIFF\x10...WAVEfmt ")),
              "Byte 8: a RIFF file, but not one that holds MIDI (\"RMID\").");
    EXPECT_EQ(DetailOf(Text("RIFF....RMIDLIST\x04") + Bytes{0, 0, 0} + Text("INFO")),
              "Byte 24: the RIFF file has no chunk \"data\".");
    EXPECT_THAT(DetailOf(Text("RIFF....RMIDdata\x04") + Bytes{0, 0, 0} + Text("junk")),
                HasSubstr("Byte 20: not a MIDI file"));
}

TEST(MidiFileFaults, ADataChunkThatIsLongerThanTheFileOrShorterThanItsContentIsRead) {
    for (const std::uint8_t size : {std::uint8_t{0}, std::uint8_t{20}, std::uint8_t{200}}) {
        const Bytes wrapped = Text("RIFF....RMIDdata") + Bytes{size, 0, 0, 0} + File(0, {Track(Notes)});
        EXPECT_EQ(Read(wrapped).Text(), Played) << int{size};
    }
}

TEST(MidiFileFaults, BytesInFrontOfTheHeaderArePassedOver) {
    const Reading file = Read(Bytes(128, 0) + File(0, {Track(Notes)}));
    EXPECT_EQ(file.Text(), Played);
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 0: passed over 128 bytes in front of the header."));
    EXPECT_EQ(Read(Bytes(1025, 0) + File(0, {Track(Notes)})).Result, QUAVIX_MIDI_FILE_UNREADABLE);
}

TEST(MidiFileFaults, AHeaderOfAnotherSizeIsReadEitherWay) {
    const Bytes longHeader = Text("MThd") + U32(9) + U16(0) + U16(1) + U16(96) + Bytes{1, 2, 3};
    EXPECT_EQ(Read(longHeader + Track(Notes)).Text(), Played);
    EXPECT_THAT(Read(longHeader + Track(Notes)).Remarks, IsEmpty()) << "headers may grow";
    for (const std::uint32_t size : {0U, 5U, 8U, 0xFFFFFFFFU}) {
        const Reading file = Read(Text("MThd") + U32(size) + U16(0) + U16(1) + U16(96) + Track(Notes));
        EXPECT_EQ(file.Text(), Played) << size;
        EXPECT_EQ(file.Remarks.size(), 1U);
    }
}

TEST(MidiFileFaults, AnUnknownFormatIsReadAllTheSame) {
    const Reading file = Read(File(3, {Track(Notes)}));
    EXPECT_EQ(file.Text(), Played);
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 8: format 3 is none of 0, 1 and 2."));
}

TEST(MidiFileFaults, FewerTracksThanDeclaredAreRead) {
    const Reading file = Read(Header(1, 3, 96) + Track(Notes));
    EXPECT_EQ(file.Text(), Played);
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 34: 1 tracks instead of 3."));
}

TEST(MidiFileFaults, MoreTracksThanDeclaredAreRead) {
    const Reading file = Read(Header(0, 0, 96) + Track(Notes) + Track(NoteOn));
    EXPECT_EQ(file.Text(), std::string(Played) + " | 0:90 3C 60, 0:FF 2F 00");
}

TEST(MidiFileFaults, ChunksOfOtherKindsAreSteppedOver) {
    const Bytes alien = Text("XFIH") + U32(7) + Text("MTrkxyz");
    const Reading file = Read(Header(1, 2, 96) + alien + Track(Notes) + alien + Track(Notes));
    EXPECT_EQ(file.Text(), std::string(Played) + " | " + Played);
    EXPECT_THAT(file.Remarks, IsEmpty());
}

TEST(MidiFileFaults, StrayBytesBetweenTracksArePassedOver) {
    const Reading file = Read(Header(1, 2, 96) + Track(Notes) + Bytes{0, 1, 2} + Track(Notes));
    EXPECT_EQ(file.Text(), std::string(Played) + " | " + Played);
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 34: passed over 3 bytes that are no chunk."));
}

TEST(MidiFileFaults, BytesBehindTheLastTrackAreIgnored) {
    for (const Bytes& more : {Bytes(1, 0), Bytes(1000, 0x90), Text("</html>"), File(0, {Track(Notes)})}) {
        const Reading file = Read(File(0, {Track(Notes)}) + more);
        EXPECT_EQ(file.Text(), Played);
        EXPECT_THAT(file.Remarks, ElementsAre("Byte 34: passed over what stands behind the last track."));
    }
}

TEST(MidiFileFaults, ATrackWithoutEndOfTrackEndsWhereItSaysItDoes) {
    const Bytes content = NoteOn + NoteOff;
    const Bytes endless = TrackSaying(static_cast<std::uint32_t>(content.size()), content);
    EXPECT_EQ(Read(File(0, {endless})).Text(), "0:90 3C 60, 96:80 3C 00");
    EXPECT_EQ(Read(File(1, {endless, Track(Notes)})).Text(),
              "0:90 3C 60, 96:80 3C 00 | " + std::string(Played));
    EXPECT_EQ(Read(File(0, {endless}) + Bytes{1, 2, 3}).Text(), "0:90 3C 60, 96:80 3C 00")
        << "bytes behind it are none of its own";
}

TEST(MidiFileFaults, ATrackThatIsLongerThanItSaysIsReadToItsEnd) {
    const Bytes content = Notes + EndOfTrack;
    for (std::uint32_t size = 0; size < content.size(); ++size) {
        const Reading file = Read(File(1, {TrackSaying(size, content), Track(NoteOn)}));
        EXPECT_EQ(file.Text(), std::string(Played) + " | 0:90 3C 60, 0:FF 2F 00") << size;
        EXPECT_EQ(Read(File(0, {TrackSaying(size, content)})).Text(), Played) << size;
    }
}

TEST(MidiFileFaults, ATrackThatIsShorterThanItSaysEndsAtItsEnd) {
    const Bytes content = Notes + EndOfTrack;
    const auto size = static_cast<std::uint32_t>(content.size());
    for (const std::uint32_t more : {1U, 3U, 8U, 20U, 24U, 28U, 1000U, 0xFFFFFF00U}) {
        const Reading file = Read(File(1, {TrackSaying(size + more, content), Track(Notes)}));
        EXPECT_EQ(file.Text(), std::string(Played) + " | " + Played) << more;
    }
}

TEST(MidiFileFaults, BytesBehindTheEndOfTrackAreSteppedOver) {
    const Bytes content = Notes + EndOfTrack + Bytes{0, 0, 0};
    const Reading file =
        Read(File(1, {TrackSaying(static_cast<std::uint32_t>(content.size()), content), Track(Notes)}));
    EXPECT_EQ(file.Text(), std::string(Played) + " | " + Played);
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 34: track 1 ends before its last byte."));
}

TEST(MidiFileFaults, AFileThatIsCutOffIsReadAsFarAsItGoes) {
    const Bytes whole = File(1, {Track(Notes), Track(Notes)});
    const Reading file = Read(std::span(whole).first(whole.size() - 6));
    EXPECT_EQ(file.Text(), std::string(Played) + " | 0:90 3C 60");
    EXPECT_THAT(file.Remarks, ElementsAre("Byte 38: track 2 should have 12 bytes, but the file ends.",
                                          "Byte 48: track 2 ends here, at an event that is cut off."));
}

TEST(MidiFileFaults, RunningStatusOutlastsMetaAndExclusiveEvents) {
    const Reading file = Read(File(0, {Track(NoteOn + Bytes{1, 0xFF, 0x06, 1, 'x', 1, 62, 5} +
                                             Bytes{1, 0xF0, 2, 0x7E, 0xF7, 1, 64, 5})}));
    EXPECT_EQ(file.Text(), "0:90 3C 60, 1:FF 06 00=1, 2:90 3E 05, 3:F0 00 00=2, 4:90 40 05, 4:FF 2F 00");
}

TEST(MidiFileFaults, DataBytesAboveTheirRangeAreHandedOn) {
    const Reading file = Read(File(0, {Track(Bytes{0, 0x90, 0x85, 0xFF} + Notes)}));
    EXPECT_EQ(file.Text(), "0:90 85 FF, 0:90 3C 60, 96:80 3C 00, 96:FF 2F 00");
}

TEST(MidiFileFaults, SystemMessagesAreSteppedOver) {
    const Reading file =
        Read(File(0, {Track(Bytes{0, 0xF2, 1, 2, 0, 0xF3, 1, 0, 0xF8, 0, 0xFE, 0, 0xF6} + Notes)}));
    EXPECT_EQ(file.Text(),
              "0:F2 01 02, 0:F3 01 00, 0:F8 00 00, 0:FE 00 00, 0:F6 00 00, " + std::string(Played));
}

TEST(MidiFileFaults, UnusableTemposAreIgnored) {
    const Bytes tempos = Bytes{0, 0xFF, 0x51, 2, 1, 2} + Bytes{0, 0xFF, 0x51, 3, 0, 0, 0} +
                         Bytes{0, 0xFF, 0x51, 4, 0, 1, 0, 9} + Bytes{0, 0xFF, 0x51, 0};
    EXPECT_EQ(Read(File(0, {Track(tempos)})).Text(),
              "0:FF 51 00, 0:FF 51 00, 0:FF 51 00=256, 0:FF 51 00, 0:FF 2F 00");
}

struct Damage {
    Bytes Content;
    const char* Says;
};

TEST(MidiFileFaults, DamageEndsItsTrackAndNoOther) {
    const Damage damages[] = {
        {{0, 60, 96}, "Byte 31: track 1 ends here, at a data byte where a status byte was expected."},
        {{0x81, 0x82, 0x83, 0x84, 5, 0x90, 60, 1},
         "Byte 30: track 1 ends here, at a number of more than four bytes."},
        {{0, 0xF0, 100, 1, 2}, "Byte 32: track 1 ends here, at an event that is longer than its track."},
        {{0, 0xFF, 1, 0x81, 0x82, 0x83, 0x84, 5},
         "Byte 33: track 1 ends here, at a number of more than four bytes."},
        {{0, 0x90}, "Byte 32: track 1 ends here, at an event that is cut off."},
        {{0, 0x90, 60}, "Byte 32: track 1 ends here, at an event that is cut off."},
        {{0, 0xFF, 1}, "Byte 33: track 1 ends here, at an event that is cut off."},
        {{0x81}, "Byte 30: track 1 ends here, at an event that is cut off."},
        {{5}, "Byte 31: track 1 ends here, at an event that is cut off."},
    };
    // A text event first, which leaves no running status.
    const Bytes before = {0x20, 0xFF, 0x01, 4, 'a', 'b', 'c', 'd'};
    for (const Damage& damage : damages) {
        const Bytes content = before + damage.Content;
        const Bytes damaged = TrackSaying(static_cast<std::uint32_t>(content.size()), content);
        const Reading file = Read(File(1, {damaged, Track(Notes)}));
        EXPECT_EQ(file.Text(), "32:FF 01 00=4 | " + std::string(Played)) << damage.Says;
        EXPECT_THAT(file.Remarks, ElementsAre(damage.Says));

        const Reading alone = Read(File(0, {damaged}));
        EXPECT_EQ(alone.Result, QUAVIX_MIDI_FILE_UNREADABLE);
        EXPECT_THAT(alone.Detail, HasSubstr("and nothing else in the file can be played."));
        EXPECT_EQ(alone.Detail.substr(0, 9), std::string(damage.Says).substr(0, 9));
    }
}

TEST(MidiFileFaults, TheNumberOfRemarksIsLimited) {
    Bytes file = Header(1, 200, 96);
    for (int i = 0; i < 200; ++i)
        file = std::move(file) + TrackSaying(1, {0x81});
    EXPECT_EQ(Read(file).Remarks.size(), 100U);
}

}  // namespace
}  // namespace quavix::test
