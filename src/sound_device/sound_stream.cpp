// SPDX-License-Identifier: MIT
#include "sound_device/sound_stream.h"

#include <algorithm>
#include <alsa/asoundlib.h>
#include <span>
#include <thread>
#include <utility>

#include <RtAudio.h>
#include <fmt/format.h>

namespace quavix {
namespace {

constexpr auto Step = std::chrono::milliseconds(5);

void SayNothing(const char*, int, const char*, int, const char*, ...) {}

// Keeps the ALSA library from printing errors on standard error whenever a device is missing.
class QuietAlsa {
  public:
    QuietAlsa() { snd_lib_error_set_handler(&SayNothing); }
    ~QuietAlsa() { snd_lib_error_set_handler(nullptr); }
    QuietAlsa(const QuietAlsa&) = delete;
    QuietAlsa& operator=(const QuietAlsa&) = delete;
};

unsigned int ChooseRate(const RtAudio::DeviceInfo& device) {
    constexpr unsigned int Wanted = 48000;
    const auto& rates = device.sampleRates;
    if (rates.empty() || std::find(rates.begin(), rates.end(), Wanted) != rates.end())
        return Wanted;
    return device.preferredSampleRate != 0 ? device.preferredSampleRate : rates.back();
}

}  // namespace

struct SoundStream::Device {
    explicit Device(RtAudio::Api api) : Audio(api) { Audio.showWarnings(false); }

    static int Callback(void* out, void*, unsigned int frames, double, RtAudioStreamStatus, void* stream) {
        constexpr int GoOn = 0;
        constexpr int Abort = 2;
        return static_cast<SoundStream*>(stream)->Play(static_cast<float*>(out), frames) ? GoOn : Abort;
    }

    RtAudio Audio;
};

std::unique_ptr<SoundStream> SoundStream::Open(const StreamWish& wish, const MakeFill& makeFill,
                                               std::string& problem) {
    const QuietAlsa quiet;
    problem = "there is no sound device";
    for (const RtAudio::Api api : {RtAudio::UNIX_JACK, RtAudio::LINUX_PULSE, RtAudio::LINUX_ALSA}) {
        std::unique_ptr<SoundStream> stream(new SoundStream(std::make_unique<Device>(api)));
        if (stream->TryOpen(wish, makeFill, problem))
            return stream;
        Close(std::move(stream));
    }
    return nullptr;
}

SoundStream::SoundStream(std::unique_ptr<Device> device) : device_(std::move(device)) {}

SoundStream::~SoundStream() = default;

bool SoundStream::Opened() const {
    return device_->Audio.isStreamOpen();
}

bool SoundStream::TryOpen(const StreamWish& wish, const MakeFill& makeFill, std::string& problem) {
    RtAudio& audio = device_->Audio;
    try {
        if (audio.getDeviceCount() == 0)
            return false;
        RtAudio::StreamParameters output;
        output.deviceId = audio.getDefaultOutputDevice();
        const RtAudio::DeviceInfo device = audio.getDeviceInfo(output.deviceId);
        if (!device.probed || device.outputChannels == 0)
            return false;
        output.nChannels = std::min(device.outputChannels, 2U);
        RtAudio::StreamOptions options;
        options.numberOfBuffers = wish.Periods;
        options.streamName = wish.Name;
        unsigned int period = wish.Period;
        const unsigned int rate = ChooseRate(device);
        audio.openStream(&output, nullptr, RTAUDIO_FLOAT32, rate, &period, &Device::Callback, this, &options);

        const long told = audio.getStreamLatency();
        format_ = {.FramesPerSecond = rate,
                   .Channels = output.nChannels,
                   .Period = period,
                   .DelayFrames = told > 0 ? told : static_cast<long>(period) * options.numberOfBuffers,
                   .Description =
                       fmt::format("{}, {}", RtAudio::getApiDisplayName(audio.getCurrentApi()), device.name)};
        fill_ = makeFill(format_);
        audio.startStream();
        started_ = true;
        return true;
    } catch (const RtAudioError& error) {
        problem = error.getMessage();
        return false;
    }
}

void SoundStream::Close(std::unique_ptr<SoundStream> stream) {
    // A stream that is not running may be about to be closed by the library's own thread, and two closings at
    // a time can crash; or closing may hang. Closing is safe only if the stream still asks for samples.
    stream->AwaitItsEnd();
    if (stream->device_->Audio.isStreamRunning() ? stream->Moves() : stream->Opened())
        stream->device_->Audio.closeStream();
    else if (stream->fill_)
        Keep(std::move(stream));
}

// Waits until the library has closed a stream that it has stopped: when the server goes, it does both in
// turn.
void SoundStream::AwaitItsEnd() const {
    for (int step = 0; step < 100 && started_ && Opened() && !device_->Audio.isStreamRunning(); ++step)
        std::this_thread::sleep_for(Step);
}

// Keeps the stream until the process ends.
void SoundStream::Keep(std::unique_ptr<SoundStream> stream) {
    static std::atomic<SoundStream*> kept{nullptr};
    stream->silenced_.store(true);
    stream->nextKept_ = kept.load();
    while (!kept.compare_exchange_weak(stream->nextKept_, stream.get())) {
    }
    static_cast<void>(stream.release());
}

// Waits up to a second for the device to ask for samples. Returns false if it does not, or is closed.
bool SoundStream::Moves() const {
    const std::uint64_t before = Played();
    for (int step = 0; step < 200 && Opened(); ++step) {
        if (Played() != before)
            return true;
        std::this_thread::sleep_for(Step);
    }
    return false;
}

bool SoundStream::Play(float* out, std::size_t frames) {
    played_.fetch_add(frames, std::memory_order_relaxed);
    const std::span<float> samples(out, frames * format_.Channels);
    if (!silenced_.load())
        return fill_(samples);
    std::fill(samples.begin(), samples.end(), 0.0F);
    return true;
}

}  // namespace quavix
