// SPDX-License-Identifier: MIT
#include "platform/common/speaker/choose_speaker.h"

#include <deque>
#include <utility>

#include <fmt/format.h>

#include "platform/common/environment.h"
#include "platform/common/speaker/silent_speaker.h"
#include "platform/common/speaker/sound_card_speaker.h"
#include "platform/common/speaker/speaker_chain.h"
#include "platform/common/speaker/wav_speaker.h"

namespace quavix {
namespace {

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
    SpeakerChoice choice;
    choice.Wanted = FromEnvironment("QUAVIX_SPEAKER");
    choice.RuntimeFolder = FromEnvironment("XDG_RUNTIME_DIR");
    choice.TempFolder = FromEnvironment("TMPDIR", "/tmp");
    return choice;
}

std::unique_ptr<Speaker> ChooseSpeaker(const std::string& wanted, const SpeakerMakers& makers) {
    const auto colon = wanted.find(':');
    const std::string kind = wanted.substr(0, colon);
    const std::string path = colon == std::string::npos ? std::string() : wanted.substr(colon + 1);
    const bool hasPath = !path.empty();
    const bool bare = colon == std::string::npos;
    const std::string byChoice = fmt::format("Chosen with QUAVIX_SPEAKER={}.", wanted);

    if (wanted == "silent")
        return std::make_unique<SpeakerChain>(std::deque{makers.Silent}, byChoice);
    if (wanted == "soundcard")
        return std::make_unique<SpeakerChain>(std::deque{makers.SoundCard, makers.Silent}, byChoice);
    if (kind == "wav" && hasPath)
        return std::make_unique<SpeakerChain>(
            std::deque<SpeakerChain::Maker>{[make = makers.SoundFile, path] { return make(path); },
                                            makers.Silent},
            byChoice);

    std::string remark;
    const bool eventDevice = kind == "evdev" && (bare || hasPath);
    if (!wanted.empty() && !eventDevice)
        remark = fmt::format(
            "QUAVIX_SPEAKER={} is not understood (it can be evdev, evdev:PATH, soundcard, silent "
            "or wav:PATH), so the speaker was chosen automatically.",
            wanted);
    return std::make_unique<SpeakerChain>(
        std::deque<SpeakerChain::Maker>{
            [make = makers.EventDevice, path = eventDevice ? path : std::string()] { return make(path); },
            makers.SoundCard, makers.Silent},
        remark);
}

std::unique_ptr<Speaker> ChooseSpeaker(const SpeakerChoice& choice) {
    // Keeps a check for a sound server from starting one. Set here, because setenv() is unsafe with threads.
    SetInEnvironment("JACK_NO_START_SERVER", "1");
    return ChooseSpeaker(choice.Wanted, MachineSpeakers(choice));
}

}  // namespace quavix
