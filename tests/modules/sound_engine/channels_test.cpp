// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/temporary_folder.h"

namespace quavix::test {
namespace {

class EngineChannels : public testing::Test {
  protected:
    EngineChannels() { engine_.InitSilent(16, 2); }

    SoundResult Play(int number, SoundChannel** channel) {
        return E().System_PlayDSP(engine_.Handle(), number, engine_.Unit(SOUND_OSCILLATOR), 1, channel);
    }

    EngineSystem engine_;
};

TEST_F(EngineChannels, RunOutWhenAllAreTaken) {
    SoundChannel* first = engine_.Play(engine_.Unit(SOUND_OSCILLATOR));
    engine_.Play(engine_.Unit(SOUND_OSCILLATOR));
    SoundChannel* none = nullptr;
    EXPECT_EQ(Play(SOUND_CHANNEL_FREE, &none), SOUND_NO_CHANNEL);
    EXPECT_EQ(Play(SOUND_CHANNEL_REUSE, &none), SOUND_NO_CHANNEL);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(E().Channel_Stop(first), SOUND_OK);
    EXPECT_EQ(Play(SOUND_CHANNEL_FREE, &none), SOUND_OK);
    EXPECT_NE(none, nullptr);
    engine_.Mix(64);
}

TEST_F(EngineChannels, AreTakenOverByTheirNumber) {
    SoundChannel* first = nullptr;
    SoundChannel* second = nullptr;
    EXPECT_EQ(Play(1, &first), SOUND_OK);
    EXPECT_EQ(Play(1, &second), SOUND_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(E().Channel_Stop(first), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().Channel_Stop(second), SOUND_OK);
    EXPECT_EQ(Play(2, &first), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(Play(-3, &first), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(Play(std::numeric_limits<int>::max(), &first), SOUND_INVALID_PARAMETER);
}

TEST_F(EngineChannels, AreReusedByTheirHandle) {
    SoundChannel* channel = nullptr;
    EXPECT_EQ(Play(SOUND_CHANNEL_REUSE, &channel), SOUND_OK);
    engine_.Frequency(channel, 1000.0F);
    SoundChannel* again = channel;
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(Play(SOUND_CHANNEL_REUSE, &again), SOUND_OK);
    EXPECT_EQ(again, channel);
    float frequency = 0.0F;
    EXPECT_EQ(E().Channel_GetFrequency(channel, &frequency), SOUND_OK);
    EXPECT_EQ(frequency, 44100.0F);

    EXPECT_EQ(E().Channel_Stop(channel), SOUND_OK);
    EXPECT_EQ(Play(SOUND_CHANNEL_REUSE, &again), SOUND_INVALID_HANDLE);
}

TEST_F(EngineChannels, PlayAUnitOnlyOnceAtATime) {
    SoundUnit* unit = engine_.Unit(SOUND_OSCILLATOR);
    SoundChannel* first = engine_.Play(unit);
    SoundChannel* second = engine_.Play(unit);
    EXPECT_EQ(E().Channel_SetVolume(first, 1.0F), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().Channel_SetVolume(second, 1.0F), SOUND_OK);
    // On the channel where it is already, by its handle.
    EXPECT_EQ(E().System_PlayDSP(engine_.Handle(), SOUND_CHANNEL_REUSE, unit, 0, &second), SOUND_OK);
    EXPECT_EQ(E().Channel_SetVolume(second, 1.0F), SOUND_OK);
    // The other channel is free again.
    EXPECT_EQ(Play(SOUND_CHANNEL_FREE, &first), SOUND_OK);
    engine_.Mix(64);
}

TEST_F(EngineChannels, EndWithTheirUnit) {
    SoundUnit* unit = engine_.Unit(SOUND_OSCILLATOR);
    SoundChannel* channel = engine_.Play(unit);
    engine_.Mix(64);
    EXPECT_EQ(E().DSP_Release(unit), SOUND_OK);
    EXPECT_EQ(E().Channel_Stop(channel), SOUND_INVALID_HANDLE);
    engine_.Mix(640);
}

TEST_F(EngineChannels, KeepFrequencyAndVolumeInTheirRanges) {
    SoundChannel* channel = engine_.Play(engine_.Unit(SOUND_OSCILLATOR));
    const auto frequency = [&](float value) {
        EXPECT_EQ(E().Channel_SetFrequency(channel, value), SOUND_OK);
        EXPECT_EQ(E().Channel_GetFrequency(channel, &value), SOUND_OK);
        return value;
    };
    const auto volume = [&](float value) {
        EXPECT_EQ(E().Channel_SetVolume(channel, value), SOUND_OK);
        EXPECT_EQ(E().Channel_GetVolume(channel, &value), SOUND_OK);
        return value;
    };
    EXPECT_EQ(frequency(5277.888F), 5277.888F);
    EXPECT_EQ(frequency(-1.0F), 0.0F);
    EXPECT_EQ(frequency(1e9F), 1e6F);
    EXPECT_EQ(volume(0.18F), 0.18F);
    EXPECT_EQ(volume(-0.5F), 0.0F);
    EXPECT_EQ(volume(11.0F), 10.0F);
    for (const float none :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
        EXPECT_EQ(E().Channel_SetFrequency(channel, none), SOUND_INVALID_FLOAT);
        EXPECT_EQ(E().Channel_SetVolume(channel, -none), SOUND_INVALID_FLOAT);
        EXPECT_EQ(E().ChannelGroup_SetVolume(engine_.Master(), none), SOUND_INVALID_FLOAT);
    }
    float value = 0.0F;
    EXPECT_EQ(E().Channel_GetFrequency(channel, &value), SOUND_OK);
    EXPECT_EQ(value, 1e6F);
}

struct ParameterRange {
    int Type;
    int Index;
    float Lowest;
    float Highest;
    float Default;
};

constexpr std::array<ParameterRange, 7> Ranges = {{{SOUND_OSCILLATOR, 0, 0.0F, 5.0F, 0.0F},
                                                   {SOUND_OSCILLATOR, 1, 1.0F, 22000.0F, 220.0F},
                                                   {SOUND_LOW_PASS, 0, 1.0F, 22000.0F, 5000.0F},
                                                   {SOUND_LOW_PASS, 1, 1.0F, 10.0F, 1.0F},
                                                   {SOUND_EQUALISER, 0, 20.0F, 22000.0F, 8000.0F},
                                                   {SOUND_EQUALISER, 1, 0.2F, 5.0F, 1.0F},
                                                   {SOUND_EQUALISER, 2, 0.05F, 3.0F, 1.0F}}};

TEST_F(EngineChannels, UnitsKeepTheirParametersInTheirRanges) {
    for (const ParameterRange& range : Ranges) {
        SoundUnit* unit = engine_.Unit(range.Type);
        EXPECT_EQ(engine_.Get(unit, range.Index), range.Default) << range.Type << " " << range.Index;
        engine_.Set(unit, range.Index, range.Highest + 97.0F);
        EXPECT_EQ(engine_.Get(unit, range.Index), range.Highest);
        engine_.Set(unit, range.Index, -100.0F);
        EXPECT_EQ(engine_.Get(unit, range.Index), range.Lowest);
        engine_.Set(unit, range.Index, 2.0F < range.Lowest ? 30.0F : 2.0F);
        const float before = engine_.Get(unit, range.Index);
        for (const float none :
             {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
              -std::numeric_limits<float>::infinity()})
            EXPECT_EQ(E().DSP_SetParameter(unit, range.Index, none), SOUND_INVALID_FLOAT);
        EXPECT_EQ(engine_.Get(unit, range.Index), before);
    }
    EXPECT_EQ(engine_.Get(engine_.Oscillator(SOUND_SINE, 100.0F), SOUND_OSCILLATOR_RATE), 100.0F);
}

TEST_F(EngineChannels, UnitsHaveNoOtherParameters) {
    float value = 7.0F;
    for (const auto& [type, count] :
         {std::pair{SOUND_OSCILLATOR, 2}, {SOUND_LOW_PASS, 2}, {SOUND_EQUALISER, 3}}) {
        SoundUnit* unit = engine_.Unit(type);
        for (const int index :
             {-1, count, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
            EXPECT_EQ(E().DSP_SetParameter(unit, index, 1.0F), SOUND_INVALID_PARAMETER);
            EXPECT_EQ(E().DSP_GetParameter(unit, index, &value, nullptr, 0), SOUND_INVALID_PARAMETER);
        }
    }
    EXPECT_EQ(value, 7.0F);
}

TEST_F(EngineChannels, UnitsTellTheirParametersAsTextThatFits) {
    SoundUnit* unit = engine_.Equaliser(1180.0F, 0.5F, 2.5F);
    const auto text = [&](int index, int length) {
        std::array<char, 32> buffer;
        buffer.fill('#');
        EXPECT_EQ(E().DSP_GetParameter(unit, index, nullptr, buffer.data(), length), SOUND_OK);
        EXPECT_EQ(buffer[static_cast<std::size_t>(length)], '#');
        return std::string(buffer.data());
    };
    EXPECT_EQ(text(SOUND_EQUALISER_CENTRE, 31), "1180 Hz");
    EXPECT_EQ(text(SOUND_EQUALISER_BANDWIDTH, 31), "0.5 octaves");
    EXPECT_EQ(text(SOUND_EQUALISER_GAIN, 31), "2.5");
    EXPECT_EQ(text(SOUND_EQUALISER_CENTRE, 4), "118");
    EXPECT_EQ(text(SOUND_EQUALISER_CENTRE, 1), "");
    char one = '#';
    EXPECT_EQ(E().DSP_GetParameter(unit, 0, nullptr, &one, 0), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(one, '#');
}

}  // namespace
}  // namespace quavix::test
