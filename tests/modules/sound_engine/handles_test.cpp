// SPDX-License-Identifier: MIT
// Whatever pointer a caller passes, it gets an answer.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "modules/sound_engine/engine_system.h"

namespace quavix::test {
namespace {

enum class Kind { System, Unit, Channel, Group };

/// A call that takes an object of a kind, and works on a good one.
struct TheCall {
    const char* Name;
    Kind Takes;
    std::function<SoundResult(void*)> Do;
};

template <class Object>
Object* As(void* handle) {
    return static_cast<Object*>(handle);
}

class EngineHandles : public testing::Test {
  protected:
    EngineHandles() {
        engine_.InitSilent();
        other_.InitSilent();
        Renew();
    }

    void Renew() {
        unit_ = engine_.Unit(SOUND_EQUALISER);
        channel_ = engine_.Play(engine_.Unit(SOUND_OSCILLATOR));
        group_ = engine_.Group();
    }

    std::vector<TheCall> Calls() {
        SoundSystem* system = engine_.Handle();
        return {
            {"GetVersion", Kind::System,
             [](void* h) {
                 unsigned int v;
                 return E().System_GetVersion(As<SoundSystem>(h), &v);
             }},
            {"SetDSPBufferSize", Kind::System,
             [](void* h) { return E().System_SetDSPBufferSize(As<SoundSystem>(h), 16, 4); }},
            {"GetDSPBufferSize", Kind::System,
             [](void* h) { return E().System_GetDSPBufferSize(As<SoundSystem>(h), nullptr, nullptr); }},
            {"SetSoftwareChannels", Kind::System,
             [](void* h) { return E().System_SetSoftwareChannels(As<SoundSystem>(h), 2); }},
            {"SetOutput", Kind::System, [](void* h) { return E().System_SetOutput(As<SoundSystem>(h), 4); }},
            {"Init", Kind::System,
             [](void* h) { return E().System_Init(As<SoundSystem>(h), 2, 0, nullptr); }},
            {"GetSoftwareFormat", Kind::System,
             [](void* h) {
                 return E().System_GetSoftwareFormat(As<SoundSystem>(h), nullptr, nullptr, nullptr, nullptr,
                                                     nullptr, nullptr);
             }},
            {"CreateDSPByType", Kind::System,
             [](void* h) {
                 SoundUnit* u;
                 return E().System_CreateDSPByType(As<SoundSystem>(h), 2, &u);
             }},
            {"PlayDSP", Kind::System,
             [this](void* h) {
                 SoundChannel* c = nullptr;
                 return E().System_PlayDSP(As<SoundSystem>(h), -1, unit_, 1, &c);
             }},
            {"PlayDSP, the unit", Kind::Unit,
             [=](void* h) {
                 SoundChannel* c = nullptr;
                 return E().System_PlayDSP(system, -1, As<SoundUnit>(h), 1, &c);
             }},
            {"GetMasterChannelGroup", Kind::System,
             [](void* h) {
                 SoundGroup* g;
                 return E().System_GetMasterChannelGroup(As<SoundSystem>(h), &g);
             }},
            {"CreateChannelGroup", Kind::System,
             [](void* h) {
                 SoundGroup* g;
                 return E().System_CreateChannelGroup(As<SoundSystem>(h), nullptr, &g);
             }},
            {"Update", Kind::System, [](void* h) { return E().System_Update(As<SoundSystem>(h)); }},
            {"SetParameter", Kind::Unit,
             [](void* h) { return E().DSP_SetParameter(As<SoundUnit>(h), 0, 1.0F); }},
            {"GetParameter", Kind::Unit,
             [](void* h) { return E().DSP_GetParameter(As<SoundUnit>(h), 0, nullptr, nullptr, 0); }},
            {"AddInput", Kind::Unit,
             [this](void* h) { return E().DSP_AddInput(As<SoundUnit>(h), engine_.Unit(SOUND_LOW_PASS)); }},
            {"AddInput, the input", Kind::Unit,
             [this](void* h) { return E().DSP_AddInput(engine_.Unit(SOUND_LOW_PASS), As<SoundUnit>(h)); }},
            {"SetBypass", Kind::Unit, [](void* h) { return E().DSP_SetBypass(As<SoundUnit>(h), 0); }},
            {"SetActive", Kind::Unit, [](void* h) { return E().DSP_SetActive(As<SoundUnit>(h), 1); }},
            {"SetFrequency", Kind::Channel,
             [](void* h) { return E().Channel_SetFrequency(As<SoundChannel>(h), 1.0F); }},
            {"GetFrequency", Kind::Channel,
             [](void* h) {
                 float f;
                 return E().Channel_GetFrequency(As<SoundChannel>(h), &f);
             }},
            {"SetVolume", Kind::Channel,
             [](void* h) { return E().Channel_SetVolume(As<SoundChannel>(h), 1.0F); }},
            {"GetVolume", Kind::Channel,
             [](void* h) {
                 float v;
                 return E().Channel_GetVolume(As<SoundChannel>(h), &v);
             }},
            {"SetPaused", Kind::Channel,
             [](void* h) { return E().Channel_SetPaused(As<SoundChannel>(h), 1); }},
            {"GetPaused", Kind::Channel,
             [](void* h) {
                 int p;
                 return E().Channel_GetPaused(As<SoundChannel>(h), &p);
             }},
            {"SetChannelGroup", Kind::Channel,
             [this](void* h) { return E().Channel_SetChannelGroup(As<SoundChannel>(h), engine_.Master()); }},
            {"SetChannelGroup, the group", Kind::Group,
             [this](void* h) { return E().Channel_SetChannelGroup(channel_, As<SoundGroup>(h)); }},
            {"group SetVolume", Kind::Group,
             [](void* h) { return E().ChannelGroup_SetVolume(As<SoundGroup>(h), 1.0F); }},
            {"AddGroup", Kind::Group,
             [this](void* h) { return E().ChannelGroup_AddGroup(As<SoundGroup>(h), engine_.Group()); }},
            {"AddGroup, the child", Kind::Group,
             [this](void* h) { return E().ChannelGroup_AddGroup(engine_.Master(), As<SoundGroup>(h)); }},
            {"AddDSP", Kind::Group,
             [this](void* h) { return E().ChannelGroup_AddDSP(As<SoundGroup>(h), unit_); }},
            {"AddDSP, the unit", Kind::Unit,
             [this](void* h) { return E().ChannelGroup_AddDSP(engine_.Master(), As<SoundUnit>(h)); }},
            // Those that end the object come last, and make a new one.
            {"Remove", Kind::Unit, [](void* h) { return E().DSP_Remove(As<SoundUnit>(h)); }},
            {"Release", Kind::Unit, [](void* h) { return E().DSP_Release(As<SoundUnit>(h)); }},
            {"Stop", Kind::Channel, [](void* h) { return E().Channel_Stop(As<SoundChannel>(h)); }},
            {"group Release", Kind::Group,
             [](void* h) { return E().ChannelGroup_Release(As<SoundGroup>(h)); }},
            {"Close", Kind::System, [](void* h) { return E().System_Close(As<SoundSystem>(h)); }},
            {"system Release", Kind::System, [](void* h) { return E().System_Release(As<SoundSystem>(h)); }},
        };
    }

    void* Good(Kind kind) const {
        switch (kind) {
            case Kind::System:
                return engine_.Handle();
            case Kind::Unit:
                return unit_;
            case Kind::Channel:
                return channel_;
            case Kind::Group:
                return group_;
        }
        return nullptr;
    }

    EngineSystem engine_;
    EngineSystem other_;
    SoundUnit* unit_ = nullptr;
    SoundChannel* channel_ = nullptr;
    SoundGroup* group_ = nullptr;
};

TEST_F(EngineHandles, EveryCallRefusesInvalidHandles) {
    int here = 0;
    const auto onTheHeap = std::make_unique<std::uint64_t[]>(64);
    std::vector<void*> bad = {nullptr,
                              &here,
                              onTheHeap.get(),
                              reinterpret_cast<void*>(1),
                              reinterpret_cast<void*>(2),
                              reinterpret_cast<void*>(UINTPTR_MAX)};
    for (const Kind kind : {Kind::System, Kind::Unit, Kind::Channel, Kind::Group}) {
        const auto good = reinterpret_cast<std::uintptr_t>(Good(kind));
        for (const std::uintptr_t near : {1U, 2U, 8U, 16U, 4096U}) {
            bad.push_back(reinterpret_cast<void*>(good + near));
            bad.push_back(reinterpret_cast<void*>(good - near));
        }
    }
    for (const TheCall& call : Calls()) {
        for (void* handle : bad)
            EXPECT_EQ(call.Do(handle), SOUND_INVALID_HANDLE) << call.Name << " " << handle;
    }
}

TEST_F(EngineHandles, EveryCallRefusesHandlesOfAnotherKind) {
    for (const TheCall& call : Calls()) {
        for (const Kind kind : {Kind::System, Kind::Unit, Kind::Channel, Kind::Group}) {
            if (kind == call.Takes)
                continue;
            EXPECT_EQ(call.Do(Good(kind)), SOUND_INVALID_HANDLE) << call.Name;
        }
    }
}

TEST_F(EngineHandles, EveryCallRefusesReleasedHandles) {
    void* unit = unit_;
    void* channel = channel_;
    void* group = group_;
    SoundSystem* system = nullptr;
    EXPECT_EQ(E().System_Create(&system), SOUND_OK);
    EXPECT_EQ(E().DSP_Release(unit_), SOUND_OK);
    EXPECT_EQ(E().Channel_Stop(channel_), SOUND_OK);
    EXPECT_EQ(E().ChannelGroup_Release(group_), SOUND_OK);
    EXPECT_EQ(E().System_Release(system), SOUND_OK);
    Renew();
    for (const TheCall& call : Calls()) {
        for (void* gone : {unit, channel, group, static_cast<void*>(system)})
            EXPECT_EQ(call.Do(gone), SOUND_INVALID_HANDLE) << call.Name;
    }
}

TEST_F(EngineHandles, CallsWithTwoObjectsRefuseHandlesOfAnotherSystem) {
    SoundUnit* unit = other_.Unit(SOUND_OSCILLATOR);
    SoundChannel* channel = other_.Play(other_.Unit(SOUND_OSCILLATOR));
    SoundGroup* group = other_.Group();
    EXPECT_EQ(E().System_PlayDSP(engine_.Handle(), -1, unit, 0, &channel_), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().System_PlayDSP(engine_.Handle(), -2, unit_, 0, &channel), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().DSP_AddInput(unit_, unit), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().DSP_AddInput(unit, unit_), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().Channel_SetChannelGroup(channel, group_), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().Channel_SetChannelGroup(channel_, group), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().ChannelGroup_AddGroup(group_, group), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().ChannelGroup_AddGroup(group_, other_.Master()), SOUND_INVALID_HANDLE);
    EXPECT_EQ(E().ChannelGroup_AddDSP(group_, unit), SOUND_INVALID_HANDLE);
}

TEST_F(EngineHandles, EveryCallAcceptsValidHandles) {
    for (const TheCall& call : Calls()) {
        if (std::string(call.Name) == "system Release")
            continue;  // the systems release themselves
        const SoundResult result = call.Do(Good(call.Takes));
        EXPECT_NE(result, SOUND_INVALID_HANDLE) << call.Name;
        engine_.Mix(std::string(call.Name) == "Close" ? 0 : 16);
    }
}

TEST_F(EngineHandles, ResultsNeedAPlace) {
    SoundSystem* system = engine_.Handle();
    EXPECT_EQ(E().System_Create(nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_GetVersion(system, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_CreateDSPByType(system, SOUND_OSCILLATOR, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_PlayDSP(system, SOUND_CHANNEL_REUSE, unit_, 0, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_GetMasterChannelGroup(system, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().System_CreateChannelGroup(system, "", nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().Channel_GetFrequency(channel_, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().Channel_GetVolume(channel_, nullptr), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().Channel_GetPaused(channel_, nullptr), SOUND_INVALID_PARAMETER);
}

TEST_F(EngineHandles, TheMasterGroupIsAlwaysTheSameAndStays) {
    SoundGroup* master = engine_.Master();
    EXPECT_EQ(engine_.Master(), master);
    EXPECT_NE(other_.Master(), master);
    EXPECT_EQ(E().ChannelGroup_Release(master), SOUND_INVALID_PARAMETER);
    EXPECT_EQ(E().ChannelGroup_SetVolume(master, 0.5F), SOUND_OK);
}

}  // namespace
}  // namespace quavix::test
