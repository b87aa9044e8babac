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

struct Program;
class RenderedEngine;

/// Raised if the song could not be read or played.
class SongError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Raised if the rendering is interrupted on request.
class RenderInterrupted : public std::exception {};

/// Renders songs and MIDI files on simulated time.
class SongRenderer {
  public:
    /// `sound` is loaded from the program's folder if an output needs it; `midiFiles` reads MIDI files,
    /// recognised by name. `progress` is called from time to time with the finished share, 0 to 1; if it
    /// returns false, rendering ends with RenderInterrupted.
    SongRenderer(Files& files, MessageBoxes& boxes, SoundLibrary& sound, MidiFileReader& midiFiles,
                 std::string programFolder, std::function<bool(double)> progress)
        : files_(files),
          boxes_(boxes),
          sound_(sound),
          midiFiles_(midiFiles),
          programFolder_(std::move(programFolder)),
          progress_(std::move(progress)) {}

    /// Plays the song and writes its sound to `out` as a WAV file. Raises SongError or RenderError.
    void Render(const RenderOptions& options, std::ostream& out);

  private:
    void LoadEngine(Program& program) const;
    void ChooseOutput(Program& program, RenderedEngine& engine, const RenderOptions& options) const;

    Files& files_;
    MessageBoxes& boxes_;
    SoundLibrary& sound_;
    MidiFileReader& midiFiles_;
    std::string programFolder_;
    std::function<bool(double)> progress_;
};

}  // namespace quavix
