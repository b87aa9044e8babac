// SPDX-License-Identifier: MIT
#include "simulation/recorded_sound_library.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include <fmt/format.h>

namespace quavix {

RecordedSoundLibrary::RecordedSoundLibrary(SimulatedTime& time, Timeline& timeline)
    : Recorder(time, timeline) {
    Answer();
    ForEachFunction([this](const char* name, auto& function) { RecordCalls(name, function); });
}

std::string RecordedSoundLibrary::Load(const std::string& fileName) {
    Record(fmt::format("fmod load {}", fileName));
    return LoadError;
}

std::string RecordedSoundLibrary::NameOf(const void* object) const {
    if (object == nullptr)
        return "null";
    const auto found = std::find_if(objects_.begin(), objects_.end(),
                                    [object](const std::string& name) { return &name == object; });
    return found == objects_.end() ? "unknown" : *found;
}

/// Records calls before the function runs. Output arguments are not shown, except a channel that may be
/// reused.
template <typename... Arguments>
void RecordedSoundLibrary::RecordCalls(const char* name, std::function<Result(Arguments...)>& function) {
    function = [this, name, answer = std::move(function)](Arguments... arguments) -> Result {
        std::string text;
        [[maybe_unused]] const auto add = [&](const auto& argument) {
            using Argument = std::decay_t<decltype(argument)>;
            std::string shown;
            if constexpr (std::is_same_v<Argument, const char*> || std::is_same_v<Argument, void*>)
                shown =
                    argument == nullptr ? "null" : fmt::format("\"{}\"", static_cast<const char*>(argument));
            else if constexpr (std::is_same_v<Argument, SoundChannel**>)
                shown = NameOf(*argument);
            else if constexpr (std::is_arithmetic_v<Argument>)
                shown = fmt::format("{}", argument);
            else if constexpr (std::is_class_v<std::remove_pointer_t<Argument>>)
                shown = NameOf(argument);
            else
                return;  // a number or an object that the function fills in
            text += (text.empty() ? "" : ", ") + shown;
        };
        (add(arguments), ...);
        const auto failure = failures_.find(name);
        const Result result = failure == failures_.end() ? 0 : failure->second;
        Record(fmt::format("fmod {}({}){}", name, text,
                           result == 0 ? "" : fmt::format(" fails with {}", result)));
        return result == 0 && answer ? answer(arguments...) : result;
    };
}

template <typename Object>
void RecordedSoundLibrary::Make(const std::string& kind, Object** made) {
    objects_.push_back(fmt::format("{}{}", kind, ++counts_[kind]));
    *made = reinterpret_cast<Object*>(&objects_.back());
}

/// Sets the functions with output arguments.
void RecordedSoundLibrary::Answer() {
    FMOD_System_Create = [this](SoundSystem** system) {
        Make("system", system);
        return SOUND_OK;
    };
    FMOD_System_GetVersion = [this](SoundSystem*, unsigned int* version) {
        *version = Version;
        return SOUND_OK;
    };
    FMOD_System_SetDSPBufferSize = [this](SoundSystem*, unsigned int length, int count) {
        BufferLength = length;
        BufferCount = count;
        return SOUND_OK;
    };
    FMOD_System_GetDSPBufferSize = [this](SoundSystem*, unsigned int* length, int* count) {
        *length = BufferLength;
        *count = BufferCount;
        return SOUND_OK;
    };
    FMOD_System_GetSoftwareFormat = [this](SoundSystem*, int* rate, auto...) {
        *rate = Rate;
        return SOUND_OK;
    };
    FMOD_System_CreateDSPByType = [this](SoundSystem*, int, SoundUnit** unit) {
        Make("unit", unit);
        return SOUND_OK;
    };
    FMOD_System_PlayDSP = [this](SoundSystem*, int, SoundUnit*, int, SoundChannel** channel) {
        Make("channel", channel);
        return SOUND_OK;
    };
    FMOD_System_GetMasterChannelGroup = [this](SoundSystem*, SoundGroup** group) {
        Make("master", group);
        return SOUND_OK;
    };
    FMOD_System_CreateChannelGroup = [this](SoundSystem*, const char* name, SoundGroup** group) {
        Make(name, group);
        return SOUND_OK;
    };
}

}  // namespace quavix
