// SPDX-License-Identifier: MIT
#include "modules/sound_engine/engine_system.h"

#include <gtest/gtest.h>

#include "support/wav_sound.h"

namespace quavix::test {

EngineSystem::EngineSystem() {
    EXPECT_EQ(E().System_Create(&system_), SOUND_OK);
}

EngineSystem::~EngineSystem() {
    EXPECT_EQ(E().System_Release(system_), SOUND_OK);
}

void EngineSystem::Init(int output, unsigned int block, int channels, void* extra) {
    EXPECT_EQ(E().System_SetOutput(system_, output), SOUND_OK);
    EXPECT_EQ(E().System_SetDSPBufferSize(system_, block, 4), SOUND_OK);
    EXPECT_EQ(E().System_Init(system_, channels, 0, extra), SOUND_OK);
    block_ = block;
    mixed_ = 0;
}

void EngineSystem::InitWav(const std::string& fileName, unsigned int block, int channels) {
    fileName_ = fileName;
    Init(SOUND_OUTPUT_WAV_BY_UPDATE, block, channels, fileName_.data());
}

void EngineSystem::InitSilent(unsigned int block, int channels) {
    Init(SOUND_OUTPUT_NONE_BY_UPDATE, block, channels, nullptr);
}

SoundUnit* EngineSystem::Unit(int type) const {
    SoundUnit* unit = nullptr;
    EXPECT_EQ(E().System_CreateDSPByType(system_, type, &unit), SOUND_OK);
    return unit;
}

SoundUnit* EngineSystem::Oscillator(SoundWaveform type, float rate) const {
    SoundUnit* unit = Unit(SOUND_OSCILLATOR);
    Set(unit, SOUND_OSCILLATOR_TYPE, static_cast<float>(type));
    Set(unit, SOUND_OSCILLATOR_RATE, rate);
    return unit;
}

SoundUnit* EngineSystem::Equaliser(float centre, float octaves, float gain) const {
    SoundUnit* unit = Unit(SOUND_EQUALISER);
    Set(unit, SOUND_EQUALISER_CENTRE, centre);
    Set(unit, SOUND_EQUALISER_BANDWIDTH, octaves);
    Set(unit, SOUND_EQUALISER_GAIN, gain);
    return unit;
}

SoundChannel* EngineSystem::Play(SoundUnit* unit, bool paused) const {
    SoundChannel* channel = nullptr;
    EXPECT_EQ(E().System_PlayDSP(system_, SOUND_CHANNEL_FREE, unit, paused ? 1 : 0, &channel), SOUND_OK);
    return channel;
}

SoundChannel* EngineSystem::PlaySine(double hz, float volume) const {
    SoundChannel* channel = Play(Oscillator(SOUND_SINE, static_cast<float>(hz)));
    Frequency(channel, Rate);
    Volume(channel, volume);
    return channel;
}

SoundGroup* EngineSystem::Master() const {
    SoundGroup* group = nullptr;
    EXPECT_EQ(E().System_GetMasterChannelGroup(system_, &group), SOUND_OK);
    return group;
}

SoundGroup* EngineSystem::Group() const {
    SoundGroup* group = nullptr;
    EXPECT_EQ(E().System_CreateChannelGroup(system_, "group", &group), SOUND_OK);
    return group;
}

void EngineSystem::Set(SoundUnit* unit, int index, float value) const {
    EXPECT_EQ(E().DSP_SetParameter(unit, index, value), SOUND_OK);
}

float EngineSystem::Get(SoundUnit* unit, int index) const {
    float value = -1.0F;
    EXPECT_EQ(E().DSP_GetParameter(unit, index, &value, nullptr, 0), SOUND_OK);
    return value;
}

void EngineSystem::Volume(SoundChannel* channel, float volume) const {
    EXPECT_EQ(E().Channel_SetVolume(channel, volume), SOUND_OK);
}

void EngineSystem::Frequency(SoundChannel* channel, float frequency) const {
    EXPECT_EQ(E().Channel_SetFrequency(channel, frequency), SOUND_OK);
}

void EngineSystem::Pause(SoundChannel* channel, bool paused) const {
    EXPECT_EQ(E().Channel_SetPaused(channel, paused ? 1 : 0), SOUND_OK);
}

std::int64_t EngineSystem::Mix(std::int64_t frames) {
    for (std::int64_t done = 0; done < frames; done += block_) {
        EXPECT_EQ(E().System_Update(system_), SOUND_OK);
        mixed_ += block_;
    }
    return mixed_;
}

std::vector<float> EngineSystem::Finish() {
    EXPECT_EQ(E().System_Close(system_), SOUND_OK);
    const auto sound = ReadWavFile(fileName_);
    std::vector<float> left;
    if (!sound || sound->SampleRate != Rate || sound->Channels != 2) {
        ADD_FAILURE() << "no stereo WAV file of the right rate";
        return left;
    }
    EXPECT_EQ(static_cast<std::int64_t>(sound->Frames()), mixed_);
    for (std::size_t i = 0; i < sound->Samples.size(); i += 2) {
        left.push_back(sound->Samples[i]);
        if (sound->Samples[i] != sound->Samples[i + 1]) {
            ADD_FAILURE() << "left and right differ in frame " << i / 2;
            break;
        }
    }
    return left;
}

}  // namespace quavix::test
