// SPDX-License-Identifier: MIT
#include "modules/sound_engine/soundless_output.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "modules/sound_engine/sound_engine.h"

namespace quavix::sound_engine {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// Shortest sleep of the thread, and the lag at which it gives up catching up.
constexpr Seconds Nap(0.005);
constexpr Seconds MostBehind(0.5);

}  // namespace

WavFile::WavFile(const std::string& name, int framesPerSecond, std::size_t mostFrames)
    : stream_(name, std::ios::binary | std::ios::trunc), frames_(mostFrames * Channels) {
    if (!stream_)
        return;
    writer_.emplace(stream_, framesPerSecond, Channels);
    writer_->MakeRoom();
    good_ = true;
}

WavFile::~WavFile() {
    if (writer_)
        writer_->Finish();
}

void WavFile::Write(std::span<const float> block) {
    for (std::size_t i = 0; i < block.size(); ++i)
        frames_[2 * i] = frames_[2 * i + 1] = block[i];
    good_ = writer_->Write(std::span(frames_).first(block.size() * Channels)) && good_;
}

void WavFile::WriteSilence(std::size_t frames) {
    good_ = writer_->WriteSilence(static_cast<std::int64_t>(frames)) && good_;
}

SoundlessOutput::SoundlessOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file)
    : mixer_(std::move(mixer)), file_(std::move(file)), block_(mixer_->BlockFrames()) {
    mixer_->SetRate(FramesPerSecond);
}

int SoundlessOutput::Format() const {
    return file_ ? SOUND_FORMAT_INT16 : SOUND_FORMAT_FLOAT32;
}

bool SoundlessOutput::TakeBlock() {
    const bool sounds = mixer_->MixBlock(block_);
    if (!file_)
        return true;
    if (sounds)
        file_->Write(block_);
    else
        file_->WriteSilence(block_.size());
    return file_->Good();
}

TimedOutput::TimedOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file)
    : SoundlessOutput(std::move(mixer), std::move(file)), thread_(&TimedOutput::Run, this) {}

TimedOutput::~TimedOutput() {
    {
        const std::lock_guard lock(mutex_);
        end_ = true;
    }
    ended_.notify_all();
    thread_.join();
}

void TimedOutput::Run() {
    const Seconds block(static_cast<double>(BlockFrames()) / FramesPerSecond);
    Clock::time_point due = Clock::now();  // of the next block
    std::unique_lock lock(mutex_);
    while (!end_) {
        lock.unlock();
        const Clock::time_point now = Clock::now();
        if (now - due > MostBehind)
            due = now;
        while (due <= now) {
            if (!TakeBlock())
                failed_.store(true, std::memory_order_relaxed);
            due += std::chrono::duration_cast<Clock::duration>(block);
        }
        lock.lock();
        const auto until = std::max(due, now + std::chrono::duration_cast<Clock::duration>(Nap));
        ended_.wait_until(lock, until, [this] { return end_; });
    }
}

}  // namespace quavix::sound_engine
