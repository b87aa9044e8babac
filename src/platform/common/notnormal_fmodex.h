// SPDX-License-Identifier: MIT
#pragma once

#include "ports/sound_library.h"

namespace quavix {

/// The sound library in a file that is loaded at run time, its functions found by their names. The program
/// needs none to be there to start. Once loaded it stays, as it has threads of its own.
class NOTNORMALfmodex : public SoundLibrary {
  public:
    std::string Load(const std::string& fileName) override;

    Result FMOD_System_Create(SoundSystem** system) override;
    Result FMOD_System_GetVersion(SoundSystem* system, std::uint32_t* version) override;
    Result FMOD_System_SetDSPBufferSize(SoundSystem* system, std::uint32_t length,
                                        std::int32_t count) override;
    Result FMOD_System_GetDSPBufferSize(SoundSystem* system, std::uint32_t* length,
                                        std::int32_t* count) override;
    Result FMOD_System_SetSoftwareChannels(SoundSystem* system, std::int32_t channels) override;
    Result FMOD_System_SetOutput(SoundSystem* system, std::int32_t output) override;
    Result FMOD_System_Init(SoundSystem* system, std::int32_t maxChannels, std::uint32_t flags,
                            const char* extra) override;
    Result FMOD_System_GetSoftwareFormat(SoundSystem* system, std::int32_t* rate) override;
    Result FMOD_System_CreateDSPByType(SoundSystem* system, std::int32_t type, SoundUnit** unit) override;
    Result FMOD_System_PlayDSP(SoundSystem* system, std::int32_t channelIndex, SoundUnit* unit, bool paused,
                               SoundChannel** channel) override;
    Result FMOD_System_GetMasterChannelGroup(SoundSystem* system, SoundGroup** group) override;
    Result FMOD_System_CreateChannelGroup(SoundSystem* system, const char* name, SoundGroup** group) override;
    Result FMOD_System_Update(SoundSystem* system) override;
    Result FMOD_System_Close(SoundSystem* system) override;
    Result FMOD_System_Release(SoundSystem* system) override;
    Result FMOD_DSP_SetParameter(SoundUnit* unit, std::int32_t index, float value) override;
    Result FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) override;
    Result FMOD_DSP_SetBypass(SoundUnit* unit, bool bypass) override;
    Result FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency) override;
    Result FMOD_Channel_SetVolume(SoundChannel* channel, float volume) override;
    Result FMOD_Channel_SetPaused(SoundChannel* channel, bool paused) override;
    Result FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group) override;
    Result FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume) override;
    Result FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child) override;
    Result FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit) override;

  private:
    /// The library's functions; its Booleans are whole numbers.
    struct Functions {
        Result (*SystemCreate)(SoundSystem**);
        Result (*SystemGetVersion)(SoundSystem*, std::uint32_t*);
        Result (*SystemSetDspBufferSize)(SoundSystem*, std::uint32_t, std::int32_t);
        Result (*SystemGetDspBufferSize)(SoundSystem*, std::uint32_t*, std::int32_t*);
        Result (*SystemSetSoftwareChannels)(SoundSystem*, std::int32_t);
        Result (*SystemSetOutput)(SoundSystem*, std::int32_t);
        Result (*SystemInit)(SoundSystem*, std::int32_t, std::uint32_t, void*);
        Result (*SystemGetSoftwareFormat)(SoundSystem*, std::int32_t* rate, std::int32_t* format,
                                          std::int32_t* outputs, std::int32_t* maxInputs,
                                          std::int32_t* resampler, std::int32_t* bits);
        Result (*SystemCreateDspByType)(SoundSystem*, std::int32_t, SoundUnit**);
        Result (*SystemPlayDsp)(SoundSystem*, std::int32_t, SoundUnit*, std::int32_t paused, SoundChannel**);
        Result (*SystemGetMasterChannelGroup)(SoundSystem*, SoundGroup**);
        Result (*SystemCreateChannelGroup)(SoundSystem*, const char*, SoundGroup**);
        Result (*SystemUpdate)(SoundSystem*);
        Result (*SystemClose)(SoundSystem*);
        Result (*SystemRelease)(SoundSystem*);
        Result (*DspSetParameter)(SoundUnit*, std::int32_t, float);
        Result (*DspAddInput)(SoundUnit*, SoundUnit*);
        Result (*DspSetBypass)(SoundUnit*, std::int32_t bypass);
        Result (*ChannelSetFrequency)(SoundChannel*, float);
        Result (*ChannelSetVolume)(SoundChannel*, float);
        Result (*ChannelSetPaused)(SoundChannel*, std::int32_t paused);
        Result (*ChannelSetChannelGroup)(SoundChannel*, SoundGroup*);
        Result (*ChannelGroupSetVolume)(SoundGroup*, float);
        Result (*ChannelGroupAddGroup)(SoundGroup*, SoundGroup*);
        Result (*ChannelGroupAddDsp)(SoundGroup*, SoundUnit*);
    };

    static std::string Bind(void* library, Functions& functions);

    Functions f_{};
};

}  // namespace quavix
