// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/common/monotonic.h"
#include "platform/common/speaker/platform_speaker.h"
#include "ports/speaker.h"

namespace quavix {

/// The user's choice of a speaker, and the facts needed to set one up.
struct SpeakerChoice {
    /// The user's wish: "evdev", "evdev:PATH", "soundcard", "silent", "wav:PATH"; empty is automatic.
    std::string Wanted;
    /// The user's private folder for this session; empty if there is none.
    std::string RuntimeFolder;
    /// The folder for temporary files.
    std::string TempFolder = "/tmp";
    ToneClock Clock;
};

/// Returns the choice in the environment: QUAVIX_SPEAKER, XDG_RUNTIME_DIR, TMPDIR.
SpeakerChoice SpeakerChoiceFromEnvironment();

/// Sets up the real PC speaker at the device `path`; searches for it if `path` is empty. Each system
/// implements this function.
SpeakerAttempt MakePcSpeaker(const SpeakerChoice& choice, const std::string& path);

/// Makers of the available kinds of speakers. Each returns a reason if it fails.
struct SpeakerMakers {
    std::function<SpeakerAttempt(const std::string& path)> EventDevice;  // empty path: search for it
    std::function<SpeakerAttempt()> SoundCard;
    std::function<SpeakerAttempt(const std::string& path)> SoundFile;
    std::function<SpeakerAttempt()> Silent;  // never fails
};

/// Chooses by `wanted` (see SpeakerChoice): the event device, the sound card, the silent speaker, in this
/// order, beginning with the wanted one; if a sound file can't be written, the silent one. An unknown wish is
/// reported in the status and treated as automatic. Never null.
std::unique_ptr<Speaker> ChooseSpeaker(const std::string& wanted, const SpeakerMakers& makers);

/// Same with the speakers of this machine. Should be called before the program starts threads, because the
/// real PC speaker forks its guard. The sound card is opened in the background: the first tone and the first
/// status query wait for it until 50 ms have passed.
std::unique_ptr<Speaker> ChooseSpeaker(const SpeakerChoice& choice);

}  // namespace quavix
