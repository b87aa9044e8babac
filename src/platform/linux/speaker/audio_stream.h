// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include <RtAudio.h>

#include "platform/linux/speaker/tone_player.h"

namespace quavix {

/// A sound card that plays, for as long as the object is there.
///
/// Thread: the one that made it, except the player.
class AudioStream {
  public:
    /// Opens the first sound system that has a device: JACK, PulseAudio, ALSA. Prints nothing. Null where
    /// there is none, and `problem` says why. May take as long as the sound system likes.
    static std::unique_ptr<AudioStream> Open(std::string& problem);

    ~AudioStream();
    AudioStream(const AudioStream&) = delete;
    AudioStream& operator=(const AudioStream&) = delete;

    /// Never null; it may be kept longer than the stream.
    const std::shared_ptr<TonePlayer>& Player() const { return player_; }

    /// The sound system and the device, e.g. "JACK, system".
    const std::string& Description() const { return description_; }

  private:
    explicit AudioStream(RtAudio::Api api);

    bool TryOpen(std::string& problem);
    static int Callback(void* out, void* in, unsigned int frames, double streamTime,
                        RtAudioStreamStatus status, void* stream);

    RtAudio audio_;
    std::int32_t channels_ = 1;
    std::shared_ptr<TonePlayer> player_;
    std::string description_;
};

}  // namespace quavix
