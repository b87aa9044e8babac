// SPDX-License-Identifier: MIT
#include "sound_engine/output.h"

#include "sound_engine/device_output.h"
#include "sound_engine/sound_engine.h"
#include "sound_engine/soundless_output.h"

namespace quavix::sound_engine {

std::unique_ptr<Output> OpenOutput(const OutputChoice& choice, const std::shared_ptr<Mixer>& mixer) {
    std::unique_ptr<WavFile> file;
    if (choice.FileName != nullptr) {
        file = std::make_unique<WavFile>(choice.FileName, SoundlessOutput::FramesPerSecond,
                                         mixer->BlockFrames());
        if (!file->Good())
            return nullptr;
    }
    switch (choice.Kind) {
        case SOUND_OUTPUT_NONE:
        case SOUND_OUTPUT_WAV:
            return std::make_unique<TimedOutput>(mixer, std::move(file));
        case SOUND_OUTPUT_NONE_BY_UPDATE:
        case SOUND_OUTPUT_WAV_BY_UPDATE:
            return std::make_unique<SteppedOutput>(mixer, std::move(file));
        default:
            return DeviceOutput::Open(mixer, choice.DelayFrames);
    }
}

}  // namespace quavix::sound_engine
