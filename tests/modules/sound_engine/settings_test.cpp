// SPDX-License-Identifier: MIT
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"
#include "support/measure.h"
#include "support/temporary_folder.h"
#include "support/wav_sound.h"

namespace quavix::test {
namespace {

TEST(EngineSettings, TellTheVersionBeforeAndAfterInit) {
    EngineSystem engine;
    unsigned int version = 0;
    EXPECT_EQ(E().System_GetVersion(engine.Handle(), &version), SOUND_OK);
    EXPECT_EQ(version, 0x00040621U);
    engine.InitSilent();
    version = 0;
    EXPECT_EQ(E().System_GetVersion(engine.Handle(), &version), SOUND_OK);
    EXPECT_EQ(version, 0x00040621U);
}

TEST(EngineSettings, KeepTheBufferSize) {
    EngineSystem engine;
    SoundSystem* system = engine.Handle();
    unsigned int length = 0;
    int count = 0;
    EXPECT_EQ(E().System_GetDSPBufferSize(system, &length, &count), SOUND_OK);
    EXPECT_EQ(length, 1024U);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(E().System_SetDSPBufferSize(system, 16, 256), SOUND_OK);
    for (const auto& [wrongLength, wrongCount] : {std::pair{0U, 4},
                                                  {65537U, 1},
                                                  {std::numeric_limits<unsigned int>::max(), 1},
                                                  {16U, 0},
                                                  {16U, -1},
                                                  {65536U, 17},
                                                  {1U, std::numeric_limits<int>::max()}})
        EXPECT_EQ(E().System_SetDSPBufferSize(system, wrongLength, wrongCount), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_GetDSPBufferSize(system, nullptr, &count), SOUND_OK);
    EXPECT_EQ(E().System_GetDSPBufferSize(system, &length, nullptr), SOUND_OK);
    EXPECT_EQ(length, 16U);
    EXPECT_EQ(count, 256);
    EXPECT_EQ(E().System_SetDSPBufferSize(system, 65536, 16), SOUND_OK);
}

TEST(EngineSettings, AreFixedAfterInit) {
    EngineSystem engine;
    engine.InitSilent();
    EXPECT_EQ(E().System_SetDSPBufferSize(engine.Handle(), 64, 4), SOUND_INITIALIZED);
    EXPECT_EQ(E().System_SetSoftwareChannels(engine.Handle(), 4), SOUND_INITIALIZED);
    EXPECT_EQ(E().System_SetOutput(engine.Handle(), SOUND_OUTPUT_NONE), SOUND_INITIALIZED);
    EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, nullptr), SOUND_INITIALIZED);
    EXPECT_EQ(E().System_Close(engine.Handle()), SOUND_OK);
    EXPECT_EQ(E().System_SetDSPBufferSize(engine.Handle(), 64, 4), SOUND_OK);
}

TEST(EngineSettings, MostCallsHaveToWaitForInit) {
    EngineSystem engine;
    SoundSystem* system = engine.Handle();
    SoundUnit* unit = nullptr;
    SoundGroup* group = nullptr;
    int rate = 0;
    const auto refused = [&] {
        EXPECT_EQ(E().System_CreateDSPByType(system, SOUND_OSCILLATOR, &unit), SOUND_UNINITIALIZED);
        EXPECT_EQ(E().System_GetMasterChannelGroup(system, &group), SOUND_UNINITIALIZED);
        EXPECT_EQ(E().System_CreateChannelGroup(system, "group", &group), SOUND_UNINITIALIZED);
        EXPECT_EQ(E().System_GetSoftwareFormat(system, &rate, nullptr, nullptr, nullptr, nullptr, nullptr),
                  SOUND_UNINITIALIZED);
        EXPECT_EQ(E().System_Update(system), SOUND_UNINITIALIZED);
        EXPECT_EQ(E().System_Close(system), SOUND_UNINITIALIZED);
        SoundChannel* channel = nullptr;
        EXPECT_EQ(E().System_PlayDSP(system, SOUND_CHANNEL_FREE, unit, 0, &channel), SOUND_UNINITIALIZED);
    };
    refused();
    EXPECT_EQ(unit, nullptr);
    engine.InitSilent();
    EXPECT_EQ(E().System_Close(system), SOUND_OK);
    refused();
}

TEST(EngineSettings, KnowTheirOutputsAndUnits) {
    EngineSystem engine;
    for (const int output : {-1, 1, 6, 99})
        EXPECT_EQ(E().System_SetOutput(engine.Handle(), output), SOUND_UNKNOWN_TYPE) << output;
    for (const int output : {0, 2, 3, 4, 5})
        EXPECT_EQ(E().System_SetOutput(engine.Handle(), output), SOUND_OK) << output;
    engine.InitSilent();
    SoundUnit* unit = nullptr;
    for (const int type : {-1, 0, 1, 4, 9, 11, 1000})
        EXPECT_EQ(E().System_CreateDSPByType(engine.Handle(), type, &unit), SOUND_UNKNOWN_TYPE) << type;
    EXPECT_EQ(unit, nullptr);
}

TEST(EngineSettings, LimitTheChannels) {
    EngineSystem engine;
    SoundSystem* system = engine.Handle();
    for (const int channels : {-1, 4097})
        EXPECT_EQ(E().System_SetSoftwareChannels(system, channels), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_SetOutput(system, SOUND_OUTPUT_NONE_BY_UPDATE), SOUND_OK);
    for (const int channels : {-1, 4097})
        EXPECT_EQ(E().System_Init(system, channels, 0, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_SetSoftwareChannels(system, 1), SOUND_OK);
    EXPECT_EQ(E().System_Init(system, 16, 0, nullptr), SOUND_OK);
    engine.Play(engine.Unit(SOUND_OSCILLATOR));
    SoundChannel* channel = nullptr;
    EXPECT_EQ(E().System_PlayDSP(system, SOUND_CHANNEL_FREE, engine.Unit(SOUND_OSCILLATOR), 0, &channel),
              SOUND_NO_CHANNEL);
}

TEST(EngineSettings, TellTheFormatOfEveryOutput) {
    const TemporaryFolder folder;
    for (const int output : {2, 3, 4, 5}) {
        EngineSystem engine;
        std::string file = folder.File("format.wav");
        EXPECT_EQ(E().System_SetOutput(engine.Handle(), output), SOUND_OK);
        EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, file.data()), SOUND_OK);
        int rate = 0;
        int format = 0;
        int outputs = 0;
        int inputs = 0;
        int resampler = 0;
        int bits = 0;
        EXPECT_EQ(E().System_GetSoftwareFormat(engine.Handle(), &rate, &format, &outputs, &inputs, &resampler,
                                               &bits),
                  SOUND_OK);
        EXPECT_EQ(rate, 48000);
        const bool toFile = output == 3 || output == 5;
        EXPECT_EQ(format, toFile ? SOUND_FORMAT_INT16 : SOUND_FORMAT_FLOAT32);
        EXPECT_EQ(bits, toFile ? 16 : 32);
        EXPECT_EQ(outputs, 2);
        EXPECT_EQ(inputs, 1);
        EXPECT_EQ(resampler, 1);
        EXPECT_EQ(E().System_GetSoftwareFormat(engine.Handle(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                               nullptr),
                  SOUND_OK);
    }
}

TEST(EngineSettings, AfterAFileThatDoesNotOpenAnotherCanBeOpened) {
    const TemporaryFolder folder;
    EngineSystem engine;
    std::string nowhere = folder.File("no/such/folder.wav");
    for (const int output : {3, 5}) {
        EXPECT_EQ(E().System_SetOutput(engine.Handle(), output), SOUND_OK);
        EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, nowhere.data()), SOUND_NO_OUTPUT);
        EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, nullptr), SOUND_INVALID_PARAMETER);
    }
    engine.InitWav(folder.File("here.wav"));
    engine.Mix(160);
    EXPECT_EQ(engine.Finish().size(), 160U);
}

TEST(EngineSettings, AFullDiskIsReported) {
    EngineSystem engine;
    std::string full = "/dev/full";
    EXPECT_EQ(E().System_SetOutput(engine.Handle(), SOUND_OUTPUT_WAV_BY_UPDATE), SOUND_OK);
    EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, full.data()), SOUND_OK);
    SoundResult result = SOUND_OK;
    for (int block = 0; block < 10000 && result == SOUND_OK; ++block)
        result = E().System_Update(engine.Handle());
    EXPECT_EQ(result, SOUND_UPDATE_FAILED);
}

TEST(EngineSettings, ASystemCanBeOpenedAgain) {
    const TemporaryFolder folder;
    EngineSystem engine;
    std::vector<float> first;
    for (const char* name : {"first.wav", "second.wav"}) {
        engine.InitWav(folder.File(name));
        engine.Play(engine.Oscillator(SOUND_TRIANGLE, 440.0F));
        engine.Mix(1600);
        const std::vector<float> sound = engine.Finish();
        EXPECT_GT(Peak(sound), 0.9);
        EXPECT_TRUE(first.empty() || first == sound);
        first = sound;
    }
}

TEST(EngineSystems, SoundSideBySideAsTheyDoAlone) {
    const TemporaryFolder folder;
    const auto play = [](EngineSystem& engine, SoundWaveform type) {
        return engine.Play(engine.Oscillator(type, 600.0F));
    };
    std::vector<float> alone;
    {
        EngineSystem engine;
        engine.InitWav(folder.File("alone.wav"), 64);
        play(engine, SOUND_SQUARE);
        engine.Mix(6400);
        alone = engine.Finish();
    }
    EngineSystem tones;
    EngineSystem voice;
    const EngineSystem third;
    tones.InitWav(folder.File("tones.wav"), 64);
    voice.InitWav(folder.File("voice.wav"), 16);
    play(tones, SOUND_SQUARE);
    SoundChannel* channel = play(voice, SOUND_SINE);
    for (int i = 0; i < 100; ++i) {
        tones.Mix(64);
        voice.Frequency(channel, static_cast<float>(1000 * i));
        voice.Mix(16);
    }
    EXPECT_EQ(tones.Finish(), alone);
    EXPECT_EQ(voice.Finish().size(), 1600U);
}

TEST(EngineSystems, EndWithEverythingOnThem) {
    EngineSystem engine;
    engine.InitSilent();
    SoundUnit* unit = engine.Unit(SOUND_OSCILLATOR);
    SoundChannel* channel = engine.Play(unit);
    SoundGroup* group = engine.Group();
    SoundGroup* master = engine.Master();
    engine.Mix(16);
    EXPECT_EQ(E().System_Close(engine.Handle()), SOUND_OK);
    EXPECT_EQ(E().DSP_SetParameter(unit, 0, 1.0F), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().Channel_Stop(channel), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().ChannelGroup_SetVolume(group, 1.0F), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().ChannelGroup_SetVolume(master, 1.0F), SOUND_INVALID_HANDLE);
}

TEST(EngineSystems, WithoutADriverWriteWhatADeviceWouldHavePlayed) {
    // No waiting for a time: the file has to hold whole blocks of the tone, however many.
    const TemporaryFolder folder;
    std::string file = folder.File("timed.wav");
    EngineSystem engine;
    EXPECT_EQ(E().System_SetOutput(engine.Handle(), SOUND_OUTPUT_WAV), SOUND_OK);
    EXPECT_EQ(E().System_SetDSPBufferSize(engine.Handle(), 160, 4), SOUND_OK);
    EXPECT_EQ(E().System_Init(engine.Handle(), 2, 0, file.data()), SOUND_OK);
    engine.Play(engine.Oscillator(SOUND_SINE, 480.0F));
    EXPECT_EQ(E().System_Update(engine.Handle()), SOUND_OK);
    EXPECT_EQ(E().System_Close(engine.Handle()), SOUND_OK);
    const auto sound = ReadWavFile(file);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->Frames() % 160, 0U);
}

}  // namespace
}  // namespace quavix::test
