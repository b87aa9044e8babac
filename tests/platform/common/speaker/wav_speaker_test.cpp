// SPDX-License-Identifier: MIT
#include "platform/common/speaker/wav_speaker.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include <gmock/gmock.h>

#include "fake_time.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

class WavSpeakerFile : public testing::Test {
  protected:
    std::string Bytes() const {
        std::ifstream in(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    template <typename Number>
    static Number At(const std::string& bytes, std::size_t offset) {
        Number number{};
        std::memcpy(&number, bytes.data() + offset, sizeof number);
        return number;
    }
    std::vector<std::int16_t> Samples() const {
        const std::string bytes = Bytes();
        EXPECT_EQ(bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4), "RIFFWAVEfmt data");
        EXPECT_EQ(At<std::uint32_t>(bytes, 4), bytes.size() - 8);
        EXPECT_EQ(At<std::uint32_t>(bytes, 40), bytes.size() - 44);
        EXPECT_EQ(At<std::uint16_t>(bytes, 22), 1);
        EXPECT_EQ(At<std::uint32_t>(bytes, 24), 48000u);
        EXPECT_EQ(At<std::uint16_t>(bytes, 34), 16);
        std::vector<std::int16_t> samples;
        for (std::size_t offset = 44; offset + 2 <= bytes.size(); offset += 2)
            samples.push_back(At<std::int16_t>(bytes, offset));
        return samples;
    }

    FakeTime time_;
    test::TemporaryFolder folder_;
    const std::string path_ = folder_.File("heard.wav");
};

TEST_F(WavSpeakerFile, IsWholeBeforeTheFirstTone) {
    const WavSpeaker speaker(path_, time_.Clock());
    EXPECT_FALSE(speaker.Failed());
    EXPECT_TRUE(Samples().empty());
}

TEST_F(WavSpeakerFile, HoldsSilencesAndTonesWhereTheyWereHeard) {
    WavSpeaker speaker(path_, time_.Clock());
    time_.NowNs += 100 * NsPerMs;
    speaker.Beep(1000, 250);
    EXPECT_EQ(Samples().size(), 4800u + 12000u);
    time_.NowNs += 50 * NsPerMs;
    speaker.Beep(40000, 100);
    speaker.Beep(500, 10);

    const auto samples = Samples();
    ASSERT_EQ(samples.size(), 48u * (100 + 250 + 50 + 100 + 10));
    const auto silent = [&](std::size_t from, std::size_t to) {
        return std::all_of(samples.begin() + from, samples.begin() + to, [](int s) { return s == 0; });
    };
    const auto edges = [&](std::size_t from, std::size_t to) {
        int count = 0;
        for (std::size_t i = from + 1; i < to; ++i)
            count += (samples[i - 1] < 0) != (samples[i] < 0) ? 1 : 0;
        return count;
    };
    EXPECT_TRUE(silent(0, 4800));
    EXPECT_NEAR(edges(4800, 16800), 500, 2);
    EXPECT_TRUE(silent(16800, 24000));
    EXPECT_NEAR(edges(24000, 24480), 10, 2);
    EXPECT_LE(*std::max_element(samples.begin(), samples.end()), 32767 / 4);
    EXPECT_GE(*std::max_element(samples.begin(), samples.end()), 32767 / 6);
}

TEST_F(WavSpeakerFile, HasNoGapsBetweenTonesInARow) {
    WavSpeaker speaker(path_, time_.Clock());
    for (int tone = 0; tone < 9; ++tone)
        speaker.Beep(440, 33);
    EXPECT_EQ(Samples().size(), 9u * 33 * 48);
}

TEST_F(WavSpeakerFile, KeepsTheTimeOfTheTones) {
    WavSpeaker speaker(path_, time_.Clock());
    const std::int64_t start = time_.NowNs;
    speaker.Beep(440, 9000);
    speaker.Beep(3, 1000);
    EXPECT_EQ(time_.NowNs - start, 10 * NsPerSecond);
}

TEST_F(WavSpeakerFile, ThatCannotBeWrittenIsReportedAndTimeIsKept) {
    WavSpeaker speaker("/dev/full", time_.Clock());
    EXPECT_TRUE(speaker.Failed());
    EXPECT_THAT(speaker.Status().Reason, testing::HasSubstr("/dev/full can't be written: No space left"));
    const std::int64_t start = time_.NowNs;
    speaker.Beep(440, 100);
    EXPECT_EQ(time_.NowNs - start, 100 * NsPerMs);
}

}  // namespace
}  // namespace quavix
