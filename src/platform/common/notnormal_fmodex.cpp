// SPDX-License-Identifier: MIT
#include "platform/common/notnormal_fmodex.h"

#include <dlfcn.h>

#include "shell/runtime_error.h"

namespace quavix {
namespace {

template <typename... Parameters, typename... Arguments>
SoundLibrary::Result Call(SoundLibrary::Result (*function)(Parameters...), Arguments... arguments) {
    if (function == nullptr)
        throw RuntimeError(RuntimeError::FileNotFound, "FMODex.dll");
    return function(arguments...);
}

}  // namespace

std::string NOTNORMALfmodex::Load(const std::string& fileName) {
    void* const library = dlopen(fileName.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        const char* const reason = dlerror();
        return reason == nullptr ? "it is no library" : reason;
    }
    Functions functions{};
    std::string reason = Bind(library, functions);
    if (reason.empty())
        f_ = functions;
    else
        dlclose(library);
    return reason;
}

/// Finds every function; the reason names those that are missing.
std::string NOTNORMALfmodex::Bind(void* library, Functions& functions) {
    std::string missing;
    const auto find = [&](const char* name, auto& function) {
        function = reinterpret_cast<std::decay_t<decltype(function)>>(dlsym(library, name));
        if (function == nullptr)
            missing += std::string(missing.empty() ? "" : ", ") + name;
    };
    find("FMOD_System_Create", functions.SystemCreate);
    find("FMOD_System_GetVersion", functions.SystemGetVersion);
    find("FMOD_System_SetDSPBufferSize", functions.SystemSetDspBufferSize);
    find("FMOD_System_GetDSPBufferSize", functions.SystemGetDspBufferSize);
    find("FMOD_System_SetSoftwareChannels", functions.SystemSetSoftwareChannels);
    find("FMOD_System_SetOutput", functions.SystemSetOutput);
    find("FMOD_System_Init", functions.SystemInit);
    find("FMOD_System_GetSoftwareFormat", functions.SystemGetSoftwareFormat);
    find("FMOD_System_CreateDSPByType", functions.SystemCreateDspByType);
    find("FMOD_System_PlayDSP", functions.SystemPlayDsp);
    find("FMOD_System_GetMasterChannelGroup", functions.SystemGetMasterChannelGroup);
    find("FMOD_System_CreateChannelGroup", functions.SystemCreateChannelGroup);
    find("FMOD_System_Update", functions.SystemUpdate);
    find("FMOD_System_Close", functions.SystemClose);
    find("FMOD_System_Release", functions.SystemRelease);
    find("FMOD_DSP_SetParameter", functions.DspSetParameter);
    find("FMOD_DSP_AddInput", functions.DspAddInput);
    find("FMOD_DSP_SetBypass", functions.DspSetBypass);
    find("FMOD_Channel_SetFrequency", functions.ChannelSetFrequency);
    find("FMOD_Channel_SetVolume", functions.ChannelSetVolume);
    find("FMOD_Channel_SetPaused", functions.ChannelSetPaused);
    find("FMOD_Channel_SetChannelGroup", functions.ChannelSetChannelGroup);
    find("FMOD_ChannelGroup_SetVolume", functions.ChannelGroupSetVolume);
    find("FMOD_ChannelGroup_AddGroup", functions.ChannelGroupAddGroup);
    find("FMOD_ChannelGroup_AddDSP", functions.ChannelGroupAddDsp);
    return missing.empty() ? missing : "it lacks " + missing;
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_Create(SoundSystem** system) {
    return Call(f_.SystemCreate, system);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_GetVersion(SoundSystem* system, std::uint32_t* version) {
    return Call(f_.SystemGetVersion, system, version);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_SetDSPBufferSize(SoundSystem* system, std::uint32_t length,
                                                                   std::int32_t count) {
    return Call(f_.SystemSetDspBufferSize, system, length, count);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_GetDSPBufferSize(SoundSystem* system, std::uint32_t* length,
                                                                   std::int32_t* count) {
    return Call(f_.SystemGetDspBufferSize, system, length, count);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_SetSoftwareChannels(SoundSystem* system,
                                                                      std::int32_t channels) {
    return Call(f_.SystemSetSoftwareChannels, system, channels);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_SetOutput(SoundSystem* system, std::int32_t output) {
    return Call(f_.SystemSetOutput, system, output);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_Init(SoundSystem* system, std::int32_t maxChannels,
                                                       std::uint32_t flags, const char* extra) {
    return Call(f_.SystemInit, system, maxChannels, flags, const_cast<char*>(extra));
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_GetSoftwareFormat(SoundSystem* system, std::int32_t* rate) {
    std::int32_t* const notAsked = nullptr;
    return Call(f_.SystemGetSoftwareFormat, system, rate, notAsked, notAsked, notAsked, notAsked, notAsked);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_CreateDSPByType(SoundSystem* system, std::int32_t type,
                                                                  SoundUnit** unit) {
    return Call(f_.SystemCreateDspByType, system, type, unit);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_PlayDSP(SoundSystem* system, std::int32_t channelIndex,
                                                          SoundUnit* unit, bool paused,
                                                          SoundChannel** channel) {
    return Call(f_.SystemPlayDsp, system, channelIndex, unit, paused, channel);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_GetMasterChannelGroup(SoundSystem* system,
                                                                        SoundGroup** group) {
    return Call(f_.SystemGetMasterChannelGroup, system, group);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_CreateChannelGroup(SoundSystem* system, const char* name,
                                                                     SoundGroup** group) {
    return Call(f_.SystemCreateChannelGroup, system, name, group);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_Update(SoundSystem* system) {
    return Call(f_.SystemUpdate, system);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_Close(SoundSystem* system) {
    return Call(f_.SystemClose, system);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_System_Release(SoundSystem* system) {
    return Call(f_.SystemRelease, system);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_DSP_SetParameter(SoundUnit* unit, std::int32_t index,
                                                            float value) {
    return Call(f_.DspSetParameter, unit, index, value);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) {
    return Call(f_.DspAddInput, unit, input);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_DSP_SetBypass(SoundUnit* unit, bool bypass) {
    return Call(f_.DspSetBypass, unit, bypass);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency) {
    return Call(f_.ChannelSetFrequency, channel, frequency);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_Channel_SetVolume(SoundChannel* channel, float volume) {
    return Call(f_.ChannelSetVolume, channel, volume);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_Channel_SetPaused(SoundChannel* channel, bool paused) {
    return Call(f_.ChannelSetPaused, channel, paused);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group) {
    return Call(f_.ChannelSetChannelGroup, channel, group);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume) {
    return Call(f_.ChannelGroupSetVolume, group, volume);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child) {
    return Call(f_.ChannelGroupAddGroup, group, child);
}

SoundLibrary::Result NOTNORMALfmodex::FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit) {
    return Call(f_.ChannelGroupAddDsp, group, unit);
}

}  // namespace quavix
