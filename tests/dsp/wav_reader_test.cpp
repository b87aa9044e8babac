// SPDX-License-Identifier: MIT
#include "dsp/wav_reader.h"

#include <array>
#include <sstream>

#include <gtest/gtest.h>

#include "dsp/wav_writer.h"

namespace quavix {
namespace {

std::string Wav(std::int32_t channels, std::span<const float> samples) {
    std::stringstream out;
    WavWriter writer(out, 48000, channels);
    writer.Write(samples);
    writer.Finish();
    return out.str();
}

TEST(WavReader, GivesTheFirstChannelPieceByPiece) {
    std::istringstream in(Wav(2, std::array{0.5F, 0.0F, -1.0F, 0.0F, 0.25F, 0.0F}));
    WavReader reader(in);
    ASSERT_TRUE(reader.IsGood());
    EXPECT_EQ(reader.SampleRate(), 48000);
    std::array<float, 2> block{};
    EXPECT_EQ(reader.Read(block), 2u);
    EXPECT_NEAR(block[0], 0.5, 1.0 / 32767);
    EXPECT_EQ(block[1], -1.0F);
    EXPECT_EQ(reader.Read(block), 1u);
    EXPECT_NEAR(block[0], 0.25, 1.0 / 32767);
    EXPECT_EQ(reader.Read(block), 0u);
}

TEST(WavReader, EndsWhereTheStreamDoesOrTheHeaderSays) {
    std::string bytes = Wav(1, std::array{0.5F, 0.5F, 0.5F});
    std::array<float, 8> block{};
    std::istringstream more(bytes + "something behind it");
    EXPECT_EQ(WavReader(more).Read(block), 3u);
    std::istringstream cut(bytes.substr(0, bytes.size() - 3));
    EXPECT_EQ(WavReader(cut).Read(block), 1u) << "half a sample is none";
}

TEST(WavReader, PassesOverChunksThatItDoesNotKnow) {
    std::string bytes = Wav(1, std::array{0.5F});
    bytes.insert(36, std::string("LIST\x03\0\0\0abc\0", 12));
    std::istringstream in(bytes);
    std::array<float, 8> block{};
    EXPECT_EQ(WavReader(in).Read(block), 1u);
}

TEST(WavReader, AnythingElseIsNoSound) {
    std::array<float, 8> block{};
    std::string eightBit = Wav(1, std::array{0.5F});
    eightBit[34] = 8;
    for (const std::string& bytes :
         {std::string(), std::string("RIFF"), std::string(100, 'x'), eightBit, Wav(1, {}).substr(0, 40)}) {
        std::istringstream in(bytes);
        WavReader reader(in);
        EXPECT_FALSE(reader.IsGood());
        EXPECT_EQ(reader.Read(block), 0u);
    }
}

}  // namespace
}  // namespace quavix
