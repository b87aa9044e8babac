// SPDX-License-Identifier: MIT
#include "dsp/wav.h"

#include <array>
#include <bit>
#include <fstream>
#include <limits>
#include <random>
#include <sndfile.h>
#include <sstream>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

using namespace std::string_literals;

// A pipe: it can be written but not sought.
class Pipe : public std::streambuf {
  public:
    std::string Bytes;
    std::size_t Capacity = std::string::npos;

  protected:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        if (Bytes.size() + static_cast<std::size_t>(size) > Capacity)
            return 0;
        Bytes.append(text, static_cast<std::size_t>(size));
        return size;
    }
    int_type overflow(int_type c) override {
        Bytes.push_back(traits_type::to_char_type(c));
        return c;
    }
};

// Gigabytes that go nowhere.
class Nowhere : public std::streambuf {
  protected:
    std::streamsize xsputn(const char*, std::streamsize size) override { return size; }
};

std::uint32_t NumberAt(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes.at(at + i));
    return value;
}

std::vector<int> Pcm(const std::string& bytes) {
    std::vector<int> samples;
    for (std::size_t at = 44; at + 1 < bytes.size(); at += 2)
        samples.push_back(static_cast<std::int16_t>(static_cast<unsigned char>(bytes[at]) |
                                                    static_cast<unsigned char>(bytes[at + 1]) << 8));
    return samples;
}

TEST(WavWriter, WritesAFileThatReadsBackTheSame) {
    std::stringstream stream;
    WavWriter writer(stream, 44100, 2);
    std::vector<float> samples(20000);
    for (std::size_t i = 0; i < samples.size(); i++)
        samples[i] = static_cast<float>(static_cast<int>(i) - 10000) / 32767.0F;
    EXPECT_TRUE(writer.Write(samples));
    EXPECT_TRUE(writer.WriteSilence(5));
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(writer.Frames(), 10005);
    const auto sound = test::ReadWav(stream.str());
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->SampleRate, 44100);
    EXPECT_EQ(sound->Channels, 2);
    EXPECT_EQ(NumberAt(stream.str(), 40), 40020U);
    EXPECT_EQ(NumberAt(stream.str(), 4), 40056U);
    EXPECT_EQ(stream.str().size(), 40064U);
    samples.resize(20010);
    EXPECT_EQ(sound->Samples, samples);
}

TEST(WavWriter, RoundsToTheNearestAndClips) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 1);
    const float step = 1.0F / 32767.0F;
    const auto notANumber = std::bit_cast<float>(0x7FC12345);
    const float huge = std::numeric_limits<float>::infinity();
    const std::array<float, 12> samples = {0.0F,        1.0F,         -1.0F,       1.5F,
                                           -2e9F,       huge,         -huge,       notANumber,
                                           0.6F * step, -0.6F * step, 0.4F * step, 9999.7F * step};
    EXPECT_TRUE(writer.Write(samples));
    EXPECT_EQ(Pcm(stream.str()),
              (std::vector<int>{0, 32767, -32767, 32767, -32767, 32767, -32767, 0, 1, -1, 0, 10000}));
}

TEST(WavWriter, EveryWholeLevelSurvives) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 1);
    std::vector<float> samples;
    std::vector<int> expected;
    for (int level = -32767; level <= 32767; level++) {
        samples.push_back(static_cast<float>(level) / 32767.0F);
        expected.push_back(level);
    }
    EXPECT_TRUE(writer.Write(samples));
    EXPECT_EQ(Pcm(stream.str()), expected);
}

TEST(WavWriter, WritesUnknownSizesIfTheStreamCannotSeek) {
    Pipe pipe;
    std::ostream stream(&pipe);
    WavWriter writer(stream, 8000, 1);
    EXPECT_TRUE(writer.Write(std::vector<float>(10)));
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(NumberAt(pipe.Bytes, 4), 0xFFFFFFFFU);
    EXPECT_EQ(NumberAt(pipe.Bytes, 40), 0xFFFFFFFFU);
    EXPECT_EQ(pipe.Bytes.size(), 64U);
}

TEST(WavWriter, StatesSizesInBetween) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 1);
    EXPECT_TRUE(writer.WriteSilence(3));
    EXPECT_TRUE(writer.StateSizes());
    EXPECT_EQ(NumberAt(stream.str(), 4), 42U);
    EXPECT_EQ(NumberAt(stream.str(), 40), 6U);
    EXPECT_TRUE(writer.WriteSilence(1));
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(NumberAt(stream.str(), 40), 8U);
    EXPECT_EQ(stream.str().size(), 52U);
}

TEST(WavWriter, BeginsWhereTheStreamStandsAndLeavesItAtTheEnd) {
    std::stringstream stream;
    stream << "before";
    WavWriter writer(stream, 8000, 1);
    EXPECT_TRUE(writer.WriteSilence(1));
    EXPECT_TRUE(writer.Finish());
    stream << "after";
    EXPECT_EQ(stream.str().substr(0, 10), "beforeRIFF");
    EXPECT_EQ(stream.str().substr(52), "after");
    EXPECT_EQ(NumberAt(stream.str(), 46), 2U);
}

TEST(WavWriter, RefusesWhatPasses4GiB) {
    Nowhere nowhere;
    std::ostream stream(&nowhere);
    constexpr std::int64_t MostFrames = (0xFFFFFFFELL - 36) / 2;
    WavWriter writer(stream, 48000, 1);
    EXPECT_TRUE(writer.WriteSilence(MostFrames - 1));
    EXPECT_FALSE(writer.Write(std::vector<float>(2)));
    EXPECT_TRUE(writer.TooLong());
    EXPECT_EQ(writer.Frames(), MostFrames - 1);
    EXPECT_TRUE(writer.Write(std::vector<float>(1)));
    EXPECT_FALSE(writer.WriteSilence(std::numeric_limits<std::int64_t>::max()));
    EXPECT_TRUE(writer.Finish());
}

/// A stereo file with room, of which a RIFF file holds 200 bytes.
std::string WithRoom(std::int64_t frames) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 2, 200);
    writer.MakeRoom();
    EXPECT_TRUE(writer.WriteSilence(frames - 1));
    EXPECT_TRUE(writer.Write(std::array{1.0F, -1.0F}));
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(stream.str().size(), 80 + 4 * static_cast<std::size_t>(frames));
    return stream.str();
}

TEST(WavWriter, RoomStaysEmptyInAFileThatRiffHolds) {
    const std::string bytes = WithRoom(32);
    EXPECT_EQ(bytes.substr(0, 20), "RIFF\xC8\0\0\0WAVEJUNK\x1C\0\0\0"s);
    EXPECT_EQ(bytes.substr(20, 28), std::string(28, '\0'));
    EXPECT_EQ(bytes.substr(48, 4) + bytes.substr(72, 8), "fmt data\x80\0\0\0"s);
    EXPECT_EQ(test::ReadWav(bytes)->Frames(), 32U);
}

TEST(WavWriter, RoomTakesTheSizesOfAFileThatRiffDoesNotHold) {
    const std::string bytes = WithRoom(33);
    EXPECT_EQ(bytes.substr(0, 20), "RF64\xFF\xFF\xFF\xFFWAVEds64\x1C\0\0\0"s);
    EXPECT_EQ(bytes.substr(20, 28), "\xCC\0\0\0\0\0\0\0\x84\0\0\0\0\0\0\0\x21\0\0\0\0\0\0\0\0\0\0\0"s);
    EXPECT_EQ(bytes.substr(48, 4) + bytes.substr(72, 8), "fmt data\xFF\xFF\xFF\xFF"s);
    const auto sound = test::ReadWav(bytes + "something behind it");
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->Frames(), 33U);
    EXPECT_EQ(sound->Samples.back(), -1.0F);
}

TEST(WavWriter, MakesNoRoomWhereItCannotSeek) {
    Pipe pipe;
    std::ostream stream(&pipe);
    WavWriter writer(stream, 8000, 1, 100);
    writer.MakeRoom();
    EXPECT_TRUE(writer.WriteSilence(32));
    EXPECT_EQ(pipe.Bytes.size(), 44U + 64U);
    EXPECT_FALSE(writer.WriteSilence(1));
    EXPECT_TRUE(writer.TooLong());
    EXPECT_TRUE(writer.Finish());
}

TEST(WavWriter, MakesNoRoomBehindFrames) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 1, 100);
    EXPECT_TRUE(writer.WriteSilence(1));
    writer.MakeRoom();
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(stream.str().size(), 46U);
}

TEST(WavWriter, FilesBeyond4GiBAreReadByOthers) {
    constexpr std::int64_t Silence = 0x1'2345'6789;
    constexpr std::array Tone{0.5F, -0.25F, 1.0F};
    const test::TemporaryFolder folder;
    const std::string name = folder.File("long.wav");
    {
        std::ofstream file(name, std::ios::binary);
        WavWriter writer(file, 44100, 1);
        writer.MakeRoom();
        EXPECT_TRUE(writer.SkipSilence(Silence));
        EXPECT_TRUE(writer.Write(Tone));
        EXPECT_TRUE(writer.Finish());
    }
    SF_INFO info{};
    SNDFILE* const file = sf_open(name.c_str(), SFM_READ, &info);
    ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
    EXPECT_EQ(info.format, SF_FORMAT_RF64 | SF_FORMAT_PCM_16);
    EXPECT_EQ(info.samplerate, 44100);
    EXPECT_EQ(info.frames, Silence + std::ssize(Tone));
    EXPECT_EQ(sf_seek(file, Silence - 1, SEEK_SET), Silence - 1);
    std::array<short, 5> samples{};
    EXPECT_EQ(sf_read_short(file, samples.data(), samples.size()), 4);
    EXPECT_EQ(samples, (std::array<short, 5>{0, 16384, -8192, 32767, 0}));
    sf_close(file);
}

TEST(WavWriter, SkippedSilenceReadsAsSilenceAndIsWrittenWhereItCannotSeek) {
    const test::TemporaryFolder folder;
    std::ofstream file(folder.File("skipped.wav"), std::ios::binary);
    Pipe pipe;
    std::ostream unseekable(&pipe);
    for (std::ostream* const stream : {static_cast<std::ostream*>(&file), &unseekable}) {
        WavWriter writer(*stream, 8000, 1);
        EXPECT_TRUE(writer.SkipSilence(3));
        EXPECT_TRUE(writer.SkipSilence(-1));
        EXPECT_TRUE(writer.Write(std::array{1.0F}));
        EXPECT_EQ(writer.Frames(), 4);
        EXPECT_TRUE(writer.Finish());
    }
    const std::vector<int> expected{0, 0, 0, 32767};
    EXPECT_EQ(Pcm(folder.Content("skipped.wav")), expected);
    EXPECT_EQ(Pcm(pipe.Bytes), expected);
}

TEST(WavWriter, RefusesHalfFramesAndWritesAfterTheEnd) {
    std::stringstream stream;
    WavWriter writer(stream, 8000, 2);
    EXPECT_FALSE(writer.Write(std::vector<float>(3)));
    EXPECT_FALSE(writer.TooLong());
    EXPECT_TRUE(writer.Write({}));
    EXPECT_TRUE(writer.WriteSilence(-3));
    EXPECT_EQ(stream.str().size(), 44U);
    EXPECT_TRUE(writer.Finish());
    EXPECT_TRUE(writer.Finish());
    EXPECT_FALSE(writer.Write(std::vector<float>(2)));
    EXPECT_FALSE(writer.WriteSilence(1));
    EXPECT_EQ(stream.str().size(), 44U);
}

TEST(WavWriter, RefusesFormatsThatDoNotExist) {
    struct Case {
        std::int32_t SampleRate;
        std::int32_t Channels;
    };
    for (const Case& bad : {Case{0, 1}, {-1, 1}, {8000, 0}, {8000, 32768}, {2147483647, 2}}) {
        std::stringstream stream;
        WavWriter writer(stream, bad.SampleRate, bad.Channels);
        EXPECT_FALSE(writer.SkipSilence(1));
        EXPECT_FALSE(writer.Write(std::vector<float>(32768)));
        EXPECT_FALSE(writer.WriteSilence(1));
        EXPECT_FALSE(writer.Finish());
        EXPECT_FALSE(writer.TooLong());
        EXPECT_EQ(stream.str(), "");
    }
}

TEST(WavWriter, AFullDiskIsAnErrorThatStays) {
    Pipe pipe;
    pipe.Capacity = 1000;
    std::ostream stream(&pipe);
    WavWriter writer(stream, 8000, 1);
    EXPECT_TRUE(writer.WriteSilence(100));
    EXPECT_FALSE(writer.Write(std::vector<float>(1000)));
    EXPECT_FALSE(writer.TooLong());
    EXPECT_FALSE(writer.WriteSilence(1));
    EXPECT_FALSE(writer.Finish());
    EXPECT_EQ(writer.Frames(), 100);

    Pipe full;
    full.Capacity = 10;
    std::ostream nothing(&full);
    EXPECT_FALSE(WavWriter(nothing, 8000, 1).Finish());
}

std::string Wav(std::int32_t channels, std::span<const float> samples) {
    std::stringstream out;
    WavWriter writer(out, 48000, channels);
    writer.Write(samples);
    writer.Finish();
    return out.str();
}

TEST(WavReader, GivesFramesPieceByPiece) {
    std::istringstream in(Wav(2, std::array{0.5F, 0.0F, -1.0F, 0.25F, 0.25F, 0.0F}));
    WavReader reader(in);
    ASSERT_TRUE(reader.IsGood());
    EXPECT_EQ(reader.SampleRate(), 48000);
    EXPECT_EQ(reader.Channels(), 2);
    std::array<float, 5> block{};
    EXPECT_EQ(reader.Read(block), 4u) << "half a frame is none";
    EXPECT_NEAR(block[0], 0.5, 1.0 / 32767);
    EXPECT_EQ(block[1], 0.0F);
    EXPECT_EQ(block[2], -1.0F);
    EXPECT_EQ(reader.Read(block), 2u);
    EXPECT_NEAR(block[0], 0.25, 1.0 / 32767);
    EXPECT_EQ(reader.Read(block), 0u);
}

TEST(WavReader, EndsAtTheEndOfTheStreamOrAtTheSizeInTheHeader) {
    std::string bytes = Wav(1, std::array{0.5F, 0.5F, 0.5F});
    std::array<float, 8> block{};
    std::istringstream more(bytes + "something behind it");
    EXPECT_EQ(WavReader(more).Read(block), 3u);
    std::istringstream cut(bytes.substr(0, bytes.size() - 3));
    EXPECT_EQ(WavReader(cut).Read(block), 1u) << "half a sample is none";
    bytes.replace(40, 4, "\xFF\xFF\xFF\xFF");
    std::istringstream unknown(bytes);
    EXPECT_EQ(WavReader(unknown).Read(block), 3u);
}

TEST(WavReader, PassesOverChunksThatItDoesNotKnow) {
    std::string bytes = Wav(1, std::array{0.5F});
    const std::string list = "LIST\x03\0\0\0abc\0"s;
    std::istringstream in(bytes.insert(36, list).insert(12, list));
    std::array<float, 8> block{};
    EXPECT_EQ(WavReader(in).Read(block), 1u);
}

TEST(WavReader, OtherFilesAreRefused) {
    const std::string good = Wav(1, std::array{0.5F});
    std::vector<std::string> bad{"", "RIFF", std::string(100, 'x'), good.substr(0, 30), good.substr(0, 40)};
    bad.push_back(good.substr(0, 12) + good.substr(36) + good.substr(12, 24));
    for (const std::size_t at : {3U, 8U, 12U, 17U, 20U, 22U, 24U, 28U, 32U, 34U, 36U}) {
        bad.push_back(good);
        bad.back()[at] = 0x33;
    }
    bad.push_back(good);
    bad.back().replace(22, 14, "\0\0\x40\x1f\0\0\0\0\0\0\0\0\x10\0"s);  // no channels
    std::array<float, 8> block{};
    for (const std::string& bytes : bad) {
        std::istringstream in(bytes);
        WavReader reader(in);
        EXPECT_FALSE(reader.IsGood()) << testing::PrintToString(bytes);
        EXPECT_EQ(reader.Read(block), 0u);
    }
    EXPECT_FALSE(test::ReadWavFile("/nonexistent/file.wav"));
}

TEST(WavReader, SurvivesAnyBytes) {
    std::mt19937 random(7);
    for (const std::string& good : {Wav(1, std::array{0.5F, -0.5F}), WithRoom(33)}) {
        for (int i = 0; i < 5000; i++) {
            std::string bytes = good;
            for (int change = 0; change < 3; change++)
                bytes[random() % bytes.size()] = static_cast<char>(random());
            bytes.resize(random() % (bytes.size() + 1));
            const auto sound = test::ReadWav(bytes);
            EXPECT_LE(sound ? sound->Samples.size() * 2 : 0, bytes.size());
        }
    }
}

}  // namespace
}  // namespace quavix
