// SPDX-License-Identifier: MIT
#include "rendering/rendered_engine.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <random>
#include <span>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "dsp/resampler.h"
#include "dsp/wav.h"
#include "fmod/fmod_errors.h"

namespace quavix {

RenderedEngine::RenderedEngine(SoundLibrary& library, SimulatedTime& time, SoundFile& out)
    : library_(library), time_(time), out_(out) {
    std::random_device random;
    std::error_code error;
    const std::string name = fmt::format("quavix-engine.{:08x}{:08x}.wav", random(), random());
    fileName_ = (std::filesystem::temp_directory_path(error) / name).string();
}

RenderedEngine::~RenderedEngine() {
    if (system_ != nullptr)
        library_.FMOD_System_Release(system_);
    std::error_code error;
    std::filesystem::remove(fileName_, error);
}

void RenderedEngine::Check(SoundLibrary::Result result) const {
    if (result != 0)
        throw RenderError(fmt::format("the sound engine fails: {}", FmodErrorText(result)));
}

void RenderedEngine::Begin(SoundSystem* system) {
    std::error_code error;
    if (!std::filesystem::exists(fileName_, error))
        throw RenderError("the sound engine does not start");
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

void RenderedEngine::Mix(std::int64_t blocks) {
    for (; blocks_ < blocks; ++blocks_)
        Check(library_.FMOD_System_Update(system_));
}

void RenderedEngine::CatchUp() {
    if (system_ != nullptr)
        Mix(FramesNow() / blockFrames_);
}

void RenderedEngine::Finish() {
    std::int64_t left = FramesNow();
    Mix((left + blockFrames_ - 1) / blockFrames_);
    Check(library_.FMOD_System_Release(std::exchange(system_, nullptr)));
    std::ifstream file(fileName_, std::ios::binary);
    WavReader in(file);
    if (!in.IsGood())
        throw RenderError("the sound engine has written no sound");
    Resampler resampler(in.SampleRate(), out_.Rate());
    const auto channels = static_cast<std::size_t>(in.Channels());
    std::array<float, 65536> block;
    std::vector<float> samples;
    while (left > 0) {
        const std::size_t read = in.Read(block);
        if (read == 0)
            throw RenderError("the sound is too long for the sound engine's file");
        const std::size_t count = std::min<std::size_t>(read / channels, left);
        for (std::size_t i = 0; i < count; ++i)
            block[i] = block[i * channels];
        samples.clear();
        resampler.Process(std::span(block).first(count), samples);
        out_.Write(samples);
        left -= static_cast<std::int64_t>(count);
    }
    samples.clear();
    resampler.Finish(samples);
    out_.Write(samples);
}

}  // namespace quavix
