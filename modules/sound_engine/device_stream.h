// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <RtAudio.h>

#include "sound_engine/block_queue.h"
#include "sound_engine/mixer.h"

namespace quavix::sound_engine {

/// A sound device that plays what is mixed, for as long as the object is there.
///
/// Thread: the one that made it; the device asks for sound in a thread of its own.
class DeviceStream {
  public:
    /// Opens the first sound system that has a device. From a call to the loudspeaker it takes `delayFrames`,
    /// or the least that the device can do. Null where there is none. May take as long as the sound system
    /// likes.
    static std::unique_ptr<DeviceStream> Open(const std::shared_ptr<Mixer>& mixer, int delayFrames);

    /// Closes the device. A stream that has stopped asking for sound, or that the sound system has closed
    /// itself, is left to the library, which may still do something with it; it plays silence should it come
    /// back.
    static void Close(std::unique_ptr<DeviceStream> stream);

    ~DeviceStream() = default;
    DeviceStream(const DeviceStream&) = delete;
    DeviceStream& operator=(const DeviceStream&) = delete;

    int Rate() const { return rate_; }
    int Channels() const { return static_cast<int>(channels_); }

    /// Frames that the device has asked for so far.
    std::uint64_t Played() const { return played_.load(std::memory_order_relaxed); }

    /// False where the sound system itself has closed the device.
    bool Opened() const { return audio_.isStreamOpen(); }

  private:
    explicit DeviceStream(RtAudio::Api api);

    bool Moves() const;
    static void Keep(std::unique_ptr<DeviceStream> stream);
    bool TryOpen(const std::shared_ptr<Mixer>& mixer, int delayFrames);
    void Play(float* out, std::size_t frames);
    static int Callback(void* out, void* in, unsigned int frames, double streamTime,
                        RtAudioStreamStatus status, void* stream);

    RtAudio audio_;
    int rate_ = 0;
    unsigned int channels_ = 1;
    std::atomic<std::uint64_t> played_{0};
    std::optional<BlockQueue> queue_;
    std::vector<float> mono_;
    std::atomic<bool> silenced_{false};
    DeviceStream* nextKept_ = nullptr;
};

}  // namespace quavix::sound_engine
