// SPDX-License-Identifier: MIT
#include "modules/midi_io/midi_stream.h"

#include <thread>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "modules/midi_io/arrivals.h"

namespace quavix::midi_io {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// Feeds bytes to a stream, and returns its messages as "90 3C 60, ...".
std::string Made(MidiStream& stream, const Bytes& bytes) {
    std::string made;
    stream.Feed(bytes, [&](const QuavixMidiIoMessage& message) {
        made += fmt::format("{}{:02X} {:02X} {:02X}", made.empty() ? "" : ", ", message.Status, message.Data1,
                            message.Data2);
    });
    return made;
}

std::string Made(const Bytes& bytes) {
    MidiStream stream;
    return Made(stream, bytes);
}

TEST(MidiStream, EveryChannelMessageIsMade) {
    EXPECT_EQ(Made({0x80, 1, 2, 0x91, 3, 4, 0xA2, 5, 6, 0xB3, 7, 8, 0xC4, 9, 0xD5, 10, 0xEF, 11, 12}),
              "80 01 02, 91 03 04, A2 05 06, B3 07 08, C4 09 00, D5 0A 00, EF 0B 0C");
}

TEST(MidiStream, RunningStatusStandsForTheStatusBefore) {
    EXPECT_EQ(Made({0x90, 60, 1, 62, 2, 64, 0, 0xC1, 5, 6}),
              "90 3C 01, 90 3E 02, 90 40 00, C1 05 00, C1 06 00");
}

TEST(MidiStream, BytesMayComeOneByOne) {
    MidiStream stream;
    EXPECT_EQ(Made(stream, {0x90}), "");
    EXPECT_EQ(Made(stream, {60}), "");
    EXPECT_EQ(Made(stream, {1, 62}), "90 3C 01");
    EXPECT_EQ(Made(stream, {}), "");
    EXPECT_EQ(Made(stream, {2}), "90 3E 02");
}

TEST(MidiStream, RealTimeMessagesMayStandAnywhere) {
    EXPECT_EQ(Made({0xF8, 0x90, 0xFE, 60, 0xF8, 1, 0xFF, 62, 0xFA, 2}), "90 3C 01, 90 3E 02");
}

TEST(MidiStream, ExclusiveMessagesAreLeftOutWholeAndInPieces) {
    EXPECT_EQ(Made({0x90, 60, 1, 0xF0, 1, 2, 3, 0xF7, 0x91, 61, 2}), "90 3C 01, 91 3D 02");
    MidiStream stream;
    EXPECT_EQ(Made(stream, {0xF0, 1}), "");
    EXPECT_EQ(Made(stream, {0xF8, 2, 3}), "");
    EXPECT_EQ(Made(stream, {4, 0xF7, 5, 6, 0x80, 60, 0}), "80 3C 00");
    EXPECT_EQ(Made({0xF0, 1, 2, 0x90, 60, 1}), "90 3C 01") << "a status byte ends one that has no end";
}

TEST(MidiStream, SystemMessagesEndRunningStatus) {
    EXPECT_EQ(Made({0x90, 60, 1, 0xF2, 1, 2, 61, 1, 0xF6, 62, 1, 0x90, 63, 1}), "90 3C 01, 90 3F 01");
}

TEST(MidiStream, AMessageThatIsBrokenOffIsDropped) {
    EXPECT_EQ(Made({0x90, 60, 0x80, 61, 0}), "80 3D 00");
    EXPECT_EQ(Made({60, 1, 2, 0x90, 61, 3}), "90 3D 03")
        << "before the first status byte there is no message";
}

TEST(MessageQueue, MessagesComeInOrderFromAnotherThread) {
    constexpr int Count = 16000;  // as many as there is room for: none may be lost
    MessageQueue queue;
    std::thread sender([&] {
        for (int i = 0; i < Count; ++i)
            queue.Put({static_cast<std::uint8_t>(0x80 | (i >> 14)), static_cast<std::uint8_t>(i >> 7 & 0x7F),
                       static_cast<std::uint8_t>(i & 0x7F)});
    });
    int last = -1;
    QuavixMidiIoMessage message{};
    while (last < Count - 1) {
        if (!queue.Take(message)) {
            if (queue.TakeLost())
                break;
            std::this_thread::yield();
            continue;
        }
        const int number = (message.Status & 0x7F) << 14 | message.Data1 << 7 | message.Data2;
        ASSERT_EQ(number, last + 1);
        last = number;
    }
    sender.join();
}

TEST(MessageQueue, OverflowingMessagesAreLostAndTheLossIsReported) {
    MessageQueue queue;
    for (int i = 0; i < 20000; ++i)
        queue.Put({0x90, 60, 1});
    EXPECT_TRUE(queue.TakeLost());
    EXPECT_FALSE(queue.TakeLost());
    QuavixMidiIoMessage message{};
    int taken = 0;
    while (queue.Take(message))
        ++taken;
    EXPECT_EQ(taken, 0x4000);
}

}  // namespace
}  // namespace quavix::midi_io
