// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/sound_card.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/linux/speaker/audio_stream.h"

namespace quavix {

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
    std::unique_ptr<AudioStream> stream;
    std::unique_lock lock(shared->Mutex);
    for (;;) {
        shared->Changed.wait(lock, [&] { return shared->Quit || shared->Is == State::Opening; });
        const bool quit = shared->Quit;
        lock.unlock();
        std::string problem;
        stream.reset();
        if (!quit)
            stream = AudioStream::Open(problem);
        lock.lock();
        if (quit)
            break;
        shared->Is = stream ? State::Open : State::Unavailable;
        shared->Description = stream ? stream->Description() : problem;
        shared->Player = stream ? stream->Player() : nullptr;
        shared->Changed.notify_all();
    }
    shared->Ended = true;
    shared->Changed.notify_all();
}

}  // namespace quavix
