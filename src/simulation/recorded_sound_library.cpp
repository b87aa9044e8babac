// SPDX-License-Identifier: MIT
#include "simulation/recorded_sound_library.h"

#include <algorithm>
#include <type_traits>

namespace quavix {

std::string RecordedSoundLibrary::NameOf(const void* object) const {
    if (object == nullptr)
        return "null";
    const auto found = std::find_if(objects_.begin(), objects_.end(),
                                    [object](const std::string& name) { return &name == object; });
    return found == objects_.end() ? "unknown" : *found;
}

template <typename... Arguments>
RecordedSoundLibrary::Result RecordedSoundLibrary::Call(const char* function, const Arguments&... arguments) {
    std::string text;
    [[maybe_unused]] const auto add = [&](const auto& argument) {
        using Argument = std::decay_t<decltype(argument)>;
        text += text.empty() ? "" : ", ";
        if constexpr (std::is_same_v<Argument, const char*>)
            text += argument == nullptr ? "null" : fmt::format("\"{}\"", argument);
        else if constexpr (std::is_pointer_v<Argument>)
            text += NameOf(argument);
        else if constexpr (std::is_same_v<Argument, bool>)
            text += argument ? "1" : "0";
        else
            text += fmt::format("{}", argument);
    };
    (add(arguments), ...);
    const auto failure = failures_.find(function);
    const Result result = failure == failures_.end() ? 0 : failure->second;
    timeline_.Record(time_.Now(), fmt::format("fmod {}({}){}", function, text,
                                              result == 0 ? "" : fmt::format(" fails with {}", result)));
    return result;
}

template <typename Object>
RecordedSoundLibrary::Result RecordedSoundLibrary::Make(Result result, const char* kind, Object** made) {
    if (result == 0) {
        objects_.push_back(fmt::format("{}{}", kind, ++counts_[kind]));
        *made = reinterpret_cast<Object*>(&objects_.back());
    }
    return result;
}

std::string RecordedSoundLibrary::Load(const std::string& fileName) {
    timeline_.Record(time_.Now(), fmt::format("fmod load {}", fileName));
    return LoadError;
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_Create(SoundSystem** system) {
    return Make(Call("FMOD_System_Create"), "system", system);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_GetVersion(SoundSystem* system,
                                                                          std::uint32_t* version) {
    const Result result = Call("FMOD_System_GetVersion", system);
    if (result == 0)
        *version = Version;
    return result;
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_SetDSPBufferSize(SoundSystem* system,
                                                                                std::uint32_t length,
                                                                                std::int32_t count) {
    const Result result = Call("FMOD_System_SetDSPBufferSize", system, length, count);
    if (result == 0) {
        BufferLength = length;
        BufferCount = count;
    }
    return result;
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_GetDSPBufferSize(SoundSystem* system,
                                                                                std::uint32_t* length,
                                                                                std::int32_t* count) {
    const Result result = Call("FMOD_System_GetDSPBufferSize", system);
    if (result == 0) {
        *length = BufferLength;
        *count = BufferCount;
    }
    return result;
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_SetSoftwareChannels(SoundSystem* system,
                                                                                   std::int32_t channels) {
    return Call("FMOD_System_SetSoftwareChannels", system, channels);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_SetOutput(SoundSystem* system,
                                                                         std::int32_t output) {
    return Call("FMOD_System_SetOutput", system, output);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_Init(SoundSystem* system,
                                                                    std::int32_t maxChannels,
                                                                    std::uint32_t flags, const char* extra) {
    return Call("FMOD_System_Init", system, maxChannels, flags, extra);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_GetSoftwareFormat(SoundSystem* system,
                                                                                 std::int32_t* rate) {
    const Result result = Call("FMOD_System_GetSoftwareFormat", system);
    if (result == 0)
        *rate = Rate;
    return result;
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_CreateDSPByType(SoundSystem* system,
                                                                               std::int32_t type,
                                                                               SoundUnit** unit) {
    return Make(Call("FMOD_System_CreateDSPByType", system, type), "unit", unit);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_PlayDSP(SoundSystem* system,
                                                                       std::int32_t channelIndex,
                                                                       SoundUnit* unit, bool paused,
                                                                       SoundChannel** channel) {
    return Make(Call("FMOD_System_PlayDSP", system, channelIndex, unit, paused, *channel), "channel",
                channel);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_GetMasterChannelGroup(SoundSystem* system,
                                                                                     SoundGroup** group) {
    return Make(Call("FMOD_System_GetMasterChannelGroup", system), "master", group);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_CreateChannelGroup(SoundSystem* system,
                                                                                  const char* name,
                                                                                  SoundGroup** group) {
    const Result result = Call("FMOD_System_CreateChannelGroup", system, name);
    return Make(result, name, group);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_Update(SoundSystem* system) {
    return Call("FMOD_System_Update", system);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_Close(SoundSystem* system) {
    return Call("FMOD_System_Close", system);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_System_Release(SoundSystem* system) {
    return Call("FMOD_System_Release", system);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_DSP_SetParameter(SoundUnit* unit, std::int32_t index,
                                                                         float value) {
    return Call("FMOD_DSP_SetParameter", unit, index, value);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) {
    return Call("FMOD_DSP_AddInput", unit, input);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_DSP_SetBypass(SoundUnit* unit, bool bypass) {
    return Call("FMOD_DSP_SetBypass", unit, bypass);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_Channel_SetFrequency(SoundChannel* channel,
                                                                             float frequency) {
    return Call("FMOD_Channel_SetFrequency", channel, frequency);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_Channel_SetVolume(SoundChannel* channel,
                                                                          float volume) {
    return Call("FMOD_Channel_SetVolume", channel, volume);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_Channel_SetPaused(SoundChannel* channel,
                                                                          bool paused) {
    return Call("FMOD_Channel_SetPaused", channel, paused);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_Channel_SetChannelGroup(SoundChannel* channel,
                                                                                SoundGroup* group) {
    return Call("FMOD_Channel_SetChannelGroup", channel, group);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_ChannelGroup_SetVolume(SoundGroup* group,
                                                                               float volume) {
    return Call("FMOD_ChannelGroup_SetVolume", group, volume);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_ChannelGroup_AddGroup(SoundGroup* group,
                                                                              SoundGroup* child) {
    return Call("FMOD_ChannelGroup_AddGroup", group, child);
}

RecordedSoundLibrary::Result RecordedSoundLibrary::FMOD_ChannelGroup_AddDSP(SoundGroup* group,
                                                                            SoundUnit* unit) {
    return Call("FMOD_ChannelGroup_AddDSP", group, unit);
}

}  // namespace quavix
