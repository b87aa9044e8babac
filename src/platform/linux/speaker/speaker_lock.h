// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/posix/file_descriptor.h"

namespace quavix {

/// The right to sound the PC speaker, kept as long as the descriptor is; or why it was not given.
struct SpeakerLock {
    FileDescriptor File;
    std::string Reason;
};

/// Takes the user's lock on the PC speaker without waiting, in `runtimeFolder` (the user's own, as the
/// session gives it) or, where that is empty or not safe, in a folder "quavix-UID" that it makes under
/// `tempFolder`. A folder is safe when it is a directory, not a link to one, belongs to this user and is
/// closed to others.
SpeakerLock TakeSpeakerLock(const std::string& runtimeFolder, const std::string& tempFolder);

}  // namespace quavix
