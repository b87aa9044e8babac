// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modules/sound_engine/output.h"

namespace quavix {
class SoundStream;
}

namespace quavix::sound_engine {

/// The best sound device there is, and when it is lost, the best there is then. A thread of its own talks to
/// the sound system, so that one that does not answer keeps nobody waiting for long.
class DeviceOutput final : public Output {
  public:
    /// Null where no device opens.
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
