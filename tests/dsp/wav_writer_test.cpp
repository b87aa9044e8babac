// SPDX-License-Identifier: MIT
#include "dsp/wav_writer.h"

#include <array>
#include <bit>
#include <limits>
#include <sstream>

#include <gtest/gtest.h>

#include "support/wav_reader.h"

namespace quavix {
namespace {

// A pipe: what is written is there, nothing can be sought.
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
    EXPECT_EQ(sound->StatedDataBytes, 40020U);
    EXPECT_EQ(sound->StatedRiffBytes, 40056U);
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

TEST(WavWriter, StatesUnknownSizesWhereItCannotSeek) {
    Pipe pipe;
    std::ostream stream(&pipe);
    WavWriter writer(stream, 8000, 1);
    EXPECT_TRUE(writer.Write(std::vector<float>(10)));
    EXPECT_TRUE(writer.Finish());
    EXPECT_EQ(NumberAt(pipe.Bytes, 4), 0xFFFFFFFFU);
    EXPECT_EQ(NumberAt(pipe.Bytes, 40), 0xFFFFFFFFU);
    EXPECT_EQ(pipe.Bytes.size(), 64U);
}

TEST(WavWriter, StatesTrueSizesAheadWhereTheyAreKnown) {
    Pipe pipe;
    std::ostream stream(&pipe);
    WavWriter writer(stream, 8000, 1, 10);
    EXPECT_EQ(NumberAt(pipe.Bytes, 4), 56U);
    EXPECT_EQ(NumberAt(pipe.Bytes, 40), 20U);
    EXPECT_TRUE(writer.WriteSilence(10));
    EXPECT_TRUE(writer.Finish());
}

TEST(WavWriter, OtherSizesThanStatedAreCorrectedOrAnError) {
    Pipe pipe;
    std::ostream unseekable(&pipe);
    WavWriter wrong(unseekable, 8000, 1, 10);
    EXPECT_TRUE(wrong.WriteSilence(9));
    EXPECT_FALSE(wrong.Finish());

    std::stringstream seekable;
    WavWriter corrected(seekable, 8000, 1, 10);
    EXPECT_TRUE(corrected.WriteSilence(9));
    EXPECT_TRUE(corrected.Finish());
    EXPECT_EQ(NumberAt(seekable.str(), 40), 18U);
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

    std::stringstream ahead;
    WavWriter tooMuch(ahead, 48000, 1, MostFrames + 1);
    EXPECT_TRUE(tooMuch.TooLong());
    EXPECT_FALSE(tooMuch.WriteSilence(1));
    EXPECT_FALSE(tooMuch.Finish());
    EXPECT_EQ(ahead.str(), "");
    EXPECT_FALSE(WavWriter(ahead, 48000, 1, MostFrames).TooLong());
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
        std::optional<std::int64_t> TotalFrames;
    };
    for (const Case& bad : {Case{0, 1, {}},
                            {-1, 1, {}},
                            {8000, 0, {}},
                            {8000, 32768, {}},
                            {2147483647, 2, {}},
                            {8000, 1, -1}}) {
        std::stringstream stream;
        WavWriter writer(stream, bad.SampleRate, bad.Channels, bad.TotalFrames);
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

}  // namespace
}  // namespace quavix
