// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"
#include "ports/speaker.h"

namespace quavix {

/// The user's choice of a speaker, and what setting one up needs.
struct SpeakerChoice {
    /// The user's wish: "evdev", "evdev:PATH", "soundcard", "silent", "wav:PATH"; empty is automatic.
    std::string Wanted;
    /// The user's own folder for this session; empty where there is none.
    std::string RuntimeFolder;
    /// The folder for temporary files.
    std::string TempFolder = "/tmp";
    ToneClock Clock;
};

/// The choice as the environment states it: QUAVIX_SPEAKER, XDG_RUNTIME_DIR, TMPDIR.
SpeakerChoice SpeakerChoiceFromEnvironment();

/// Sets up the real PC speaker at the device `path`; an empty path has the device looked for. Each system
/// implements this function.
SpeakerAttempt MakePcSpeaker(const SpeakerChoice& choice, const std::string& path);

/// The speakers to choose from. One that can't be had says why.
struct SpeakerMakers {
    std::function<SpeakerAttempt(const std::string& path)> EventDevice;  // path empty: find it
    std::function<SpeakerAttempt()> SoundCard;
    std::function<SpeakerAttempt(const std::string& path)> SoundFile;
    std::function<SpeakerAttempt()> Silent;  // always to be had
};

/// Chooses by `wanted` (see SpeakerChoice): the event device, the sound card, the silent speaker, in this
/// order and from the wanted one on; a sound file that can't be written is followed by silence. Something
/// that can't be understood is said in the status and counts as automatic. Never null.
std::unique_ptr<Speaker> ChooseSpeaker(const std::string& wanted, const SpeakerMakers& makers);

/// The same with the speakers of this machine. Best called before the program starts threads, as the real PC
/// speaker forks its guard. The sound card is opened meanwhile: the first tone and the first look at the
/// status wait for it until 50 ms have passed since.
std::unique_ptr<Speaker> ChooseSpeaker(const SpeakerChoice& choice);

}  // namespace quavix
