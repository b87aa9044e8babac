// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace quavix {

/// Where a rendered song goes. The sound is written aside and comes to its place only when it is complete, so
/// that nothing half-written is left behind; a device that stands in the place is written straight away. A
/// named pipe is refused, because opening it waits for a reader.
class RenderTarget {
  public:
    /// `out` is a file name, or "-" for standard output. Raises RenderError when nothing can be written
    /// there. Never waits.
    explicit RenderTarget(const std::string& out);
    ~RenderTarget();
    RenderTarget(const RenderTarget&) = delete;
    RenderTarget& operator=(const RenderTarget&) = delete;

    std::ostream& Stream() { return stream_; }

    /// True if Commit() passes the sound on to a reader, and waits for it; nothing of it has a name then
    /// where the system can remove open files.
    bool IsPassedOn() const { return isPassedOn_; }

    /// Puts the complete sound in its place. Raises RenderError when that fails.
    void Commit();

  private:
    bool PassOn(std::ostream& out);

    std::string name_;
    bool isPassedOn_ = false;
    std::filesystem::path place_;
    std::filesystem::path aside_;
    std::fstream stream_;
};

/// True for a pipe with a name, whose opening waits for the other end.
bool IsNamedPipe(const std::string& file);

}  // namespace quavix
