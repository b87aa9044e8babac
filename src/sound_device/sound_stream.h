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

/// The source of the samples that a sound device plays.
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

/// The stream that is wanted; the device gives the nearest to it that it can.
struct StreamWish {
    /// The name under which the sound system shows it to the user.
    const char* Name;
    /// Frames to be asked for at a time, and how many times that the device keeps.
    unsigned int Period;
    unsigned int Periods;
};

/// The stream that a sound device gives.
struct StreamFormat {
    unsigned int FramesPerSecond;
    /// 1 or 2.
    unsigned int Channels;
    unsigned int Period;
    /// How long what the device is given takes to the loudspeaker, as far as it knows.
    long DelayFrames;
    /// The sound system and the device, e.g. "JACK, system".
    std::string Description;
};

/// A sound device that plays, for as long as the object is there.
///
/// Thread: the one that made it; the device asks for samples in a thread of its own. Opening and closing may
/// take as long as the sound system likes.
class SoundStream {
  public:
    using MakeSource = std::function<std::shared_ptr<SampleSource>(const StreamFormat&)>;

    /// One that was lost is not to be opened again before so much time has passed since it was closed:
    /// opening a client of a new JACK server frees those of the old one in the whole process, and others may
    /// be just about to close theirs.
    static constexpr std::chrono::milliseconds ReopenAfter{500};

    /// Opens the first sound system that has a device: JACK, PulseAudio, ALSA. Prints nothing. Null where
    /// there is none, and `problem` says why.
    static std::unique_ptr<SoundStream> Open(const StreamWish& wish, const MakeSource& makeSource,
                                             std::string& problem);

    /// Closes the device. A stream that has stopped asking for samples, or that the sound system has closed
    /// itself, is left to the library, which may still do something with it; it plays silence should it come
    /// back.
    static void Close(std::unique_ptr<SoundStream> stream);

    ~SoundStream();
    SoundStream(const SoundStream&) = delete;
    SoundStream& operator=(const SoundStream&) = delete;

    const StreamFormat& Format() const { return format_; }

    /// Frames that the device has asked for so far.
    std::uint64_t Played() const { return played_.load(std::memory_order_relaxed); }

    /// False where the sound system itself has closed the device.
    bool Opened() const;

  private:
    /// The sound system, by the library that knows it.
    struct Device;

    explicit SoundStream(std::unique_ptr<Device> device);

    bool TryOpen(const StreamWish& wish, const MakeSource& makeSource, std::string& problem);
    void AwaitItsEnd() const;
    bool Moves() const;
    static void Keep(std::unique_ptr<SoundStream> stream);
    bool Play(float* out, std::size_t frames);

    std::unique_ptr<Device> device_;
    StreamFormat format_{};
    std::shared_ptr<SampleSource> source_;
    bool started_ = false;
    std::atomic<std::uint64_t> played_{0};
    std::atomic<bool> silenced_{false};
    SoundStream* nextKept_ = nullptr;
};

}  // namespace quavix
