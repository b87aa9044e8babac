// SPDX-License-Identifier: MIT
#include "platform/common/notnormal_fmodex.h"

#include <dlfcn.h>

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

TEST(SoundLibraryFile, EachFunctionGetsItsArgumentsAndGivesItsResult) {
    NOTNORMALfmodex library;
    ASSERT_EQ(library.Load(QUAVIX_FAKE_FMODEX), "");
    SoundSystem* system = nullptr;
    EXPECT_EQ(library.FMOD_System_Create(&system), 7);
    std::uint32_t version = 0;
    EXPECT_EQ(library.FMOD_System_GetVersion(system, &version), 7);
    EXPECT_EQ(version, 0x40621u);
    EXPECT_EQ(library.FMOD_System_SetDSPBufferSize(system, 16, 256), 7);
    std::uint32_t length = 0;
    std::int32_t count = 0;
    EXPECT_EQ(library.FMOD_System_GetDSPBufferSize(system, &length, &count), 7);
    EXPECT_EQ(length, 16u);
    EXPECT_EQ(count, 256);
    EXPECT_EQ(library.FMOD_System_SetSoftwareChannels(system, 16), 7);
    EXPECT_EQ(library.FMOD_System_SetOutput(system, 5), 7);
    EXPECT_EQ(library.FMOD_System_Init(system, 2, 0, nullptr), 7);
    EXPECT_EQ(library.FMOD_System_Init(system, 2, 1, const_cast<char*>("file")), 7);
    std::int32_t rate = 0;
    EXPECT_EQ(
        library.FMOD_System_GetSoftwareFormat(system, &rate, nullptr, nullptr, nullptr, nullptr, nullptr), 7);
    EXPECT_EQ(rate, 44100);
    SoundUnit* unit = nullptr;
    EXPECT_EQ(library.FMOD_System_CreateDSPByType(system, 2, &unit), 7);
    SoundChannel* channel = nullptr;
    EXPECT_EQ(library.FMOD_System_PlayDSP(system, -2, unit, true, &channel), 7);
    SoundGroup* group = nullptr;
    EXPECT_EQ(library.FMOD_System_GetMasterChannelGroup(system, &group), 7);
    SoundGroup* child = nullptr;
    EXPECT_EQ(library.FMOD_System_CreateChannelGroup(system, "VoiceChannel", &child), 7);
    EXPECT_EQ(library.FMOD_System_Update(system), 7);
    EXPECT_EQ(library.FMOD_DSP_SetParameter(unit, 1, 0.5F), 7);
    EXPECT_EQ(library.FMOD_DSP_AddInput(unit, unit), 7);
    EXPECT_EQ(library.FMOD_DSP_SetBypass(unit, true), 7);
    EXPECT_EQ(library.FMOD_Channel_SetFrequency(channel, 440), 7);
    EXPECT_EQ(library.FMOD_Channel_SetVolume(channel, 0.25F), 7);
    EXPECT_EQ(library.FMOD_Channel_SetPaused(channel, true), 7);
    EXPECT_EQ(library.FMOD_Channel_SetChannelGroup(channel, group), 7);
    EXPECT_EQ(library.FMOD_ChannelGroup_SetVolume(group, 0.75F), 7);
    EXPECT_EQ(library.FMOD_ChannelGroup_AddGroup(group, child), 7);
    EXPECT_EQ(library.FMOD_ChannelGroup_AddDSP(group, unit), 7);
    EXPECT_EQ(library.FMOD_System_Close(system), 7);
    EXPECT_EQ(library.FMOD_System_Release(system), 7);

    void* const same = dlopen(QUAVIX_FAKE_FMODEX, RTLD_NOW);
    ASSERT_NE(same, nullptr);
    const auto calls = reinterpret_cast<const char* (*)()>(dlsym(same, "FakeCalls"));
    EXPECT_STREQ(calls(),
                 "Create\nGetVersion 101\nSetDSPBufferSize 101 16 256\nGetDSPBufferSize 101\n"
                 "SetSoftwareChannels 101 16\nSetOutput 101 5\nInit 101 2 0 null\nInit 101 2 1 file\n"
                 "GetSoftwareFormat 101 1\nCreateDSPByType 101 2\nPlayDSP 101 -2 102 1 0\n"
                 "GetMasterChannelGroup 101\nCreateChannelGroup 101 VoiceChannel\nUpdate 101\n"
                 "SetParameter 102 1 0.5\nAddInput 102 102\nSetBypass 102 1\nSetFrequency 103 440\n"
                 "SetVolume 103 0.25\nSetPaused 103 1\nSetChannelGroup 103 104\nGroup SetVolume 104 0.75\n"
                 "AddGroup 104 105\nAddDSP 104 102\nClose 101\nRelease 101\n");
    dlclose(same);
}

TEST(SoundLibraryFile, MissingFunctionsAreNamedAndTheLibraryIsNotUsed) {
    NOTNORMALfmodex library;
    EXPECT_EQ(library.Load(QUAVIX_LACKING_FMODEX), "it lacks FMOD_System_Init, FMOD_System_Update");
    SoundSystem* system = nullptr;
    EXPECT_THROW(library.FMOD_System_Create(&system), RuntimeError);
}

TEST(SoundLibraryFile, AFileThatIsNoLibraryIsReported) {
    test::TemporaryFolder folder;
    folder.Put("FMODex.dll", "not a library");
    NOTNORMALfmodex library;
    EXPECT_NE(library.Load(folder.File("FMODex.dll")), "");
    EXPECT_NE(library.Load(folder.File("none.dll")), "");
}

TEST(SoundLibraryFile, ACallBeforeLoadingRaisesFileNotFound) {
    NOTNORMALfmodex library;
    try {
        library.FMOD_Channel_SetPaused(nullptr, true);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), RuntimeError::FileNotFound);
    }
}

}  // namespace
}  // namespace quavix
