// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "modules/sound_engine/sound_engine.h"

/// The functions of the sound library that the program uses, as declared in the library's own header.
#define QUAVIX_SOUND_FUNCTIONS(USE)        \
    USE(FMOD_System_Create)                \
    USE(FMOD_System_GetVersion)            \
    USE(FMOD_System_SetDSPBufferSize)      \
    USE(FMOD_System_GetDSPBufferSize)      \
    USE(FMOD_System_SetSoftwareChannels)   \
    USE(FMOD_System_SetOutput)             \
    USE(FMOD_System_Init)                  \
    USE(FMOD_System_GetSoftwareFormat)     \
    USE(FMOD_System_CreateDSPByType)       \
    USE(FMOD_System_PlayDSP)               \
    USE(FMOD_System_GetMasterChannelGroup) \
    USE(FMOD_System_CreateChannelGroup)    \
    USE(FMOD_System_Update)                \
    USE(FMOD_System_Close)                 \
    USE(FMOD_System_Release)               \
    USE(FMOD_DSP_SetParameter)             \
    USE(FMOD_DSP_AddInput)                 \
    USE(FMOD_DSP_SetBypass)                \
    USE(FMOD_Channel_SetFrequency)         \
    USE(FMOD_Channel_SetVolume)            \
    USE(FMOD_Channel_SetPaused)            \
    USE(FMOD_Channel_SetChannelGroup)      \
    USE(FMOD_ChannelGroup_SetVolume)       \
    USE(FMOD_ChannelGroup_AddGroup)        \
    USE(FMOD_ChannelGroup_AddDSP)

namespace quavix {

/// The sound library: its functions under their names.
///
/// Thread: the user-interface thread; no call runs handlers. The library's own header describes the
/// functions. Each returns a result, 0 for no error, and fills in its output arguments only with result 0. A
/// function called before a successful Load() raises FileNotFound.
class SoundLibrary {
  public:
    /// Result of a call: 0 for no error.
    using Result = SoundResult;

    virtual ~SoundLibrary() = default;

    /// Loads the library from a file, for the rest of the process. Returns an empty text, or the reason, a
    /// sentence without its full stop, if the file is no library or lacks a function.
    virtual std::string Load(const std::string& fileName) = 0;

// NOLINTNEXTLINE(bugprone-macro-parentheses): a declaration
#define QUAVIX_MEMBER(name) std::function<decltype(::name)> name;
    QUAVIX_SOUND_FUNCTIONS(QUAVIX_MEMBER)
#undef QUAVIX_MEMBER

  protected:
    /// Calls `visit` with the name and the place of each function.
    template <typename Visit>
    void ForEachFunction(Visit visit) {
#define QUAVIX_VISIT(name) visit(#name, name);
        QUAVIX_SOUND_FUNCTIONS(QUAVIX_VISIT)
#undef QUAVIX_VISIT
    }
};

}  // namespace quavix
