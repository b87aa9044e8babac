// SPDX-License-Identifier: MIT
#include "sound_engine/wav_file.h"

namespace quavix::sound_engine {

WavFile::WavFile(const std::string& name, int framesPerSecond, std::size_t mostFrames)
    : stream_(name, std::ios::binary | std::ios::trunc), frames_(mostFrames * Channels) {
    if (!stream_)
        return;
    writer_.emplace(stream_, framesPerSecond, Channels);
    good_ = static_cast<bool>(stream_);
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

}  // namespace quavix::sound_engine
