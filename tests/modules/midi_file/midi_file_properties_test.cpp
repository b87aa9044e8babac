// SPDX-License-Identifier: MIT
// Generated files: what is written is read, and nothing that was done to the bytes goes wrong.
#include <algorithm>
#include <random>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "modules/midi_file/midi_bytes.h"

namespace quavix::test {
namespace {

class Generator {
  public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_()) % limit; }

    /// A track's events as bytes, and as text what should be read of them.
    Bytes Events(std::uint32_t count, std::string& text) {
        Bytes bytes;
        std::uint64_t tick = 0;
        std::uint8_t running = 0;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::uint32_t delta = Below(4) == 0 ? Below(0x10000000) : Below(200);
            tick += delta;
            bytes = std::move(bytes) + VarLen(delta);
            QuavixMidiFileEvent event{};
            event.Tick = tick;
            if (Below(5) == 0)
                bytes = std::move(bytes) + LongEvent(event);
            else
                bytes = std::move(bytes) + ChannelMessage(event, running);
            text += (text.empty() ? "" : ", ") + ReadTrack{0, {event}}.Text();
        }
        text += fmt::format("{}{}:FF 2F 00", text.empty() ? "" : ", ", tick);
        return bytes;
    }

  private:
    Bytes ChannelMessage(QuavixMidiFileEvent& event, std::uint8_t& running) {
        event.Status =
            running != 0 && Below(2) == 0 ? running : static_cast<std::uint8_t>(0x80 + Below(0x70));
        event.Data1 = static_cast<std::uint8_t>(Below(128));
        Bytes bytes;
        if (event.Status != running || Below(4) == 0)
            bytes.push_back(event.Status);
        running = event.Status;
        bytes.push_back(event.Data1);
        if ((event.Status & 0xE0) != 0xC0) {
            event.Data2 = static_cast<std::uint8_t>(Below(128));
            bytes.push_back(event.Data2);
        }
        return bytes;
    }

    Bytes LongEvent(QuavixMidiFileEvent& event) {
        const bool meta = Below(2) == 0;
        event.Status = meta ? 0xFF : (Below(2) == 0 ? 0xF0 : 0xF7);
        Bytes bytes = {event.Status};
        if (meta) {
            event.Data1 = static_cast<std::uint8_t>(Below(0x2F));
            if (Below(3) == 0)
                event.Data1 = 0x51;
            bytes.push_back(event.Data1);
        }
        const bool tempo = meta && event.Data1 == 0x51;
        const std::uint32_t size = tempo ? 3 : Below(300);
        Bytes content(size);
        std::generate(content.begin(), content.end(),
                      [this] { return static_cast<std::uint8_t>(Below(256)); });
        event.Value = tempo ? content[0] << 16U | content[1] << 8U | content[2] : size;
        return std::move(bytes) + VarLen(size) + content;
    }

    std::mt19937 random_;
};

struct GeneratedFile {
    Bytes Content;
    std::string Text;
};

GeneratedFile Generate(std::uint32_t seed) {
    Generator generator(seed);
    const std::uint32_t tracks = 1 + generator.Below(5);
    GeneratedFile file{Header(tracks > 1 ? 1 : 0, tracks, 1 + generator.Below(0x7FFF)), {}};
    for (std::uint32_t i = 0; i < tracks; ++i) {
        std::string text;
        file.Content = std::move(file.Content) + Track(generator.Events(generator.Below(40), text));
        file.Text += (i == 0 ? "" : " | ") + text;
    }
    return file;
}

void ExpectSense(const Reading& reading, std::uint32_t seed) {
    for (const ReadTrack& track : reading.Tracks) {
        EXPECT_TRUE(std::is_sorted(track.Events.begin(), track.Events.end(),
                                   [](const auto& a, const auto& b) { return a.Tick < b.Tick; }))
            << seed;
        EXPECT_TRUE(std::all_of(track.Events.begin(), track.Events.end(), [](const auto& event) {
            return event.Status >= 0x80;
        })) << seed;
    }
}

TEST(MidiFileProperties, WrittenFilesReadBackTheSame) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        const GeneratedFile file = Generate(seed);
        const Reading reading = Read(file.Content);
        EXPECT_EQ(reading.Result, QUAVIX_MIDI_FILE_OK) << seed;
        EXPECT_EQ(reading.Text(), file.Text) << seed;
        EXPECT_THAT(reading.Remarks, testing::IsEmpty()) << seed;
    }
}

TEST(MidiFileProperties, AFileCutAnywhereGivesTheBeginningOfWhatItHeld) {
    for (std::uint32_t seed = 1; seed <= 4; ++seed) {
        const GeneratedFile file = Generate(seed);
        for (std::size_t size = 0; size < file.Content.size(); ++size) {
            const Reading reading = Read(std::span(file.Content).first(size));
            if (reading.Result == QUAVIX_MIDI_FILE_OK) {
                EXPECT_TRUE(file.Text.starts_with(reading.Text()))
                    << seed << " cut at " << size << ": " << reading.Text();
            }
        }
    }
}

TEST(MidiFileProperties, ChangedBytesGiveAFileOrAReason) {
    for (std::uint32_t seed = 1; seed <= 1000; ++seed) {
        GeneratedFile file = Generate(seed % 50);
        Generator generator(seed);
        for (std::uint32_t i = generator.Below(4) + 1; i > 0; --i) {
            const std::uint32_t at = generator.Below(static_cast<std::uint32_t>(file.Content.size()));
            file.Content[at] = static_cast<std::uint8_t>(generator.Below(256));
        }
        ExpectSense(Read(file.Content), seed);
    }
}

TEST(MidiFileProperties, WrongTrackSizesDoNotHideTheOtherTracks) {
    for (std::uint32_t seed = 1; seed <= 50; ++seed) {
        Generator generator(seed);
        std::string first;
        std::string second;
        const Bytes content = generator.Events(20, first) + EndOfTrack;
        const Bytes other = Track(generator.Events(20, second));
        const Bytes wrong =
            TrackSaying(generator.Below(2 * static_cast<std::uint32_t>(content.size())), content);
        EXPECT_EQ(Read(File(1, {wrong, other})).Text(), first + " | " + second) << seed;
    }
}

/// A file whose tracks all say a wrong size, each made so that it takes a look ahead to find that out.
TEST(MidiFileProperties, ManyTracksWithWrongSizesTakeNoLongerThanOthers) {
    constexpr int Tracks = 60000;
    Bytes file = Header(1, Tracks, 96);
    for (int i = 0; i < Tracks; ++i)
        file.insert(file.end(), {'M', 'T', 'r', 'k', 0, 0, 0, 4, 0, 0x90, 60, 1, 0, 61, 1, 0, 62, 1, 9});
    const Reading reading = Read(file);
    EXPECT_EQ(reading.Tracks.size(), static_cast<std::size_t>(Tracks));
    EXPECT_EQ(reading.EventCount(), static_cast<std::size_t>(Tracks));
}

}  // namespace
}  // namespace quavix::test
