// SPDX-License-Identifier: MIT
#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <fstream>
#include <memory>
#include <mutex>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "dsp/wav.h"
#include "modules/sound_engine/output.h"
#include "modules/sound_engine/sound_engine.h"

namespace quavix::sound_engine {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr int SoundlessRate = 48000;
constexpr int SoundlessChannels = 2;

// Shortest sleep of the thread, and the lag at which it gives up catching up.
constexpr Seconds Nap(0.005);
constexpr Seconds MostBehind(0.5);

/// Writes blocks of mono sound to a stereo WAV file of any length. Writing returns false once it has failed.
class WavFile {
  public:
    /// Replaces the file.
    WavFile(const char* name, std::size_t blockFrames)
        : stream_(name, std::ios::binary | std::ios::trunc),
          writer_(stream_, SoundlessRate, SoundlessChannels),
          samples_(blockFrames * SoundlessChannels) {
        writer_.MakeRoom();
    }
    /// Completes the file.
    ~WavFile() { writer_.Finish(); }
    WavFile(const WavFile&) = delete;
    WavFile& operator=(const WavFile&) = delete;

    bool IsOpen() const { return stream_.is_open(); }

    bool Write(std::span<const float> block) {
        for (std::size_t i = 0; i < block.size(); ++i)
            samples_[2 * i] = samples_[2 * i + 1] = block[i];
        return writer_.Write(samples_);
    }
    bool WriteSilence(std::size_t frames) { return writer_.WriteSilence(static_cast<std::int64_t>(frames)); }

  private:
    std::ofstream stream_;
    WavWriter writer_;
    std::vector<float> samples_;
};

/// Consumes sound without a device, and writes it to a WAV file if there is one.
class SoundlessOutput : public Output {
  public:
    /// `file` may be null.
    SoundlessOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file)
        : mixer_(std::move(mixer)), file_(std::move(file)), block_(mixer_->BlockFrames()) {
        mixer_->SetRate(SoundlessRate);
    }

    int Rate() const override { return SoundlessRate; }
    int Channels() const override { return SoundlessChannels; }
    int Format() const override { return file_ ? SOUND_FORMAT_INT16 : SOUND_FORMAT_FLOAT32; }

  protected:
    /// Mixes a block and writes it. Returns false if it could not be written.
    bool TakeBlock() {
        const bool sounds = mixer_->MixBlock(block_);
        return !file_ || (sounds ? file_->Write(block_) : file_->WriteSilence(block_.size()));
    }

    std::size_t BlockFrames() const { return block_.size(); }

  private:
    std::shared_ptr<Mixer> mixer_;
    std::unique_ptr<WavFile> file_;
    std::vector<float> block_;
};

/// Mixes one block with each Update().
class SteppedOutput final : public SoundlessOutput {
  public:
    using SoundlessOutput::SoundlessOutput;

    bool Update() override { return TakeBlock(); }
};

/// Mixes blocks at the speed of a device, in its own thread.
class TimedOutput final : public SoundlessOutput {
  public:
    TimedOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file)
        : SoundlessOutput(std::move(mixer), std::move(file)), thread_(&TimedOutput::Run, this) {}

    ~TimedOutput() override {
        {
            const std::lock_guard lock(mutex_);
            end_ = true;
        }
        ended_.notify_all();
        thread_.join();
    }

    bool Update() override { return !failed_.load(std::memory_order_relaxed); }

  private:
    void Run();

    std::mutex mutex_;
    std::condition_variable ended_;
    bool end_ = false;
    std::atomic<bool> failed_{false};
    std::thread thread_;
};

void TimedOutput::Run() {
    const Seconds block(static_cast<double>(BlockFrames()) / SoundlessRate);
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

}  // namespace

std::unique_ptr<Output> OpenSoundless(const std::shared_ptr<Mixer>& mixer, const char* fileName,
                                      bool byUpdate) {
    std::unique_ptr<WavFile> file;
    if (fileName != nullptr) {
        file = std::make_unique<WavFile>(fileName, mixer->BlockFrames());
        if (!file->IsOpen())
            return nullptr;
    }
    if (byUpdate)
        return std::make_unique<SteppedOutput>(mixer, std::move(file));
    return std::make_unique<TimedOutput>(mixer, std::move(file));
}

}  // namespace quavix::sound_engine
