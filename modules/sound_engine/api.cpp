// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <mutex>
#include <new>
#include <utility>

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

/// Returns the object behind a handle, and its system. Runs within a call only.
template <class Node>
std::pair<Node&, System&> Find(const void* handle) {
    const Handles::Entry* entry = TheShared().Known.Find(handle);
    Require(entry != nullptr && std::holds_alternative<Node*>(entry->What), SOUND_INVALID_HANDLE);
    return {*std::get<Node*>(entry->What), *entry->Of};
}

/// Returns another object, which must belong to `system` too.
template <class Node>
Node& FindOf(const System& system, const void* handle) {
    const auto [node, of] = Find<Node>(handle);
    Require(&of == &system, SOUND_INVALID_HANDLE);
    return node;
}

/// Runs a call for the object behind a handle, as function(object, its system).
template <class Node, class Function>
SoundResult CallFor(const void* handle, Function function) noexcept {
    return Call([&](const Handles&) {
        const auto [node, system] = Find<Node>(handle);
        function(node, system);
    });
}

template <class Function>
SoundResult CallFor(SoundSystem* handle, Function function) noexcept {
    return CallFor<System>(handle, [&](System& system, System&) { function(system); });
}

/// Same for a system that must have been initialized.
template <class Function>
SoundResult CallForOpened(SoundSystem* handle, Function function) noexcept {
    return CallFor(handle, [&](System& system) {
        system.Opened();
        function(system);
    });
}

/// Runs a call that sets a value of an object, as set(object).
template <class Node, class Function>
SoundResult Set(const void* handle, Function set) noexcept {
    return CallFor<Node>(handle, [&](Node& node, System& system) {
        set(node);
        system.Touch();
    });
}

template <class Value>
void RequirePlaceFor(const Value* result) {
    Require(result != nullptr, SOUND_INVALID_PARAMETER);
}

template <class Value>
void Put(Value* place, Value value) {
    RequirePlaceFor(place);
    *place = value;
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
    return CallFor(system, [&](System&) { Put<unsigned int>(version, SOUND_VERSION); });
}

SoundResult SOUND_CALL FMOD_System_SetDSPBufferSize(SoundSystem* system, unsigned int length, int count) {
    return CallFor(system, [&](System& known) { known.SetBufferSize(length, count); });
}

SoundResult SOUND_CALL FMOD_System_GetDSPBufferSize(SoundSystem* system, unsigned int* length, int* count) {
    return CallFor(system, [&](System& known) {
        PutIfWanted(length, known.BufferLength());
        PutIfWanted(count, known.BufferCount());
    });
}

SoundResult SOUND_CALL FMOD_System_SetSoftwareChannels(SoundSystem* system, int channels) {
    return CallFor(system, [&](System& known) { known.SetChannels(channels); });
}

SoundResult SOUND_CALL FMOD_System_SetOutput(SoundSystem* system, int output) {
    return CallFor(system, [&](System& known) { known.SetOutput(output); });
}

SoundResult SOUND_CALL FMOD_System_Init(SoundSystem* system, int maxChannels, unsigned int, void* extra) {
    return CallFor(system, [&](System& known) { known.Init(maxChannels, extra); });
}

SoundResult SOUND_CALL FMOD_System_GetSoftwareFormat(SoundSystem* system, int* rate, int* format,
                                                     int* outputs, int* maxInputs, int* resampler,
                                                     int* bits) {
    return CallFor(system, [&](System& known) {
        const Output& output = known.Opened();
        PutIfWanted(rate, output.Rate());
        PutIfWanted(format, output.Format());
        PutIfWanted(outputs, output.Channels());
        PutIfWanted(maxInputs, 1);
        PutIfWanted(resampler, 1);
        PutIfWanted(bits, output.Format() == SOUND_FORMAT_INT16 ? 16 : 32);
    });
}

SoundResult SOUND_CALL FMOD_System_CreateDSPByType(SoundSystem* system, int type, SoundUnit** unit) {
    return CallForOpened(system, [&](System& known) {
        RequirePlaceFor(unit);
        *unit = static_cast<SoundUnit*>(known.CreateUnit(type));
    });
}

SoundResult SOUND_CALL FMOD_System_PlayDSP(SoundSystem* system, int channelIndex, SoundUnit* unit, int paused,
                                           SoundChannel** channel) {
    return CallForOpened(system, [&](System& known) {
        UnitNode& played = FindOf<UnitNode>(known, unit);
        RequirePlaceFor(channel);
        ChannelNode* reused = nullptr;
        if (channelIndex == SOUND_CHANNEL_REUSE) {
            channelIndex = SOUND_CHANNEL_FREE;
            if (*channel != nullptr)
                reused = &FindOf<ChannelNode>(known, *channel);
        }
        *channel = static_cast<SoundChannel*>(known.Play(channelIndex, played, paused != 0, reused));
    });
}

SoundResult SOUND_CALL FMOD_System_GetMasterChannelGroup(SoundSystem* system, SoundGroup** group) {
    return CallForOpened(system,
                         [&](System& known) { Put(group, static_cast<SoundGroup*>(known.MasterGroup())); });
}

SoundResult SOUND_CALL FMOD_System_CreateChannelGroup(SoundSystem* system, const char*, SoundGroup** group) {
    return CallForOpened(system, [&](System& known) {
        RequirePlaceFor(group);
        *group = static_cast<SoundGroup*>(known.CreateGroup());
    });
}

SoundResult SOUND_CALL FMOD_System_Update(SoundSystem* system) {
    return CallForOpened(system, [](System& known) { known.Update(); });
}

SoundResult SOUND_CALL FMOD_System_Close(SoundSystem* system) {
    return CallForOpened(system, [](System& known) { known.Close(); });
}

SoundResult SOUND_CALL FMOD_System_Release(SoundSystem* system) {
    return CallFor(system, [](System& known) { const std::unique_ptr<System> last(&known); });
}

SoundResult SOUND_CALL FMOD_DSP_SetParameter(SoundUnit* unit, int index, float value) {
    return Set<UnitNode>(unit, [&](UnitNode& node) {
        const Parameter& parameter = ParameterAt(*node.Does, index);
        const float set = InRange(value, parameter.Lowest, parameter.Highest);
        node.Does->Set(static_cast<std::size_t>(index), parameter.Whole ? std::round(set) : set);
    });
}

SoundResult SOUND_CALL FMOD_DSP_GetParameter(SoundUnit* unit, int index, float* value, char* text,
                                             int textLength) {
    return CallFor<UnitNode>(unit, [&](UnitNode& node, System&) {
        const Parameter& parameter = ParameterAt(*node.Does, index);
        const float now = node.Does->Get(static_cast<std::size_t>(index));
        WriteText(parameter, now, text, textLength);
        PutIfWanted(value, now);
    });
}

SoundResult SOUND_CALL FMOD_DSP_AddInput(SoundUnit* unit, SoundUnit* input) {
    return CallFor<UnitNode>(
        unit, [&](UnitNode& node, System& system) { system.Connect(node, FindOf<UnitNode>(system, input)); });
}

SoundResult SOUND_CALL FMOD_DSP_SetBypass(SoundUnit* unit, int bypass) {
    return Set<UnitNode>(unit, [&](UnitNode& node) { node.Does->SetBypass(bypass != 0); });
}

SoundResult SOUND_CALL FMOD_DSP_SetActive(SoundUnit* unit, int active) {
    return Set<UnitNode>(unit, [&](UnitNode& node) { node.Does->SetActive(active != 0); });
}

SoundResult SOUND_CALL FMOD_DSP_Release(SoundUnit* unit) {
    return CallFor<UnitNode>(unit, [](UnitNode& node, System& system) { system.Release(node); });
}

SoundResult SOUND_CALL FMOD_DSP_Remove(SoundUnit* unit) {
    return CallFor<UnitNode>(unit, [](UnitNode& node, System& system) { system.Remove(node); });
}

SoundResult SOUND_CALL FMOD_Channel_SetFrequency(SoundChannel* channel, float frequency) {
    return Set<ChannelNode>(channel, [&](ChannelNode& node) {
        node.Strip->SetFrequency(InRange(frequency, 0.0F, HighestFrequency));
    });
}

SoundResult SOUND_CALL FMOD_Channel_GetFrequency(SoundChannel* channel, float* frequency) {
    return CallFor<ChannelNode>(channel,
                                [&](ChannelNode& node, System&) { Put(frequency, node.Strip->Frequency()); });
}

SoundResult SOUND_CALL FMOD_Channel_SetVolume(SoundChannel* channel, float volume) {
    return Set<ChannelNode>(
        channel, [&](ChannelNode& node) { node.Strip->SetVolume(InRange(volume, 0.0F, HighestVolume)); });
}

SoundResult SOUND_CALL FMOD_Channel_GetVolume(SoundChannel* channel, float* volume) {
    return CallFor<ChannelNode>(channel,
                                [&](ChannelNode& node, System&) { Put(volume, node.Strip->Volume()); });
}

SoundResult SOUND_CALL FMOD_Channel_SetPaused(SoundChannel* channel, int paused) {
    return Set<ChannelNode>(channel, [&](ChannelNode& node) { node.Strip->SetPaused(paused != 0); });
}

SoundResult SOUND_CALL FMOD_Channel_GetPaused(SoundChannel* channel, int* paused) {
    return CallFor<ChannelNode>(
        channel, [&](ChannelNode& node, System&) { Put(paused, node.Strip->Paused() ? 1 : 0); });
}

SoundResult SOUND_CALL FMOD_Channel_SetChannelGroup(SoundChannel* channel, SoundGroup* group) {
    return CallFor<ChannelNode>(channel, [&](ChannelNode& node, System& system) {
        system.Move(node, FindOf<GroupNode>(system, group));
    });
}

SoundResult SOUND_CALL FMOD_Channel_Stop(SoundChannel* channel) {
    return CallFor<ChannelNode>(channel, [](ChannelNode& node, System& system) { system.Stop(node); });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_SetVolume(SoundGroup* group, float volume) {
    return Set<GroupNode>(
        group, [&](GroupNode& node) { node.Strip->SetVolume(InRange(volume, 0.0F, HighestVolume)); });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_AddGroup(SoundGroup* group, SoundGroup* child) {
    return CallFor<GroupNode>(
        group, [&](GroupNode& node, System& system) { system.Move(FindOf<GroupNode>(system, child), node); });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_AddDSP(SoundGroup* group, SoundUnit* unit) {
    return CallFor<GroupNode>(
        group, [&](GroupNode& node, System& system) { system.Move(FindOf<UnitNode>(system, unit), node); });
}

SoundResult SOUND_CALL FMOD_ChannelGroup_Release(SoundGroup* group) {
    return CallFor<GroupNode>(group, [](GroupNode& node, System& system) { system.Release(node); });
}

// NOLINTEND(readability-identifier-naming)
