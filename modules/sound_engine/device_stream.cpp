// SPDX-License-Identifier: MIT
#include "sound_engine/device_stream.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <chrono>
#include <span>
#include <thread>

namespace quavix::sound_engine {
namespace {

constexpr unsigned int WantedRate = 48000;

unsigned int ChooseRate(const RtAudio::DeviceInfo& device) {
    const auto& rates = device.sampleRates;
    if (rates.empty() || std::find(rates.begin(), rates.end(), WantedRate) != rates.end())
        return WantedRate;
    return device.preferredSampleRate != 0 ? device.preferredSampleRate : rates.back();
}

void SayNothing(const char*, int, const char*, int, const char*, ...) {}

// Looking for a device that is not there makes the ALSA library explain itself on standard error, each time.
class QuietAlsa {
  public:
    QuietAlsa() { snd_lib_error_set_handler(&SayNothing); }
    ~QuietAlsa() { snd_lib_error_set_handler(nullptr); }
    QuietAlsa(const QuietAlsa&) = delete;
    QuietAlsa& operator=(const QuietAlsa&) = delete;
};

// As much as possible of the delay lies with the device, where it keeps the sound going when this process is
// late.
struct Buffers {
    explicit Buffers(int delayFrames) {
        constexpr int Shortest = 64;
        constexpr int Longest = 512;
        constexpr int WantedPeriods = 16;
        const int period = std::clamp(delayFrames / WantedPeriods, Shortest, Longest);
        Period = static_cast<unsigned int>(period);
        // One less, as a period is being waited for.
        Count = static_cast<unsigned int>(std::max(2, delayFrames / period - 1));
    }

    unsigned int Period;
    unsigned int Count;
};

}  // namespace

std::unique_ptr<DeviceStream> DeviceStream::Open(const std::shared_ptr<Mixer>& mixer, int delayFrames) {
    const QuietAlsa quiet;
    for (const RtAudio::Api api : {RtAudio::UNIX_JACK, RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA}) {
        std::unique_ptr<DeviceStream> stream(new DeviceStream(api));
        if (stream->TryOpen(mixer, delayFrames))
            return stream;
        Close(std::move(stream));
    }
    return nullptr;
}

DeviceStream::DeviceStream(RtAudio::Api api) : audio_(api) {
    audio_.showWarnings(false);
}

void DeviceStream::Close(std::unique_ptr<DeviceStream> stream) {
    // One that stands still may be about to be closed by the library itself, from a thread of its own, and
    // two at a time doing so end badly; or closing it never returns. Only one that asks for sound is sure to
    // be well.
    if (stream->audio_.isStreamRunning() ? stream->Moves() : stream->Opened())
        stream->audio_.closeStream();
    else if (stream->queue_)
        Keep(std::move(stream));
}

// To the end of the process.
void DeviceStream::Keep(std::unique_ptr<DeviceStream> stream) {
    static std::atomic<DeviceStream*> kept{nullptr};
    stream->silenced_.store(true);
    stream->nextKept_ = kept.load();
    while (!kept.compare_exchange_weak(stream->nextKept_, stream.get())) {
    }
    static_cast<void>(stream.release());
}

// Waits for that for a second, or until it is closed.
bool DeviceStream::Moves() const {
    constexpr auto Step = std::chrono::milliseconds(5);
    const std::uint64_t before = Played();
    for (int step = 0; step < 200 && Opened(); ++step) {
        if (Played() != before)
            return true;
        std::this_thread::sleep_for(Step);
    }
    return false;
}

bool DeviceStream::TryOpen(const std::shared_ptr<Mixer>& mixer, int delayFrames) {
    try {
        if (audio_.getDeviceCount() == 0)
            return false;
        RtAudio::StreamParameters output;
        output.deviceId = audio_.getDefaultOutputDevice();
        const RtAudio::DeviceInfo device = audio_.getDeviceInfo(output.deviceId);
        if (!device.probed || device.outputChannels == 0)
            return false;
        channels_ = std::min(device.outputChannels, 2U);
        output.nChannels = channels_;
        const Buffers wanted(delayFrames);
        RtAudio::StreamOptions options;
        options.numberOfBuffers = wanted.Count;
        options.streamName = "Quavix";
        unsigned int period = wanted.Period;
        const unsigned int rate = ChooseRate(device);
        audio_.openStream(&output, nullptr, RTAUDIO_FLOAT32, rate, &period, &Callback, this, &options);

        rate_ = static_cast<int>(rate);
        mixer->SetRate(rate);
        const long told = audio_.getStreamLatency();
        const long inDevice = told > 0 ? told : static_cast<long>(period) * options.numberOfBuffers;
        // A call waits for up to a period or a block before it is heard at all, half of it on average.
        const long waiting = (static_cast<long>(period) + static_cast<long>(mixer->BlockFrames())) / 2;
        const long ahead = std::max(0L, delayFrames - inDevice - waiting);
        queue_.emplace(mixer, static_cast<std::size_t>(ahead), period);
        mono_.resize(period);
        audio_.startStream();
        return true;
    } catch (const RtAudioError&) {
        return false;
    }
}

void DeviceStream::Play(float* out, std::size_t frames) {
    played_.fetch_add(frames, std::memory_order_relaxed);
    if (silenced_.load()) {
        std::fill_n(out, frames * channels_, 0.0F);
        return;
    }
    while (frames > 0) {
        const std::span<float> mono(mono_.data(), std::min(frames, mono_.size()));
        queue_->Take(mono);
        for (const float sample : mono) {
            const float limited = std::clamp(sample, -1.0F, 1.0F);
            for (unsigned int channel = 0; channel < channels_; ++channel)
                *out++ = limited;
        }
        frames -= mono.size();
    }
}

int DeviceStream::Callback(void* out, void*, unsigned int frames, double, RtAudioStreamStatus, void* stream) {
    constexpr int GoOn = 0;
    static_cast<DeviceStream*>(stream)->Play(static_cast<float*>(out), frames);
    return GoOn;
}

}  // namespace quavix::sound_engine
