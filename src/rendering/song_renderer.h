// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/midi_file_reader.h"
#include "ports/sound_library.h"
#include "rendering/render_options.h"

namespace quavix {

/// Raised if the song could not be read or played.
class SongError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Raised if the rendering is interrupted on request.
class RenderInterrupted : public std::exception {};

/// Renders songs and MIDI files on simulated time.
struct SongRenderer {
    Files& Disk;
    MessageBoxes& Boxes;
    /// Loaded from the program's folder if an output needs it.
    SoundLibrary& Sound;
    /// Reads MIDI files, recognised by name.
    MidiFileReader& MidiFiles;
    std::string ProgramFolder;
    /// Called from time to time with the finished share, 0 to 1; if it returns false, rendering ends with
    /// RenderInterrupted.
    std::function<bool(double)> Progress;

    /// Plays the song and writes its sound to `out` as a WAV file. Raises SongError or RenderError.
    void Render(const RenderOptions& options, std::ostream& out) const;
};

}  // namespace quavix
