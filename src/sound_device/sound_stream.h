// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace quavix {

/// The stream that is wanted; the device gives the nearest to it that it can.
struct StreamWish {
    /// The name under which the sound system shows it to the user.
    const char* Name;
    /// Frames per request, and number of requests that the device buffers.
    unsigned int Period;
    unsigned int Periods;
};

/// The stream that a sound device gives.
struct StreamFormat {
    unsigned int FramesPerSecond;
    /// 1 or 2.
    unsigned int Channels;
    unsigned int Period;
    /// Delay from the request to the loudspeaker in frames, as reported by the device.
    long DelayFrames;
    /// Name of the sound system and the device, e.g. "JACK, system".
    std::string Description;
};

/// A playing sound device. It plays during the lifetime of the object.
///
/// Thread: the one that made it; the device asks for samples in its own thread. Opening and closing may take
/// any time, depending on the sound system.
class SoundStream {
  public:
    /// Fills `out` with any number of frames, one sample of -1 to 1 for each channel. Returns false to make
    /// the device stop asking. Runs in the device's thread, and may not allocate, lock or wait.
    using Fill = std::function<bool(std::span<float> out)>;
    using MakeFill = std::function<Fill(const StreamFormat&)>;

    /// Shortest time between closing a lost stream and opening a new one: opening a client of a new JACK
    /// server frees the old server's clients in the whole process, while others may just be closing theirs.
    static constexpr std::chrono::milliseconds ReopenAfter{500};

    /// Opens the first sound system that has a device: JACK, PulseAudio, ALSA. Prints nothing. Returns null,
    /// with the reason in `problem`, if there is none.
    static std::unique_ptr<SoundStream> Open(const StreamWish& wish, const MakeFill& makeFill,
                                             std::string& problem);

    /// Closes the device. A stream that has stopped asking for samples, or that the sound system has closed
    /// itself, is kept until the process ends, because the library may still use it; if it revives, it plays
    /// silence.
    static void Close(std::unique_ptr<SoundStream> stream);

    ~SoundStream();
    SoundStream(const SoundStream&) = delete;
    SoundStream& operator=(const SoundStream&) = delete;

    const StreamFormat& Format() const { return format_; }

    /// Returns the number of frames that the device has requested so far.
    std::uint64_t Played() const { return played_.load(std::memory_order_relaxed); }

    /// Returns false if the sound system itself has closed the device.
    bool Opened() const;

  private:
    /// The sound system, by the library that knows it.
    struct Device;

    explicit SoundStream(std::unique_ptr<Device> device);

    bool TryOpen(const StreamWish& wish, const MakeFill& makeFill, std::string& problem);
    void AwaitItsEnd() const;
    bool Moves() const;
    static void Keep(std::unique_ptr<SoundStream> stream);
    bool Play(float* out, std::size_t frames);

    std::unique_ptr<Device> device_;
    StreamFormat format_{};
    Fill fill_;
    bool started_ = false;
    std::atomic<std::uint64_t> played_{0};
    std::atomic<bool> silenced_{false};
    SoundStream* nextKept_ = nullptr;
};

}  // namespace quavix
