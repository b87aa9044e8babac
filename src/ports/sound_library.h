// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace quavix {

// Objects of the sound library, which only the library can read. A system owns all that is made on it.

/// One sound engine with its own stream to a device.
struct SoundSystem;
/// Makes or changes sound: an oscillator, a filter.
struct SoundUnit;
/// Where a unit plays: with a frequency, a volume and a pause.
struct SoundChannel;
/// A place where channels and other groups come together, with units behind them and a volume.
struct SoundGroup;

/// The sound library as it is: one call for each of its functions, under its name, and nothing else.
///
/// Thread: the user-interface thread; no call runs handlers. What the functions do and take stands in the
/// library's own header. Every function gives a result, 0 for no error, and changes none of what it was to
/// fill in unless that is 0. A function called before a successful Load() raises FileNotFound.
class SoundLibrary {
  public:
    /// The result of a call: 0 for no error.
    using Result = std::int32_t;

    virtual ~SoundLibrary() = default;

    /// Loads the library from a file, for the rest of the process. Gives the reason, as a sentence without
    /// its full stop, where that can't be done (it is no library, or lacks a function); an empty text
    /// otherwise.
    virtual std::string Load(const std::string& fileName) = 0;

    virtual Result FMOD_System_Create(SoundSystem** system) = 0;
    virtual Result FMOD_System_GetVersion(SoundSystem* system, std::uint32_t* version) = 0;
    virtual Result FMOD_System_SetDSPBufferSize(SoundSystem* system, std::uint32_t length,
                                                std::int32_t count) = 0;
    virtual Result FMOD_System_GetDSPBufferSize(SoundSystem* system, std::uint32_t* length,
                                                std::int32_t* count) = 0;
    virtual Result FMOD_System_SetSoftwareChannels(SoundSystem* system, std::int32_t channels) = 0;
    virtual Result FMOD_System_SetOutput(SoundSystem* system, std::int32_t output) = 0;
    /// `extra` is the file name for the outputs that write a file; otherwise null.
    virtual Result FMOD_System_Init(SoundSystem* system, std::int32_t maxChannels, std::uint32_t flags,
                                    const char* extra) = 0;
    /// Only the sample rate is asked for.
    virtual Result FMOD_System_GetSoftwareFormat(SoundSystem* system, std::int32_t* rate) = 0;
    virtual Result FMOD_System_CreateDSPByType(SoundSystem* system, std::int32_t type, SoundUnit** unit) = 0;
    virtual Result FMOD_System_PlayDSP(SoundSystem* system, std::int32_t channelIndex, SoundUnit* unit,
                                       bool paused, SoundChannel** channel) = 0;
    virtual Result FMOD_System_GetMasterChannelGroup(SoundSystem* system, SoundGroup** group) = 0;
    virtual Result FMOD_System_CreateChannelGroup(SoundSystem* system, const char* name,
                                                  SoundGroup** group) = 0;
    virtual Result FMOD_System_Update(SoundSystem* system) = 0;
    virtual Result FMOD_System_Close(SoundSystem* system) = 0;
    virtual Result FMOD_System_Release(SoundSystem* system) = 0;

    virtual Result FMOD_DSP_SetParameter(SoundUnit* unit, std::int32_t index, float value) = 0;
    virtual Result FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) = 0;
    virtual Result FMOD_DSP_SetBypass(SoundUnit* unit, bool bypass) = 0;

    virtual Result FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency) = 0;
    virtual Result FMOD_Channel_SetVolume(SoundChannel* channel, float volume) = 0;
    virtual Result FMOD_Channel_SetPaused(SoundChannel* channel, bool paused) = 0;
    virtual Result FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group) = 0;

    virtual Result FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume) = 0;
    virtual Result FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child) = 0;
    virtual Result FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit) = 0;
};

}  // namespace quavix
