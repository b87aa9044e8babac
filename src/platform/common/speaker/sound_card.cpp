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

std::unique_ptr<SoundStream> OpenStream(std::shared_ptr<TonePlayer>& player, std::string& problem) {
    constexpr StreamWish Wish{.Name = "Quavix speaker", .Period = 256, .Periods = 4};
    return SoundStream::Open(
        Wish,
        [&](const StreamFormat& device) -> SoundStream::Fill {
            player = std::make_shared<TonePlayer>(static_cast<std::int32_t>(device.FramesPerSecond),
                                                  static_cast<std::int32_t>(device.Period), MonotonicNs());
            return [player, channels = static_cast<std::int32_t>(device.Channels)](std::span<float> out) {
                return player->Render(out, channels, MonotonicNs());
            };
        },
        problem);
}

}  // namespace

struct SoundCard::Shared {
    std::mutex Mutex;
    std::condition_variable Changed;
    State Is = State::NotOpened;
    bool Quit = false;
    bool Ended = false;
    std::string Description;
    std::shared_ptr<TonePlayer> Player;
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
    shared_->Is = State::Opening;
    shared_->Player.reset();
    shared_->Changed.notify_all();
}

void SoundCard::AwaitOpening(std::int32_t mostMs) const {
    std::unique_lock lock(shared_->Mutex);
    shared_->Changed.wait_for(lock, std::chrono::milliseconds(mostMs),
                              [this] { return shared_->Is != State::Opening; });
}

SoundCard::State SoundCard::Now() const {
    const std::lock_guard lock(shared_->Mutex);
    return shared_->Is;
}

std::string SoundCard::Description() const {
    const std::lock_guard lock(shared_->Mutex);
    return shared_->Description;
}

std::shared_ptr<TonePlayer> SoundCard::Player() const {
    const std::lock_guard lock(shared_->Mutex);
    return shared_->Player;
}

void SoundCard::Work(const std::shared_ptr<Shared>& shared) {
    std::unique_ptr<SoundStream> stream;
    std::unique_lock lock(shared->Mutex);
    for (;;) {
        shared->Changed.wait(lock, [&] { return shared->Quit || shared->Is == State::Opening; });
        if (stream) {
            lock.unlock();
            SoundStream::Close(std::move(stream));
            lock.lock();
            shared->Changed.wait_for(lock, SoundStream::ReopenAfter, [&] { return shared->Quit; });
        }
        if (shared->Quit)
            break;
        lock.unlock();
        std::string problem;
        std::shared_ptr<TonePlayer> player;
        stream = OpenStream(player, problem);
        lock.lock();
        shared->Is = stream ? State::Open : State::Unavailable;
        shared->Description = stream ? stream->Format().Description : problem;
        shared->Player = stream ? player : nullptr;
        shared->Changed.notify_all();
    }
    shared->Ended = true;
    shared->Changed.notify_all();
}

}  // namespace quavix
