// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <ostream>
#include <stdexcept>

#include "app/render_options.h"
#include "ports/files.h"
#include "ports/message_boxes.h"

namespace quavix {

/// The song could not be read or played.
class SongError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Somebody wants the rendering to end.
class RenderInterrupted : public std::exception {};

/// Renders songs on simulated time.
class SongRenderer {
  public:
    /// `progress` is called now and then with the share done, 0 to 1; false ends the rendering with
    /// RenderInterrupted.
    SongRenderer(Files& files, MessageBoxes& boxes, std::function<bool(double)> progress)
        : files_(files), boxes_(boxes), progress_(std::move(progress)) {}

    /// Plays the song and writes its sound to `out` as a WAV file. Raises SongError or RenderError.
    void Render(const RenderOptions& options, std::ostream& out);

  private:
    Files& files_;
    MessageBoxes& boxes_;
    std::function<bool(double)> progress_;
};

}  // namespace quavix
