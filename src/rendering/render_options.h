// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quavix {

/// What quavix-render is asked to do.
struct RenderOptions {
    enum class Request { Render, Help, Version };
    enum class Output { Speaker, Fmod, Voice };

    Request What = Request::Render;
    std::string Song;
    /// "-" is standard output.
    std::string Out;
    std::int32_t Passes = 1;
    Output Sounds = Output::Speaker;
    /// Of the fmod output, as fmod_waveform has it.
    std::int32_t Waveform = 1;
    /// Samples per second, 8000 to 192000.
    std::int32_t Rate = 48000;
    std::string LogFile;
    std::string ToneCodeFile;
    /// Questions are answered Yes.
    bool Yes = false;
};

/// How to call quavix-render.
extern const char* const RenderUsage;

/// Reads the command line without the program's name. Raises std::invalid_argument, saying what is wrong with
/// it.
RenderOptions ParseRenderOptions(std::span<const char* const> arguments);

}  // namespace quavix
