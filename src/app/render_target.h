// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace quavix {

/// Where a rendered song goes. The sound is written aside and comes to its place only when it is complete, so
/// that nothing half-written is left behind; a device or a pipe that stands in the place is written straight
/// away.
class RenderTarget {
  public:
    /// `out` is a file name, or "-" for standard output. Raises RenderError when nothing can be written
    /// there.
    explicit RenderTarget(const std::string& out);
    ~RenderTarget();
    RenderTarget(const RenderTarget&) = delete;
    RenderTarget& operator=(const RenderTarget&) = delete;

    std::ostream& Stream() { return stream_; }

    /// Puts the complete sound in its place. Raises RenderError when that fails.
    void Commit();

  private:
    std::string name_;
    std::filesystem::path place_;
    std::filesystem::path aside_;
    std::fstream stream_;
};

}  // namespace quavix
