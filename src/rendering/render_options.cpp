// SPDX-License-Identifier: MIT
#include "rendering/render_options.h"

#include <charconv>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "fmod/fmod_engine.h"
#include "midi/midi_file_opening.h"

namespace quavix {
namespace {

std::int32_t WholeNumber(std::string_view option, std::string_view text, std::int32_t lowest,
                         std::int32_t highest) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < lowest || value > highest) {
        throw std::invalid_argument(
            fmt::format("{} takes a whole number from {} to {}, not \"{}\"", option, lowest, highest, text));
    }
    return value;
}

RenderOptions::Output OutputOf(std::string_view name) {
    if (name == "speaker")
        return RenderOptions::Output::Speaker;
    if (name == "fmod")
        return RenderOptions::Output::Fmod;
    if (name == "voice")
        return RenderOptions::Output::Voice;
    throw std::invalid_argument(fmt::format("there is no output \"{}\"", name));
}

/// Converts a name into the number of its button in the options window.
std::int32_t WaveformOf(std::string_view name) {
    if (name == "sine")
        return SOUND_SINE;
    if (name == "square")
        return SOUND_SQUARE;
    if (name == "triangle")
        return SOUND_FALLING_SAW;
    if (name == "noise")
        return SOUND_NOISE;
    throw std::invalid_argument(fmt::format("there is no waveform \"{}\"", name));
}

}  // namespace

const char* const RenderUsage =
    "quavix-render [--passes N] [--output speaker|fmod|voice] [--waveform sine|square|triangle|noise]\n"
    "              [--tone-code FILE] [--log FILE] [--rate HZ] [--yes] SONG OUT.wav\n"
    "\n"
    "Plays SONG from its first line to its last N times (default 1) with its own settings and writes what\n"
    "would be heard: mono 16-bit PCM at HZ samples per second (default 48000). SONG may be a MIDI file\n"
    "(.mid), whose held notes are pulsed in turn. OUT.wav may be - for standard output.\n"
    "\n"
    "  --passes N         how many times the song is played\n"
    "  --output NAME      what sounds (default speaker): the PC speaker, the sound card's tones (fmod), or\n"
    "                     the voice alone, which sings the 'Note 2' column (not of MIDI files)\n"
    "  --waveform NAME    the wave of the fmod output (default square)\n"
    "  --tone-code FILE   write the tone code of what is played\n"
    "  --log FILE         write the debug log\n"
    "  --rate HZ          8000 to 192000\n"
    "  --yes              answer Yes to every question; otherwise No\n"
    "  --help, --version\n"
    "\n"
    "Exit status: 0 written, 1 bad usage, 2 the song could not be read, 3 the result could not be written.\n";

RenderOptions ParseRenderOptions(std::span<const char* const> arguments) {
    RenderOptions options;
    std::vector<std::string> names;
    bool onlyNames = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        const bool isOption = !onlyNames && argument.size() > 1 && argument.starts_with('-');
        const auto value = [&]() -> std::string_view {
            if (i + 1 == arguments.size())
                throw std::invalid_argument(fmt::format("{} needs a value", argument));
            return arguments[++i];
        };
        if (!isOption)
            names.emplace_back(argument);
        else if (argument == "--")
            onlyNames = true;
        else if (argument == "--help")
            options.What = RenderOptions::Request::Help;
        else if (argument == "--version")
            options.What = RenderOptions::Request::Version;
        else if (argument == "--yes")
            options.Yes = true;
        else if (argument == "--passes")
            options.Passes = WholeNumber(argument, value(), 1, 1'000'000);
        else if (argument == "--rate")
            options.Rate = WholeNumber(argument, value(), 8000, 192000);
        else if (argument == "--output")
            options.Sounds = OutputOf(value());
        else if (argument == "--waveform")
            options.Waveform = WaveformOf(value());
        else if (argument == "--log")
            options.LogFile = value();
        else if (argument == "--tone-code")
            options.ToneCodeFile = value();
        else
            throw std::invalid_argument(fmt::format("unknown option {}", argument));
    }
    if (options.What != RenderOptions::Request::Render)
        return options;
    if (options.Sounds != RenderOptions::Output::Fmod && options.Waveform != SOUND_SQUARE)
        throw std::invalid_argument("only the fmod output has other waveforms than its own");
    if (names.size() != 2)
        throw std::invalid_argument("a song and the file to write are needed");
    options.Song = names[0];
    if (options.Sounds == RenderOptions::Output::Voice && IsMidiFileName(options.Song))
        throw std::invalid_argument("the voice sings the 'Note 2' column, which a MIDI file doesn't have");
    options.Out = names[1];
    return options;
}

}  // namespace quavix
