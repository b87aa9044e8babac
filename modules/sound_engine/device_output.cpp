// SPDX-License-Identifier: MIT
#include "modules/sound_engine/device_output.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "modules/sound_engine/mixed_source.h"
#include "modules/sound_engine/sound_engine.h"
#include "sound_device/sound_stream.h"

namespace quavix::sound_engine {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr auto OpeningPatience = std::chrono::seconds(10);
constexpr auto ClosingPatience = std::chrono::seconds(2);
// Intervals for checking the device, and for searching for a lost one.
constexpr auto WatchInterval = std::chrono::milliseconds(250);
constexpr auto SearchInterval = SoundStream::ReopenAfter;
// A device that has requested no sound for this long is lost, even if its sound system does not say so.
constexpr Seconds Standstill(2.0);
// A device that requests sound much faster than it can play is lost too: its sound system rejects all of it.
constexpr double MostHaste = 4.0;
constexpr Seconds Hesitation(0.5);

// Detects that a stream has lost its device.
class Watch {
  public:
    explicit Watch(const SoundStream& stream) : stream_(stream) {}

    bool Lost() {
        if (!stream_.Opened())
            return true;
        const Clock::time_point now = Clock::now();
        const std::uint64_t played = stream_.Played();
        const Seconds passed = now - movedAt_;
        const double frames = static_cast<double>(played - played_);
        if (played == played_)
            return passed > Standstill;
        const bool hasty =
            frames > MostHaste * stream_.Format().FramesPerSecond * Seconds(passed + Hesitation).count();
        played_ = played;
        movedAt_ = now;
        return hasty;
    }

  private:
    const SoundStream& stream_;
    std::uint64_t played_ = 0;
    Clock::time_point movedAt_ = Clock::now();
};

}  // namespace

struct DeviceOutput::Shared {
    std::shared_ptr<Mixer> Mixing;
    int DelayFrames = 0;
    std::mutex Mutex;
    std::condition_variable Changed;
    bool End = false;
    bool Ended = false;
    // Set when the first attempt is over: true if it succeeded.
    std::optional<bool> Opened;
    std::atomic<int> Rate{0};
    std::atomic<int> Channels{0};
};

std::unique_ptr<Output> DeviceOutput::Open(const std::shared_ptr<Mixer>& mixer, int delayFrames) {
    auto shared = std::make_shared<Shared>();
    shared->Mixing = mixer;
    shared->DelayFrames = delayFrames;
    std::thread(&DeviceOutput::Work, shared).detach();
    std::unique_ptr<Output> output(new DeviceOutput(shared));
    std::unique_lock lock(shared->Mutex);
    shared->Changed.wait_for(lock, OpeningPatience, [&] { return shared->Opened.has_value(); });
    const bool opened = shared->Opened.value_or(false);
    lock.unlock();
    return opened ? std::move(output) : nullptr;
}

DeviceOutput::~DeviceOutput() {
    std::unique_lock lock(shared_->Mutex);
    shared_->End = true;
    shared_->Changed.notify_all();
    shared_->Changed.wait_for(lock, ClosingPatience, [this] { return shared_->Ended; });
}

int DeviceOutput::Rate() const {
    return shared_->Rate.load(std::memory_order_relaxed);
}

int DeviceOutput::Channels() const {
    return shared_->Channels.load(std::memory_order_relaxed);
}

int DeviceOutput::Format() const {
    return SOUND_FORMAT_FLOAT32;
}

std::unique_ptr<SoundStream> DeviceOutput::OpenStream(const Shared& shared) {
    std::string problem;
    return SoundStream::Open(
        MixedSource::Wish(shared.DelayFrames),
        [&](const StreamFormat& device) {
            return std::make_shared<MixedSource>(shared.Mixing, device, shared.DelayFrames);
        },
        problem);
}

void DeviceOutput::Work(const std::shared_ptr<Shared>& shared) {
    std::unique_ptr<SoundStream> stream;
    std::optional<Watch> watch;
    std::unique_lock lock(shared->Mutex);
    while (!shared->End) {
        lock.unlock();
        if (watch && watch->Lost()) {
            watch.reset();
            SoundStream::Close(std::move(stream));
        } else if (!stream) {
            stream = OpenStream(*shared);
            if (stream) {
                watch.emplace(*stream);
                const StreamFormat& format = stream->Format();
                shared->Rate.store(static_cast<int>(format.FramesPerSecond), std::memory_order_relaxed);
                shared->Channels.store(static_cast<int>(format.Channels), std::memory_order_relaxed);
            }
        }
        lock.lock();
        if (!shared->Opened) {
            shared->Opened = stream != nullptr;
            shared->End = shared->End || !stream;
            shared->Changed.notify_all();
        }
        shared->Changed.wait_for(lock, stream ? WatchInterval : SearchInterval, [&] { return shared->End; });
    }
    lock.unlock();
    if (stream)
        SoundStream::Close(std::move(stream));
    lock.lock();
    shared->Ended = true;
    shared->Changed.notify_all();
}

}  // namespace quavix::sound_engine
