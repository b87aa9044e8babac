// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// The right to sound the PC speaker, held as long as the descriptor; or the reason why it was refused.
struct SpeakerLock {
    FileDescriptor File;
    std::string Reason;
};

/// Takes the user's lock on the PC speaker without waiting, in `runtimeFolder` (the user's, from the session)
/// or, if that is empty or unsafe, in a new folder "quavix-UID" under `tempFolder`. A folder is safe if it is
/// a directory, not a link, belongs to this user and is closed to others.
SpeakerLock TakeSpeakerLock(const std::string& runtimeFolder, const std::string& tempFolder);

}  // namespace quavix
