// SPDX-License-Identifier: MIT
#pragma once

#include <dlfcn.h>
#include <stdexcept>
#include <string>

#include "modules/sound_engine/sound_engine.h"

namespace quavix::test {

/// The functions of a sound engine, as a program finds them: by name, in the file beside it.
class EngineModule {
    void* library_ = dlopen(QUAVIX_SOUND_ENGINE, RTLD_NOW | RTLD_LOCAL);

    template <class Function>
    Function Find(const char* name) const {
        void* function = library_ != nullptr ? dlsym(library_, name) : nullptr;
        if (function == nullptr)
            throw std::runtime_error(std::string("no ") + name);
        return reinterpret_cast<Function>(function);
    }

  public:
#define QUAVIX_ENGINE_FUNCTION(name) \
    decltype(&::FMOD_##name) name = Find<decltype(&::FMOD_##name)>("FMOD_" #name)
    QUAVIX_ENGINE_FUNCTION(System_Create);
    QUAVIX_ENGINE_FUNCTION(System_GetVersion);
    QUAVIX_ENGINE_FUNCTION(System_SetDSPBufferSize);
    QUAVIX_ENGINE_FUNCTION(System_GetDSPBufferSize);
    QUAVIX_ENGINE_FUNCTION(System_SetSoftwareChannels);
    QUAVIX_ENGINE_FUNCTION(System_SetOutput);
    QUAVIX_ENGINE_FUNCTION(System_Init);
    QUAVIX_ENGINE_FUNCTION(System_GetSoftwareFormat);
    QUAVIX_ENGINE_FUNCTION(System_CreateDSPByType);
    QUAVIX_ENGINE_FUNCTION(System_PlayDSP);
    QUAVIX_ENGINE_FUNCTION(System_GetMasterChannelGroup);
    QUAVIX_ENGINE_FUNCTION(System_CreateChannelGroup);
    QUAVIX_ENGINE_FUNCTION(System_Update);
    QUAVIX_ENGINE_FUNCTION(System_Close);
    QUAVIX_ENGINE_FUNCTION(System_Release);
    QUAVIX_ENGINE_FUNCTION(DSP_SetParameter);
    QUAVIX_ENGINE_FUNCTION(DSP_GetParameter);
    QUAVIX_ENGINE_FUNCTION(DSP_AddInput);
    QUAVIX_ENGINE_FUNCTION(DSP_SetBypass);
    QUAVIX_ENGINE_FUNCTION(DSP_SetActive);
    QUAVIX_ENGINE_FUNCTION(DSP_Release);
    QUAVIX_ENGINE_FUNCTION(DSP_Remove);
    QUAVIX_ENGINE_FUNCTION(Channel_SetFrequency);
    QUAVIX_ENGINE_FUNCTION(Channel_GetFrequency);
    QUAVIX_ENGINE_FUNCTION(Channel_SetVolume);
    QUAVIX_ENGINE_FUNCTION(Channel_GetVolume);
    QUAVIX_ENGINE_FUNCTION(Channel_SetPaused);
    QUAVIX_ENGINE_FUNCTION(Channel_GetPaused);
    QUAVIX_ENGINE_FUNCTION(Channel_SetChannelGroup);
    QUAVIX_ENGINE_FUNCTION(Channel_Stop);
    QUAVIX_ENGINE_FUNCTION(ChannelGroup_SetVolume);
    QUAVIX_ENGINE_FUNCTION(ChannelGroup_AddGroup);
    QUAVIX_ENGINE_FUNCTION(ChannelGroup_AddDSP);
    QUAVIX_ENGINE_FUNCTION(ChannelGroup_Release);
#undef QUAVIX_ENGINE_FUNCTION
};

/// Loaded once for the whole process; every line of the tests calls it.
inline const EngineModule& E() {
    static const EngineModule module;
    return module;
}

}  // namespace quavix::test
