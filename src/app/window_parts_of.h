// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "app/program.h"
#include "ui/main_window/window_parts.h"

namespace quavix {

/// What the windows show and call of a program.
inline WindowParts PartsOf(Program& program, Speaker& speaker, MessageBoxes& boxes, SaveLoadForm& saveLoad,
                           std::function<void()> closeProgram, std::function<std::string()> readManual) {
    return {.Fields = program.Fields,
            .List = program.List,
            .History = program.History,
            .Editing = program.Editing,
            .Lines = program.Lines,
            .Keys = program.Keys,
            .Position = program.Position,
            .Fmod = program.Fmod,
            .Tones = program.Tones,
            .Playback = program.Playback,
            .Clicks = program.Clicks,
            .Glide = program.Glide,
            .Motor = program.Motor,
            .MidiOut = program.MidiOut,
            .MidiIn = program.MidiIn,
            .Synchro = program.Synchro,
            .MidiFile = program.MidiFile,
            .Document = program.Document,
            .PcSpeaker = speaker,
            .Boxes = boxes,
            .Handlers = program.Handlers,
            .Log = program.Log,
            .SaveLoadWindow = saveLoad,
            .CloseProgram = std::move(closeProgram),
            .ReadManual = std::move(readManual)};
}

}  // namespace quavix
