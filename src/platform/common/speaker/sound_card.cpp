// SPDX-License-Identifier: MIT
#include "platform/common/speaker/sound_card.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <span>
#include <thread>
#include <utility>

#include "platform/common/monotonic.h"
#include "sound_device/sound_stream.h"

namespace quavix {
namespace {

/// Returns null if there is no card. Sets `facts` in any case.
std::unique_ptr<SoundStream> OpenStream(SoundCard::Facts& facts) {
    constexpr StreamWish Wish{.Name = "Quavix speaker", .Period = 256, .Periods = 4};
    std::shared_ptr<TonePlayer> player;
    std::string problem;
    auto stream = SoundStream::Open(
        Wish,
        [&](const StreamFormat& device) -> SoundStream::Fill {
            player = std::make_shared<TonePlayer>(static_cast<std::int32_t>(device.FramesPerSecond),
                                                  static_cast<std::int32_t>(device.Period), MonotonicNs());
            return [player, channels = static_cast<std::int32_t>(device.Channels)](std::span<float> out) {
                return player->Render(out, channels, MonotonicNs());
            };
        },
        problem);
    if (stream)
        facts = {SoundCard::State::Open, stream->Format().Description, player};
    else
        facts = {SoundCard::State::Unavailable, problem};
    return stream;
}

}  // namespace

struct SoundCard::Shared {
    std::mutex Mutex;
    std::condition_variable Changed;
    Facts Now;
    bool Quit = false;
    bool Ended = false;
};

SoundCard::SoundCard() : shared_(std::make_shared<Shared>()) {
    std::thread(&SoundCard::Work, shared_).detach();
}

SoundCard::~SoundCard() {
    std::unique_lock lock(shared_->Mutex);
    shared_->Quit = true;
    shared_->Changed.notify_all();
    shared_->Changed.wait_for(lock, std::chrono::seconds(2), [this] { return shared_->Ended; });
}

void SoundCard::BeginOpening() {
    const std::lock_guard lock(shared_->Mutex);
    shared_->Now.Is = State::Opening;
    shared_->Now.Player.reset();
    shared_->Changed.notify_all();
}

void SoundCard::AwaitOpening(std::int32_t mostMs) const {
    std::unique_lock lock(shared_->Mutex);
    shared_->Changed.wait_for(lock, std::chrono::milliseconds(mostMs),
                              [this] { return shared_->Now.Is != State::Opening; });
}

SoundCard::Facts SoundCard::Now() const {
    const std::lock_guard lock(shared_->Mutex);
    return shared_->Now;
}

void SoundCard::Work(const std::shared_ptr<Shared>& shared) {
    std::unique_ptr<SoundStream> stream;
    std::unique_lock lock(shared->Mutex);
    for (;;) {
        shared->Changed.wait(lock, [&] { return shared->Quit || shared->Now.Is == State::Opening; });
        if (stream) {
            lock.unlock();
            SoundStream::Close(std::move(stream));
            lock.lock();
            shared->Changed.wait_for(lock, SoundStream::ReopenAfter, [&] { return shared->Quit; });
        }
        if (shared->Quit)
            break;
        lock.unlock();
        Facts opened;
        stream = OpenStream(opened);
        lock.lock();
        shared->Now = opened;
        shared->Changed.notify_all();
    }
    shared->Ended = true;
    shared->Changed.notify_all();
}

}  // namespace quavix
