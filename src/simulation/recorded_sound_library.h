// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <map>
#include <string>

#include "ports/sound_library.h"
#include "simulation/simulated_time.h"

namespace quavix {

/// A silent sound library that is always loaded. Writes each call with its arguments to the timeline, as
/// "fmod FMOD_Channel_SetPaused(channel1, 1)". Objects are named by their kind and counted from 1.
class RecordedSoundLibrary : public SoundLibrary, private Recorder {
  public:
    RecordedSoundLibrary(SimulatedTime& time, Timeline& timeline);
    RecordedSoundLibrary(const RecordedSoundLibrary&) = delete;
    RecordedSoundLibrary& operator=(const RecordedSoundLibrary&) = delete;

    std::string Load(const std::string& fileName) override;

    /// Makes every later call of this function return this result without any effect.
    void Fail(const std::string& function, Result result) { failures_[function] = result; }

    /// Reason why the library can't be loaded; empty if it can.
    std::string LoadError;
    // Values that the library returns.
    unsigned int Version = 0x40621;
    int Rate = 44100;
    unsigned int BufferLength = 1024;
    int BufferCount = 4;

  private:
    template <typename... Arguments>
    void RecordCalls(const char* name, std::function<Result(Arguments...)>& function);
    std::string NameOf(const void* object) const;
    template <typename Object>
    void Make(const std::string& kind, Object** made);
    void Answer();

    std::map<std::string, Result> failures_;
    /// The names of the objects. An object is the address of its name.
    std::deque<std::string> objects_;
    std::map<std::string, int> counts_;
};

}  // namespace quavix
