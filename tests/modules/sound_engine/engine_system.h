// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "modules/sound_engine/engine_module.h"

namespace quavix::test {

/// A system of the sound engine, with shorter names for what is called often. Every call that does not say
/// otherwise has to answer SOUND_OK, or the test fails.
class EngineSystem {
  public:
    static constexpr int Rate = 48000;

    EngineSystem();
    /// Closes and releases it.
    ~EngineSystem();
    EngineSystem(const EngineSystem&) = delete;
    EngineSystem& operator=(const EngineSystem&) = delete;

    SoundSystem* Handle() const { return system_; }

    /// Opens the output that writes `fileName` block by block; the file goes at the end.
    void InitWav(const std::string& fileName, unsigned int block = 16, int channels = 8);
    /// Opens the output that only mixes, block by block.
    void InitSilent(unsigned int block = 16, int channels = 8);

    SoundUnit* Unit(int type) const;
    SoundUnit* Oscillator(SoundWaveform type, float rate) const;
    SoundUnit* Equaliser(float centre, float octaves, float gain) const;
    /// Plays a unit on a free channel of the master group.
    SoundChannel* Play(SoundUnit* unit, bool paused = false) const;
    /// Plays a sine at this volume.
    SoundChannel* PlaySine(double hz, float volume) const;
    SoundGroup* Master() const;
    /// Makes a group in the master group.
    SoundGroup* Group() const;
    void Set(SoundUnit* unit, int index, float value) const;
    float Get(SoundUnit* unit, int index) const;
    void Volume(SoundChannel* channel, float volume) const;
    void Frequency(SoundChannel* channel, float frequency) const;
    void Pause(SoundChannel* channel, bool paused = true) const;

    /// Mixes at least so many frames, in whole blocks, and returns how many have been mixed altogether.
    std::int64_t Mix(std::int64_t frames);

    /// Closes the output and returns what it wrote: the left channel, which the right one has to equal.
    std::vector<float> Finish();

  private:
    void Init(int output, unsigned int block, int channels, void* extra);

    SoundSystem* system_ = nullptr;
    std::string fileName_;
    std::int64_t block_ = 0;
    std::int64_t mixed_ = 0;
};

/// The rate of what an engine writes, for measuring.
inline constexpr double EngineRate = EngineSystem::Rate;

}  // namespace quavix::test
