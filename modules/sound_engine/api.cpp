// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>

#include "modules/sound_engine/handles.h"
#include "modules/sound_engine/sound_engine.h"
#include "modules/sound_engine/system.h"

// NOLINTBEGIN(readability-identifier-naming): the names of the interface.

namespace quavix::sound_engine {
namespace {

constexpr float HighestFrequency = 1000000.0F;
constexpr float HighestVolume = 10.0F;

/// State shared by all functions, because callers pass only pointers.
struct Shared {
    std::mutex OneCall;
    Handles Known;
};

// Never destroyed: at the end of the process, devices may still ask for sound.
Shared& TheShared() {
    static auto* const shared = new Shared;
    return *shared;
}

/// Boundary of the interface: runs one call at a time and turns exceptions into results.
template <class Function>
SoundResult Call(Function function) noexcept {
    try {
        Shared& shared = TheShared();
        const std::lock_guard lock(shared.OneCall);
        function(shared.Known);
        return SOUND_OK;
    } catch (const Refusal& refusal) {
        return refusal.Result;
    } catch (const std::bad_alloc&) {
        return SOUND_NO_MEMORY;
    } catch (...) {
        return SOUND_INTERNAL;
    }
}

/// The object behind a handle, and its system.
template <class Node>
struct Known {
    Node& Object;
    System& Of;

    Node* operator->() const { return &Object; }
};

template <class Node>
Known<Node> Find(const Handles& handles, const void* handle) {
    const Handles::Entry* entry = handles.Find(handle);
    Require(entry != nullptr && std::holds_alternative<Node*>(entry->What), SOUND_INVALID_HANDLE);
    return {*std::get<Node*>(entry->What), *entry->Of};
}

/// Finds a second object, which must belong to the same system.
template <class Node>
Node& FindOf(const System& system, const Handles& handles, const void* handle) {
    const Known<Node> known = Find<Node>(handles, handle);
    Require(&known.Of == &system, SOUND_INVALID_HANDLE);
    return known.Object;
}

template <class Value>
void RequirePlaceFor(const Value* result) {
    Require(result != nullptr, SOUND_INVALID_PARAMETER);
}

template <class Value>
void PutIfWanted(Value* place, Value value) {
    if (place != nullptr)
        *place = value;
}

float InRange(float value, float lowest, float highest) {
    Require(std::isfinite(value), SOUND_INVALID_FLOAT);
    return std::clamp(value, lowest, highest);
}

const Parameter& ParameterAt(const Unit& unit, int index) {
    Require(index >= 0 && static_cast<std::size_t>(index) < unit.Parameters().size(),
            SOUND_INVALID_PARAMETER);
    return unit.Parameters()[static_cast<std::size_t>(index)];
}

void WriteText(const Parameter& parameter, float value, char* text, int textLength) {
    if (text == nullptr)
        return;
    Require(textLength >= 1, SOUND_INVALID_PARAMETER);
    std::snprintf(text, static_cast<std::size_t>(textLength), "%g%s%s", static_cast<double>(value),
                  *parameter.Unit != '\0' ? " " : "", parameter.Unit);
}

}  // namespace
}  // namespace quavix::sound_engine

using namespace quavix::sound_engine;

SoundResult SOUND_CALL FMOD_System_Create(SoundSystem** system) {
    return Call([&](Handles& handles) {
        RequirePlaceFor(system);
        auto made = std::make_unique<System>(handles);
        *system = static_cast<SoundSystem*>(handles.Add(made.get(), *made));
        // The handle owns it from now on.
        static_cast<void>(made.release());
    });
}

SoundResult SOUND_CALL FMOD_System_GetVersion(SoundSystem* system, unsigned int* version) {
    return Call([&](Handles& handles) {
        Find<System>(handles, system);
        RequirePlaceFor(version);
        *version = SOUND_VERSION;
    });
}

SoundResult SOUND_CALL FMOD_System_SetDSPBufferSize(SoundSystem* system, unsigned int length, int count) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->SetBufferSize(length, count); });
}

SoundResult SOUND_CALL FMOD_System_GetDSPBufferSize(SoundSystem* system, unsigned int* length, int* count) {
    return Call([&](Handles& handles) {
        const auto known = Find<System>(handles, system);
        PutIfWanted(length, known->BufferLength());
        PutIfWanted(count, known->BufferCount());
    });
}

SoundResult SOUND_CALL FMOD_System_SetSoftwareChannels(SoundSystem* system, int channels) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->SetChannels(channels); });
}

SoundResult SOUND_CALL FMOD_System_SetOutput(SoundSystem* system, int output) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->SetOutput(output); });
}

SoundResult SOUND_CALL FMOD_System_Init(SoundSystem* system, int maxChannels, unsigned int, void* extra) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->Init(maxChannels, extra); });
}

SoundResult SOUND_CALL FMOD_System_GetSoftwareFormat(SoundSystem* system, int* rate, int* format,
                                                     int* outputs, int* maxInputs, int* resampler,
                                                     int* bits) {
    return Call([&](Handles& handles) {
        const Output& output = Find<System>(handles, system)->Opened();
        PutIfWanted(rate, output.Rate());
        PutIfWanted(format, output.Format());
        PutIfWanted(outputs, output.Channels());
        PutIfWanted(maxInputs, 1);
        PutIfWanted(resampler, 1);
        PutIfWanted(bits, output.Format() == SOUND_FORMAT_INT16 ? 16 : 32);
    });
}

SoundResult SOUND_CALL FMOD_System_CreateDSPByType(SoundSystem* system, int type, SoundUnit** unit) {
    return Call([&](Handles& handles) {
        const auto known = Find<System>(handles, system);
        known->Opened();
        RequirePlaceFor(unit);
        *unit = static_cast<SoundUnit*>(known->CreateUnit(type));
    });
}

SoundResult SOUND_CALL FMOD_System_PlayDSP(SoundSystem* system, int channelIndex, SoundUnit* unit, int paused,
                                           SoundChannel** channel) {
    return Call([&](Handles& handles) {
        const auto known = Find<System>(handles, system);
        known->Opened();
        UnitNode& played = FindOf<UnitNode>(known.Object, handles, unit);
        RequirePlaceFor(channel);
        ChannelNode* reused = nullptr;
        if (channelIndex == SOUND_CHANNEL_REUSE) {
            channelIndex = SOUND_CHANNEL_FREE;
            if (*channel != nullptr)
                reused = &FindOf<ChannelNode>(known.Object, handles, *channel);
        }
        *channel = static_cast<SoundChannel*>(known->Play(channelIndex, played, paused != 0, reused));
    });
}

SoundResult SOUND_CALL FMOD_System_GetMasterChannelGroup(SoundSystem* system, SoundGroup** group) {
    return Call([&](Handles& handles) {
        const auto known = Find<System>(handles, system);
        known->Opened();
        RequirePlaceFor(group);
        *group = static_cast<SoundGroup*>(known->MasterGroup());
    });
}

SoundResult SOUND_CALL FMOD_System_CreateChannelGroup(SoundSystem* system, const char*, SoundGroup** group) {
    return Call([&](Handles& handles) {
        const auto known = Find<System>(handles, system);
        known->Opened();
        RequirePlaceFor(group);
        *group = static_cast<SoundGroup*>(known->CreateGroup());
    });
}

SoundResult SOUND_CALL FMOD_System_Update(SoundSystem* system) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->Update(); });
}

SoundResult SOUND_CALL FMOD_System_Close(SoundSystem* system) {
    return Call([&](Handles& handles) { Find<System>(handles, system)->Close(); });
}

SoundResult SOUND_CALL FMOD_System_Release(SoundSystem* system) {
    return Call(
        [&](Handles& handles) { const std::unique_ptr<System> last(&Find<System>(handles, system).Object); });
}

SoundResult SOUND_CALL FMOD_DSP_SetParameter(SoundUnit* unit, int index, float value) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        const Parameter& parameter = ParameterAt(*known->Does, index);
        const float set = InRange(value, parameter.Lowest, parameter.Highest);
        known->Does->Set(static_cast<std::size_t>(index), parameter.Whole ? std::round(set) : set);
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_DSP_GetParameter(SoundUnit* unit, int index, float* value, char* text,
                                             int textLength) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        const Parameter& parameter = ParameterAt(*known->Does, index);
        const float now = known->Does->Get(static_cast<std::size_t>(index));
        WriteText(parameter, now, text, textLength);
        PutIfWanted(value, now);
    });
}

SoundResult SOUND_CALL FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        known.Of.Connect(known.Object, FindOf<UnitNode>(known.Of, handles, input));
    });
}

SoundResult SOUND_CALL FMOD_DSP_SetBypass(SoundUnit* unit, int bypass) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        known->Does->SetBypass(bypass != 0);
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_DSP_SetActive(SoundUnit* unit, int active) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        known->Does->SetActive(active != 0);
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_DSP_Release(SoundUnit* unit) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        known.Of.Release(known.Object);
    });
}

SoundResult SOUND_CALL FMOD_DSP_Remove(SoundUnit* unit) {
    return Call([&](Handles& handles) {
        const auto known = Find<UnitNode>(handles, unit);
        known.Of.Remove(known.Object);
    });
}

SoundResult SOUND_CALL FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        known->Strip->SetFrequency(InRange(frequency, 0.0F, HighestFrequency));
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_Channel_GetFrequency(SoundChannel* channel, float* frequency) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        RequirePlaceFor(frequency);
        *frequency = known->Strip->Frequency();
    });
}

SoundResult SOUND_CALL FMOD_Channel_SetVolume(SoundChannel* channel, float volume) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        known->Strip->SetVolume(InRange(volume, 0.0F, HighestVolume));
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_Channel_GetVolume(SoundChannel* channel, float* volume) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        RequirePlaceFor(volume);
        *volume = known->Strip->Volume();
    });
}

SoundResult SOUND_CALL FMOD_Channel_SetPaused(SoundChannel* channel, int paused) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        known->Strip->SetPaused(paused != 0);
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_Channel_GetPaused(SoundChannel* channel, int* paused) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        RequirePlaceFor(paused);
        *paused = known->Strip->Paused() ? 1 : 0;
    });
}

SoundResult SOUND_CALL FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        known.Of.Move(known.Object, FindOf<GroupNode>(known.Of, handles, group));
    });
}

SoundResult SOUND_CALL FMOD_Channel_Stop(SoundChannel* channel) {
    return Call([&](Handles& handles) {
        const auto known = Find<ChannelNode>(handles, channel);
        known.Of.Stop(known.Object);
    });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume) {
    return Call([&](Handles& handles) {
        const auto known = Find<GroupNode>(handles, group);
        known->Strip->SetVolume(InRange(volume, 0.0F, HighestVolume));
        known.Of.Touch();
    });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child) {
    return Call([&](Handles& handles) {
        const auto known = Find<GroupNode>(handles, group);
        known.Of.Move(FindOf<GroupNode>(known.Of, handles, child), known.Object);
    });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit) {
    return Call([&](Handles& handles) {
        const auto known = Find<GroupNode>(handles, group);
        known.Of.Move(FindOf<UnitNode>(known.Of, handles, unit), known.Object);
    });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_Release(SoundGroup* group) {
    return Call([&](Handles& handles) {
        const auto known = Find<GroupNode>(handles, group);
        known.Of.Release(known.Object);
    });
}

// NOLINTEND(readability-identifier-naming)
