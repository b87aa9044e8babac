// SPDX-License-Identifier: MIT
#include "support/wav_reader.h"

#include <random>

#include <gtest/gtest.h>

namespace quavix::test {
namespace {

using namespace std::string_literals;

const std::string Format = "fmt \x10\0\0\0\x01\0\x01\0\x40\x1f\0\0\x80\x3e\0\0\x02\0\x10\0"s;
const std::string Data = "data\x04\0\0\0\xff\x7f\x01\x80"s;

std::string WavFile(const std::string& chunks) {
    return "RIFF\x24\0\0\0WAVE"s + chunks;
}

TEST(WavReader, ReadsFormatAndSamples) {
    const auto sound = ReadWav(WavFile(Format + Data));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->SampleRate, 8000);
    EXPECT_EQ(sound->Channels, 1);
    EXPECT_EQ(sound->Samples, (std::vector<float>{1.0F, -1.0F}));
    EXPECT_EQ(sound->Frames(), 2U);
    EXPECT_EQ(sound->StatedDataBytes, 4U);
    EXPECT_EQ(sound->StatedRiffBytes, 0x24U);
}

TEST(WavReader, PassesOverOtherChunksAndTheirPadding) {
    const std::string list = "LIST\x03\0\0\0abc\0"s;
    const auto sound = ReadWav(WavFile(list + Format + list + Data + "tail"));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->Frames(), 2U);
}

TEST(WavReader, TakesTheSoundThatIsThereWhenMoreIsStated) {
    const auto sound = ReadWav(WavFile(Format + "data\xff\xff\xff\xff\x01\x00\x02\x00\x03"s));
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->Frames(), 2U);
    EXPECT_EQ(sound->StatedDataBytes, 0xFFFFFFFFU);
}

TEST(WavReader, RefusesWhatIsNoSuchSound) {
    EXPECT_FALSE(ReadWav(""));
    EXPECT_FALSE(ReadWav("RIFF"));
    EXPECT_FALSE(ReadWav("RIFX\x24\0\0\0WAVE"s + Format + Data));
    EXPECT_FALSE(ReadWav(WavFile(Format)));
    EXPECT_FALSE(ReadWav(WavFile(Data + Format)));
    EXPECT_FALSE(ReadWav(WavFile(Format.substr(0, 20))));
    for (const std::size_t at : {8U, 10U, 12U, 16U, 20U, 22U}) {
        std::string wrong = Format;
        wrong[at] = 0x33;
        EXPECT_FALSE(ReadWav(WavFile(wrong + Data))) << at;
    }
    EXPECT_FALSE(ReadWavFile("/nonexistent/file.wav"));
}

TEST(WavReader, SurvivesAnyBytes) {
    std::mt19937 random(7);
    const std::string good = WavFile(Format + Data);
    for (int i = 0; i < 5000; i++) {
        std::string bytes = good;
        for (int change = 0; change < 3; change++)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        bytes.resize(random() % (bytes.size() + 1));
        // Exactly as large as what is read, so that the sanitizers see a byte too far.
        const std::vector<char> exact(bytes.begin(), bytes.end());
        EXPECT_LE(ReadWav({exact.data(), exact.size()}).value_or(WavSound{}).Samples.size(), 2U);
    }
}

}  // namespace
}  // namespace quavix::test
