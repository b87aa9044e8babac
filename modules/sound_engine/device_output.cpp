// SPDX-License-Identifier: MIT
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <utility>

#include "modules/sound_engine/mixed_source.h"
#include "modules/sound_engine/output.h"
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

/// State shared by the output and the thread that talks to the sound system.
struct DeviceState {
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

/// The best sound device. A separate thread talks to the sound system, so that an unresponsive one does not
/// block the caller for long.
class DeviceOutput final : public Output {
  public:
    explicit DeviceOutput(std::shared_ptr<DeviceState> state) : state_(std::move(state)) {}

    ~DeviceOutput() override {
        std::unique_lock lock(state_->Mutex);
        state_->End = true;
        state_->Changed.notify_all();
        state_->Changed.wait_for(lock, ClosingPatience, [this] { return state_->Ended; });
    }

    int Rate() const override { return state_->Rate.load(std::memory_order_relaxed); }
    int Channels() const override { return state_->Channels.load(std::memory_order_relaxed); }
    int Format() const override { return SOUND_FORMAT_FLOAT32; }

  private:
    std::shared_ptr<DeviceState> state_;
};

std::unique_ptr<SoundStream> OpenStream(const DeviceState& state) {
    std::string problem;
    return SoundStream::Open(
        MixedSource::Wish(state.DelayFrames),
        [&](const StreamFormat& device) -> SoundStream::Fill {
            return [source = std::make_shared<MixedSource>(state.Mixing, device, state.DelayFrames)](
                       std::span<float> out) {
                source->Fill(out);
                return true;
            };
        },
        problem);
}

void Work(const std::shared_ptr<DeviceState>& state) {
    std::unique_ptr<SoundStream> stream;
    std::optional<Watch> watch;
    std::unique_lock lock(state->Mutex);
    while (!state->End) {
        lock.unlock();
        if (watch && watch->Lost()) {
            watch.reset();
            SoundStream::Close(std::move(stream));
        } else if (!stream) {
            stream = OpenStream(*state);
            if (stream) {
                watch.emplace(*stream);
                const StreamFormat& format = stream->Format();
                state->Rate.store(static_cast<int>(format.FramesPerSecond), std::memory_order_relaxed);
                state->Channels.store(static_cast<int>(format.Channels), std::memory_order_relaxed);
            }
        }
        lock.lock();
        if (!state->Opened) {
            state->Opened = stream != nullptr;
            state->End = state->End || !stream;
            state->Changed.notify_all();
        }
        state->Changed.wait_for(lock, stream ? WatchInterval : SearchInterval, [&] { return state->End; });
    }
    lock.unlock();
    if (stream)
        SoundStream::Close(std::move(stream));
    lock.lock();
    state->Ended = true;
    state->Changed.notify_all();
}

}  // namespace

std::unique_ptr<Output> OpenDevice(const std::shared_ptr<Mixer>& mixer, int delayFrames) {
    auto state = std::make_shared<DeviceState>();
    state->Mixing = mixer;
    state->DelayFrames = delayFrames;
    std::thread(&Work, state).detach();
    auto output = std::make_unique<DeviceOutput>(state);
    std::unique_lock lock(state->Mutex);
    state->Changed.wait_for(lock, OpeningPatience, [&] { return state->Opened.has_value(); });
    const bool opened = state->Opened.value_or(false);
    lock.unlock();
    return opened ? std::move(output) : nullptr;
}

}  // namespace quavix::sound_engine
