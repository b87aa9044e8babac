// SPDX-License-Identifier: MIT
#include "app/engine_recording.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <span>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "dsp/resampler.h"
#include "dsp/wav.h"
#include "fmod/fmod_errors.h"
#include "simulation/rendered_speaker.h"

namespace quavix {

EngineRecording::EngineRecording(SoundLibrary& library, SimulatedTime& time)
    : library_(library), time_(time) {
    std::random_device random;
    std::error_code error;
    const std::string name = fmt::format("quavix-engine.{:08x}{:08x}.wav", random(), random());
    fileName_ = (std::filesystem::temp_directory_path(error) / name).string();
}

EngineRecording::~EngineRecording() {
    if (system_ != nullptr)
        library_.FMOD_System_Release(system_);
    std::error_code error;
    std::filesystem::remove(fileName_, error);
}

void EngineRecording::Check(SoundLibrary::Result result) const {
    if (result != 0)
        throw RenderError(fmt::format("the sound engine fails: {}", FmodErrorText(result)));
}

void EngineRecording::Begin(SoundSystem* system) {
    file_.open(fileName_, std::ios::binary);
    if (!file_.is_open())
        throw RenderError("the sound engine does not start");
    // Nobody else needs its name, and nothing is left of it however the program ends.
    std::error_code error;
    std::filesystem::remove(fileName_, error);
    system_ = system;
    std::uint32_t length = 0;
    std::int32_t count = 0;
    Check(library_.FMOD_System_GetDSPBufferSize(system_, &length, &count));
    std::int32_t rate = 0;
    Check(
        library_.FMOD_System_GetSoftwareFormat(system_, &rate, nullptr, nullptr, nullptr, nullptr, nullptr));
    blockFrames_ = std::max<std::int64_t>(length, 1);
    rate_ = std::max(rate, 1);
    start_ = time_.Now();
}

std::int64_t EngineRecording::FramesNow() const {
    // Whole seconds apart, so that the product stays in range for centuries.
    const std::int64_t passed = time_.Now() - start_;
    const std::int64_t seconds = passed / SimulatedTime::CountsPerSecond;
    const std::int64_t rest = passed % SimulatedTime::CountsPerSecond;
    return seconds * rate_ + rest * rate_ / SimulatedTime::CountsPerSecond;
}

void EngineRecording::Mix(std::int64_t blocks) {
    for (; blocks_ < blocks; ++blocks_)
        Check(library_.FMOD_System_Update(system_));
}

void EngineRecording::CatchUp() {
    if (system_ != nullptr)
        Mix(FramesNow() / blockFrames_);
}

void EngineRecording::Finish(WavWriter& out, std::int32_t sampleRate) {
    std::int64_t left = FramesNow();
    Mix((left + blockFrames_ - 1) / blockFrames_);
    Check(library_.FMOD_System_Release(std::exchange(system_, nullptr)));
    WavReader in(file_);
    if (!in.IsGood())
        throw RenderError("the sound engine has written no sound");
    Resampler resampler(in.SampleRate(), sampleRate);
    std::array<float, 65536> block;
    std::vector<float> samples;
    const auto write = [&] {
        if (!out.Write(samples))
            throw RenderError(out.TooLong() ? "the sound is too long for a WAV file (4 GiB)"
                                            : "the sound can't be written any further");
        samples.clear();
    };
    const auto channels = static_cast<std::size_t>(in.Channels());
    while (left > 0) {
        const std::size_t read = in.Read(block);
        if (read == 0)
            throw RenderError("the sound is too long for the sound engine's file");
        const std::size_t count = std::min<std::size_t>(read / channels, left);
        for (std::size_t i = 0; i < count; ++i)
            block[i] = block[i * channels];
        resampler.Process(std::span(block).first(count), samples);
        write();
        left -= static_cast<std::int64_t>(count);
    }
    resampler.Finish(samples);
    write();
}

}  // namespace quavix
