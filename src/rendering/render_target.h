// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace quavix {

/// The destination of a rendered song. The sound is written to a temporary file, which replaces the
/// destination only when complete, so that nothing half-written is left behind. A device is written to
/// directly. A named pipe is refused, because opening it waits for a reader.
class RenderTarget {
  public:
    /// `out` is a file name, or "-" for standard output. Raises RenderError if it can't be written. Never
    /// waits.
    explicit RenderTarget(const std::string& out);
    ~RenderTarget();
    RenderTarget(const RenderTarget&) = delete;
    RenderTarget& operator=(const RenderTarget&) = delete;

    std::ostream& Stream() { return stream_; }

    /// Returns true if Commit() passes the sound to a reader and waits for it; no file is left behind then,
    /// if the system can remove open files.
    bool IsPassedOn() const { return isPassedOn_; }

    /// Moves the complete sound to its destination. Raises RenderError on failure.
    void Commit();

  private:
    bool PassOn(std::ostream& out);

    std::string name_;
    bool isPassedOn_ = false;
    std::filesystem::path place_;
    std::filesystem::path aside_;
    std::fstream stream_;
};

/// Returns true for a named pipe, whose opening waits for the other end.
bool IsNamedPipe(const std::string& file);

}  // namespace quavix
