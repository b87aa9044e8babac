// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/audio_stream.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <array>
#include <chrono>
#include <cstddef>
#include <span>
#include <thread>

#include <fmt/format.h>

#include "platform/linux/speaker/tone_clock.h"

namespace quavix {
namespace {

void SayNothing(const char*, int, const char*, int, const char*, ...) {}

// Opening a device that is not there makes the ALSA library explain itself on standard error.
class QuietAlsa {
  public:
    QuietAlsa() { snd_lib_error_set_handler(&SayNothing); }
    ~QuietAlsa() { snd_lib_error_set_handler(nullptr); }
    QuietAlsa(const QuietAlsa&) = delete;
    QuietAlsa& operator=(const QuietAlsa&) = delete;
};

unsigned int SampleRate(const RtAudio::DeviceInfo& device) {
    constexpr unsigned int Wanted = 48000;
    const auto& rates = device.sampleRates;
    if (rates.empty() || std::find(rates.begin(), rates.end(), Wanted) != rates.end())
        return Wanted;
    return device.preferredSampleRate != 0 ? device.preferredSampleRate : rates.back();
}

}  // namespace

std::unique_ptr<AudioStream> AudioStream::Open(std::string& problem) {
    const QuietAlsa quiet;
    problem = "there is no sound device";
    for (const RtAudio::Api api : {RtAudio::UNIX_JACK, RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA}) {
        std::unique_ptr<AudioStream> stream(new AudioStream(api));
        if (stream->TryOpen(problem))
            return stream;
    }
    return nullptr;
}

AudioStream::AudioStream(RtAudio::Api api) : audio_(api) {
    audio_.showWarnings(false);
}

AudioStream::~AudioStream() {
    // When its server goes, the library closes a stream from a thread of its own; let that come to its end.
    constexpr auto Step = std::chrono::milliseconds(5);
    for (int step = 0; step < 100 && audio_.isStreamOpen() && player_ && !audio_.isStreamRunning(); ++step)
        std::this_thread::sleep_for(Step);
    if (audio_.isStreamOpen())
        audio_.closeStream();
}

bool AudioStream::TryOpen(std::string& problem) {
    try {
        if (audio_.getDeviceCount() == 0)
            return false;
        RtAudio::StreamParameters output;
        output.deviceId = audio_.getDefaultOutputDevice();
        const RtAudio::DeviceInfo device = audio_.getDeviceInfo(output.deviceId);
        if (!device.probed || device.outputChannels == 0)
            return false;
        channels_ = device.outputChannels > 1 ? 2 : 1;
        output.nChannels = static_cast<unsigned int>(channels_);
        RtAudio::StreamOptions options;
        options.numberOfBuffers = 4;
        options.streamName = "Quavix speaker";
        const unsigned int sampleRate = SampleRate(device);
        unsigned int blockFrames = 256;
        audio_.openStream(&output, nullptr, RTAUDIO_FLOAT32, sampleRate, &blockFrames, &Callback, this,
                          &options);
        player_ = std::make_shared<TonePlayer>(static_cast<std::int32_t>(sampleRate),
                                               static_cast<std::int32_t>(blockFrames), MonotonicNs());
        audio_.startStream();
        description_ = fmt::format("{}, {}", RtAudio::getApiDisplayName(audio_.getCurrentApi()), device.name);
        return true;
    } catch (const RtAudioError& error) {
        problem = error.getMessage();
        return false;
    }
}

int AudioStream::Callback(void* out, void*, unsigned int frames, double, RtAudioStreamStatus, void* stream) {
    constexpr int GoOn = 0;
    constexpr int Abort = 2;
    const auto& self = *static_cast<AudioStream*>(stream);
    const std::size_t samples = std::size_t{frames} * static_cast<std::size_t>(self.channels_);
    const bool playing =
        self.player_->Render(std::span(static_cast<float*>(out), samples), self.channels_, MonotonicNs());
    return playing ? GoOn : Abort;
}

}  // namespace quavix
