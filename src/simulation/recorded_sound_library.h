// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "ports/sound_library.h"
#include "simulation/simulated_time.h"
#include "simulation/timeline.h"

namespace quavix {

/// A sound library without sound, always loaded. Writes each call with its arguments to the timeline, as
/// "fmod FMOD_Channel_SetPaused(channel1, 1)"; what a call makes follows behind " = ". Objects are called by
/// their kind and counted from 1.
class RecordedSoundLibrary : public SoundLibrary {
  public:
    RecordedSoundLibrary(SimulatedTime& time, Timeline& timeline) : time_(time), timeline_(timeline) {}

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

    /// Every call of this function gives this result from now on, and does nothing.
    void Fail(const std::string& function, Result result) { failures_[function] = result; }

    /// Why the library can't be loaded; empty where it can.
    std::string LoadError;
    // What the library answers.
    std::uint32_t Version = 0x40621;
    std::int32_t Rate = 44100;
    std::uint32_t BufferLength = 1024;
    std::int32_t BufferCount = 4;

  private:
    template <typename... Arguments>
    Result Call(const char* function, const Arguments&... arguments);
    template <typename Object>
    Result Make(Result result, const char* kind, Object** made);
    std::string NameOf(const void* object) const;

    SimulatedTime& time_;
    Timeline& timeline_;
    std::map<std::string, Result> failures_;
    /// An object is the address of its name.
    std::deque<std::string> objects_;
    std::map<std::string, int> counts_;
};

}  // namespace quavix
