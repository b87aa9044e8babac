// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quavix {

/// The request to quavix-render.
struct RenderOptions {
    enum class Request { Render, Help, Version };
    enum class Output { Speaker, Fmod, Voice };

    Request What = Request::Render;
    std::string Song;
    /// "-" is standard output.
    std::string Out;
    std::int32_t Passes = 1;
    Output Sounds = Output::Speaker;
    /// Waveform of the fmod output, a SoundWaveform.
    std::int32_t Waveform = 1;
    /// Samples per second, 8000 to 192000.
    std::int32_t Rate = 48000;
    std::string LogFile;
    std::string ToneCodeFile;
    /// True if questions are answered Yes.
    bool Yes = false;
};

/// The usage text of quavix-render.
extern const char* const RenderUsage;

/// Parses the command line without the program's name. Raises std::invalid_argument with the fault as its
/// text.
RenderOptions ParseRenderOptions(std::span<const char* const> arguments);

}  // namespace quavix
