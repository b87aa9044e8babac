// SPDX-License-Identifier: MIT
#include "platform/common/speaker/choose_speaker.h"

#include <deque>
#include <utility>

#include <fmt/format.h>

#include "platform/common/environment.h"
#include "platform/common/speaker/sound_card_speaker.h"
#include "platform/common/speaker/wav_speaker.h"

namespace quavix {
namespace {

/// A silent speaker that keeps the time of every tone, so that a song still runs as written.
class SilentSpeaker : public PlatformSpeaker {
  public:
    explicit SilentSpeaker(ToneClock clock) : clock_(std::move(clock)) {}

    void Beep(std::int32_t, std::int32_t durationMs) override {
        if (durationMs > 0)
            clock_.WaitUntil(clock_.DeadlineAfter(durationMs));
    }

    SpeakerStatus Status() const override {
        return {.InUse = "silent (tones keep their time but make no sound)", .Silent = true};
    }

  private:
    ToneClock clock_;
};

using Maker = std::function<SpeakerAttempt()>;

/// Uses the first of several speakers that works, and the next one when it fails; remembers the reasons. The
/// choice may be made only at the first tone or the first status query.
class SpeakerChain : public Speaker {
  public:
    /// Tries `makers` in order; the last one must not fail. `remark` precedes every reason.
    SpeakerChain(std::deque<Maker> makers, std::string remark)
        : choice_{.Makers = std::move(makers), .Reason = std::move(remark)} {
        choice_.TakeNext();
    }

    /// Sounds a tone. A failed speaker is replaced after the tone, not during it.
    void Beep(std::int32_t frequency, std::int32_t durationMs) override {
        choice_.Settle();
        choice_.InUse->Beep(frequency, durationMs);
        choice_.ReplaceIfFailed();
    }

    SpeakerStatus Status() const override {
        choice_.Settle();
        SpeakerStatus status = choice_.InUse->Status();
        status.Reason = Joined(choice_.Reason, status.Reason);
        if (status.Remedy.empty())
            status.Remedy = choice_.Remedy;
        return status;
    }

  private:
    struct Choice {
        std::deque<Maker> Makers;
        std::string Reason;
        std::string Remedy{};
        std::unique_ptr<PlatformSpeaker> InUse{};
        bool Settled = false;

        void TakeNext();
        void Settle();
        void ReplaceIfFailed();
        void AddReason(const std::string& reason, const std::string& remedy);
    };

    static std::string Joined(const std::string& text, const std::string& sentence) {
        return text + (text.empty() || sentence.empty() ? "" : " ") + sentence;
    }

    // A status query may make the choice.
    mutable Choice choice_;
};

void SpeakerChain::Choice::TakeNext() {
    InUse.reset();
    Settled = false;
    while (!InUse && !Makers.empty()) {
        SpeakerAttempt attempt = Makers.front()();
        Makers.pop_front();
        AddReason(attempt.Reason, attempt.Remedy);
        InUse = std::move(attempt.Made);
    }
}

void SpeakerChain::Choice::Settle() {
    while (!std::exchange(Settled, true)) {
        InUse->Settle();
        ReplaceIfFailed();
    }
}

void SpeakerChain::Choice::ReplaceIfFailed() {
    if (!InUse->Failed() || Makers.empty())
        return;
    const SpeakerStatus failed = InUse->Status();
    AddReason(failed.Reason, failed.Remedy);
    TakeNext();
}

void SpeakerChain::Choice::AddReason(const std::string& reason, const std::string& remedy) {
    Reason = Joined(Reason, reason);
    // The first remedy helps the preferred speaker, so it is kept.
    if (Remedy.empty())
        Remedy = remedy;
}

SpeakerMakers MachineSpeakers(const SpeakerChoice& choice) {
    SpeakerMakers makers;
    makers.EventDevice = [choice](const std::string& path) { return MakePcSpeaker(choice, path); };
    makers.SoundCard = [clock = choice.Clock] {
        return UnlessFailed(std::make_unique<SoundCardSpeaker>(clock));
    };
    makers.SoundFile = [clock = choice.Clock](const std::string& path) {
        return UnlessFailed(std::make_unique<WavSpeaker>(path, clock));
    };
    makers.Silent = [clock = choice.Clock] { return UnlessFailed(std::make_unique<SilentSpeaker>(clock)); };
    return makers;
}

}  // namespace

SpeakerChoice SpeakerChoiceFromEnvironment() {
    return {.Wanted = FromEnvironment("QUAVIX_SPEAKER"),
            .RuntimeFolder = FromEnvironment("XDG_RUNTIME_DIR"),
            .TempFolder = FromEnvironment("TMPDIR", "/tmp"),
            .Clock = {}};
}

std::unique_ptr<Speaker> ChooseSpeaker(const std::string& wanted, const SpeakerMakers& makers) {
    const auto colon = wanted.find(':');
    const std::string kind = wanted.substr(0, colon);
    const bool bare = colon == std::string::npos;
    const std::string path = bare ? std::string() : wanted.substr(colon + 1);
    const std::string byChoice = fmt::format("Chosen with QUAVIX_SPEAKER={}.", wanted);

    if (wanted == "silent")
        return std::make_unique<SpeakerChain>(std::deque{makers.Silent}, byChoice);
    if (wanted == "soundcard")
        return std::make_unique<SpeakerChain>(std::deque{makers.SoundCard, makers.Silent}, byChoice);
    if (kind == "wav" && !path.empty()) {
        const Maker file = [make = makers.SoundFile, path] { return make(path); };
        return std::make_unique<SpeakerChain>(std::deque{file, makers.Silent}, byChoice);
    }

    std::string remark;
    const bool eventDevice = kind == "evdev" && (bare || !path.empty());
    if (!wanted.empty() && !eventDevice)
        remark = fmt::format(
            "QUAVIX_SPEAKER={} is not understood (it can be evdev, evdev:PATH, soundcard, silent "
            "or wav:PATH), so the speaker was chosen automatically.",
            wanted);
    const Maker device = [make = makers.EventDevice, path = eventDevice ? path : std::string()] {
        return make(path);
    };
    return std::make_unique<SpeakerChain>(std::deque{device, makers.SoundCard, makers.Silent}, remark);
}

std::unique_ptr<Speaker> ChooseSpeaker(const SpeakerChoice& choice) {
    // Keeps a check for a sound server from starting one. Set here, because setenv() is unsafe with threads.
    SetInEnvironment("JACK_NO_START_SERVER", "1");
    return ChooseSpeaker(choice.Wanted, MachineSpeakers(choice));
}

}  // namespace quavix
