// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modules/sound_engine/output.h"

namespace quavix {
class SoundStream;
}

namespace quavix::sound_engine {

/// The best sound device; if it is lost, the best of the remaining ones. A separate thread talks to the sound
/// system, so that an unresponsive one does not block the caller for long.
class DeviceOutput final : public Output {
  public:
    /// Returns null if no device can be opened.
    static std::unique_ptr<Output> Open(const std::shared_ptr<Mixer>& mixer, int delayFrames);

    ~DeviceOutput() override;

    int Rate() const override;
    int Channels() const override;
    int Format() const override;

  private:
    struct Shared;
    explicit DeviceOutput(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}
    static std::unique_ptr<SoundStream> OpenStream(const Shared& shared);
    static void Work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace quavix::sound_engine
