// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <condition_variable>
#include <fstream>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "dsp/wav.h"
#include "modules/sound_engine/output.h"

namespace quavix::sound_engine {

/// Writes blocks of mono sound to a stereo WAV file of any length.
class WavFile {
  public:
    static constexpr int Channels = 2;

    /// Replaces the file. Blocks have at most `mostFrames` frames.
    WavFile(const std::string& name, int framesPerSecond, std::size_t mostFrames);
    /// Completes the file.
    ~WavFile();
    WavFile(const WavFile&) = delete;
    WavFile& operator=(const WavFile&) = delete;

    /// Returns true if every write has succeeded.
    bool Good() const { return good_; }

    void Write(std::span<const float> block);
    void WriteSilence(std::size_t frames);

  private:
    std::ofstream stream_;
    std::optional<WavWriter> writer_;
    std::vector<float> frames_;
    bool good_ = false;
};

/// Consumes sound without a device, and writes it to a WAV file if there is one.
class SoundlessOutput : public Output {
  public:
    static constexpr int FramesPerSecond = 48000;

    /// `file` may be null.
    SoundlessOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file);

    int Rate() const override { return FramesPerSecond; }
    int Channels() const override { return WavFile::Channels; }
    int Format() const override;

  protected:
    /// Mixes a block and writes it. Returns false if it could not be written.
    bool TakeBlock();

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
    TimedOutput(std::shared_ptr<Mixer> mixer, std::unique_ptr<WavFile> file);
    ~TimedOutput() override;

    bool Update() override { return !failed_.load(std::memory_order_relaxed); }

  private:
    void Run();

    std::mutex mutex_;
    std::condition_variable ended_;
    bool end_ = false;
    std::atomic<bool> failed_{false};
    std::thread thread_;
};

}  // namespace quavix::sound_engine
