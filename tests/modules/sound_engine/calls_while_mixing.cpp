// SPDX-License-Identifier: MIT
// Calls everything from one thread while another one mixes, for ThreadSanitizer to watch, and counts what the
// mixing thread allocates.
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "modules/sound_engine/sound_engine.h"
#include "support/temporary_folder.h"
#include "support/wav_sound.h"

namespace {

thread_local bool callsComeFromHere = false;
std::atomic<int> allocatedElsewhere{0};

}  // namespace

void* operator new(std::size_t size) {
    if (!callsComeFromHere)
        allocatedElsewhere.fetch_add(1);
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace quavix::test {
namespace {

void Check(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(EXIT_FAILURE);
}

/// Makes calls at random, with good handles and with such as are gone.
class Caller {
  public:
    explicit Caller(SoundSystem* system) : system_(system) {
        groups_.resize(1);
        Check(FMOD_System_GetMasterChannelGroup(system, groups_.data()) == SOUND_OK, "no master group");
    }

    void CallSomething() {
        const std::function<void()> calls[] = {
            [this] {
                units_.push_back(nullptr);
                FMOD_System_CreateDSPByType(system_, std::array{2, 2, 3, 10}[Number(4)], &units_.back());
            },
            [this] {
                channels_.push_back(nullptr);
                FMOD_System_PlayDSP(system_, SOUND_CHANNEL_FREE, Unit(), Flag(), &channels_.back());
            },
            [this] {
                groups_.push_back(nullptr);
                FMOD_System_CreateChannelGroup(system_, "group", &groups_.back());
            },
            [this] { FMOD_DSP_AddInput(Unit(), Unit()); },
            [this] { FMOD_ChannelGroup_AddDSP(Group(), Unit()); },
            [this] { FMOD_ChannelGroup_AddGroup(Group(), Group()); },
            [this] { FMOD_Channel_SetChannelGroup(Channel(), Group()); },
            [this] { FMOD_Channel_Stop(Channel()); },
            [this] { FMOD_DSP_Remove(Unit()); },
            [this] {
                if (Number(4) == 0)
                    FMOD_DSP_Release(Unit());
            },
            [this] {
                if (Number(8) == 0)
                    FMOD_ChannelGroup_Release(Group());
            },
            [this] { FMOD_ChannelGroup_SetVolume(Group(), Value(1.0F)); },
            [this] { FMOD_Channel_SetVolume(Channel(), Value(1.0F)); },
            [this] { FMOD_DSP_SetBypass(Unit(), Flag()); },
            [this] { FMOD_DSP_SetActive(Unit(), Flag()); },
            [this] { FMOD_DSP_SetParameter(Unit(), static_cast<int>(Number(3)), Value(6000.0F)); },
            [this] { FMOD_DSP_SetParameter(Unit(), static_cast<int>(Number(3)), Value(6000.0F)); },
            [this] { FMOD_DSP_SetParameter(Unit(), 0, Value(6.0F)); },
            [this] { FMOD_Channel_SetFrequency(Channel(), Value(90000.0F)); },
            [this] { FMOD_Channel_SetPaused(Channel(), Flag()); },
            [this] { FMOD_System_Update(system_); },
            [this] { AskForEverything(); },
        };
        calls[Number(std::size(calls))]();
    }

  private:
    void AskForEverything() {
        float value = 0.0F;
        int number = 0;
        unsigned int length = 0;
        std::array<char, 16> text{};
        FMOD_System_GetVersion(system_, &length);
        FMOD_System_GetDSPBufferSize(system_, &length, &number);
        FMOD_System_GetSoftwareFormat(system_, &number, nullptr, nullptr, nullptr, nullptr, nullptr);
        FMOD_DSP_GetParameter(Unit(), 0, &value, text.data(), 16);
        FMOD_Channel_GetFrequency(Channel(), &value);
        FMOD_Channel_GetVolume(Channel(), &value);
        FMOD_Channel_GetPaused(Channel(), &number);
        SoundSystem* another = nullptr;
        FMOD_System_Create(&another);
        FMOD_System_Release(another);
    }

    std::size_t Number(std::size_t below) { return random_() % below; }
    int Flag() { return static_cast<int>(Number(2)); }
    float Value(float highest) { return highest * static_cast<float>(Number(1000)) / 1000.0F; }
    SoundUnit* Unit() { return units_.empty() ? nullptr : units_[Number(units_.size())]; }
    SoundChannel* Channel() { return channels_.empty() ? nullptr : channels_[Number(channels_.size())]; }
    SoundGroup* Group() { return groups_[Number(groups_.size())]; }

    SoundSystem* system_;
    std::minstd_rand random_{1};
    std::vector<SoundUnit*> units_;
    std::vector<SoundChannel*> channels_;
    std::vector<SoundGroup*> groups_;
};

/// Calls on an output that mixes in a thread of its own, and returns what that thread has allocated.
int CallWhileMixing(int output, void* extra) {
    SoundSystem* system = nullptr;
    Check(FMOD_System_Create(&system) == SOUND_OK, "no system");
    Check(FMOD_System_SetOutput(system, output) == SOUND_OK, "no such output");
    Check(FMOD_System_SetDSPBufferSize(system, 16, 256) == SOUND_OK, "no such buffer size");
    Check(FMOD_System_Init(system, 32, 0, extra) == SOUND_OK, "the output does not open");
    constexpr int Rounds = 8;
    constexpr int Calls = 500;
    // Before and after a fresh start, so that many objects are made and all of them end at once.
    for (int round = 0; round < Rounds; ++round) {
        Caller caller(system);
        for (int i = 0; i < Calls; ++i)
            caller.CallSomething();
        Check(FMOD_System_Close(system) == SOUND_OK, "it does not close");
        Check(FMOD_System_Init(system, 32, 0, extra) == SOUND_OK, "it does not open again");
    }
    Check(FMOD_System_Release(system) == SOUND_OK, "it cannot be released");
    return allocatedElsewhere.exchange(0);
}

/// Calls between blocks that are mixed here, and returns what the mixing has allocated.
int CallBetweenBlocks() {
    SoundSystem* system = nullptr;
    FMOD_System_Create(&system);
    FMOD_System_SetOutput(system, SOUND_OUTPUT_NONE_BY_UPDATE);
    FMOD_System_SetDSPBufferSize(system, 16, 256);
    Check(FMOD_System_Init(system, 32, 0, nullptr) == SOUND_OK, "the output does not open");
    Caller caller(system);
    for (int i = 0; i < 4000; ++i) {
        caller.CallSomething();
        callsComeFromHere = false;
        FMOD_System_Update(system);
        callsComeFromHere = true;
    }
    FMOD_System_Release(system);
    return allocatedElsewhere.exchange(0);
}

}  // namespace
}  // namespace quavix::test

int main() {
    using namespace quavix::test;
    callsComeFromHere = true;
    allocatedElsewhere = 0;  // by what comes before main
    Check(CallBetweenBlocks() == 0, "mixing allocates");
    Check(CallWhileMixing(SOUND_OUTPUT_NONE, nullptr) == 0, "the mixing thread allocates");
    const TemporaryFolder folder;
    std::string file = folder.File("calls.wav");
    CallWhileMixing(SOUND_OUTPUT_WAV, file.data());
    Check(ReadWavFile(file).has_value(), "no file was written");
    std::puts("all calls came back, and mixing allocated nothing");
    return EXIT_SUCCESS;
}
