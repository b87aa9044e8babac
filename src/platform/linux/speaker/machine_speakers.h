// SPDX-License-Identifier: MIT
#pragma once

#include "platform/common/speaker/choose_speaker.h"
#include "platform/linux/speaker/speaker_device.h"

namespace quavix {

/// The speakers of this machine.
SpeakerMakers MachineSpeakers(const SpeakerChoice& choice);

/// Why the PC speaker was not found or not opened, and what to do about it, in words for the user.
SpeakerAttempt ExplainDevice(const FoundDevice& found);

}  // namespace quavix
