// SPDX-License-Identifier: MIT
#include "fmod/fmod_engine.h"

#include "shell/numbers.h"

namespace quavix {

void FmodEngine::Start(const FmodOutput& output) {
    // Many short buffers: a shorter buffer lets a new tone be heard sooner.
    constexpr std::uint32_t BufferLength = 16;
    constexpr std::int32_t BufferCount = 256;
    constexpr std::int32_t MaxChannels = 2;
    constexpr std::uint32_t NormalFlags = 0;
    errors_.ERRCHECK(library_.FMOD_System_Create(&system_));
    std::uint32_t version = 0;
    errors_.ERRCHECK(library_.FMOD_System_GetVersion(system_, &version));
    errors_.RequireVersion(version, "Version");
    errors_.ERRCHECK(library_.FMOD_System_SetDSPBufferSize(system_, BufferLength, BufferCount));
    if (output.Output != SOUND_OUTPUT_DEVICE)
        errors_.ERRCHECK(library_.FMOD_System_SetOutput(system_, output.Output));
    errors_.ERRCHECK(library_.FMOD_System_Init(system_, MaxChannels, NormalFlags, output.Extra()));
    GetFMODBufferLength();
    errors_.ERRCHECK(library_.FMOD_System_CreateDSPByType(system_, SOUND_OSCILLATOR, &oscillator_));
    errors_.ERRCHECK(
        library_.FMOD_System_PlayDSP(system_, SOUND_CHANNEL_REUSE, oscillator_, true, &channel_));
}

void FmodEngine::Stop() {
    if (system_ == nullptr)
        return;
    log_.LogText("Closing and releasing FMOD system 'System'");
    errors_.ERRCHECK(library_.FMOD_System_Close(system_));
    errors_.ERRCHECK(library_.FMOD_System_Release(system_));
    system_ = nullptr;
    channel_ = nullptr;
    oscillator_ = nullptr;
}

std::int32_t FmodEngine::GetFMODBufferLength() {
    constexpr double MsPerSecond = 1000;
    const LogBlock block(log_, "GetFMODBufferLength()");
    std::uint32_t samples = 0;
    std::int32_t count = 0;
    const SoundLibrary::Result sizeResult = library_.FMOD_System_GetDSPBufferSize(system_, &samples, &count);
    log_.Text("Number of samples in each buffer is {}", samples);
    log_.Text("Number of buffers is {}", count);
    errors_.ERRCHECK(sizeResult);
    const std::int32_t total = ToInt32(static_cast<double>(samples) * count);
    log_.Text("Total number of samples in buffers is {}", total);
    std::int32_t rate = 0;
    const SoundLibrary::Result rateResult =
        library_.FMOD_System_GetSoftwareFormat(system_, &rate, nullptr, nullptr, nullptr, nullptr, nullptr);
    log_.Text("Sample rate is {}", rate);
    errors_.ERRCHECK(rateResult);
    // If the rate is 0, the library has failed and the error has been shown.
    const std::int32_t milliseconds = rate == 0 ? 0 : ToInt32(MsPerSecond / rate * total);
    log_.Text("Buffer length in milliseconds is {}", milliseconds);
    return milliseconds;
}

}  // namespace quavix
