// SPDX-License-Identifier: MIT
#pragma once

#include <span>

namespace quavix {

/// What a sound device is given to play.
///
/// Thread: the device's own. Nothing here may allocate, lock or wait.
class SampleSource {
  public:
    SampleSource() = default;
    virtual ~SampleSource() = default;
    SampleSource(const SampleSource&) = delete;
    SampleSource& operator=(const SampleSource&) = delete;

    /// Fills `out`: frames, of any number, with one sample of -1 to 1 for each channel. False: the device is
    /// to stop asking.
    virtual bool Fill(std::span<float> out) = 0;
};

}  // namespace quavix
