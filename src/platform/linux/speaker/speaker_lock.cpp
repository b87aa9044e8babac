// SPDX-License-Identifier: MIT
#include "platform/linux/speaker/speaker_lock.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

namespace quavix {
namespace {

FileDescriptor OpenSafeFolder(const std::string& folder) {
    FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    const bool safe = opened && fstat(opened.Get(), &facts) == 0 && facts.st_uid == geteuid() &&
                      (facts.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return safe ? std::move(opened) : FileDescriptor();
}

}  // namespace

SpeakerLock TakeSpeakerLock(const std::string& runtimeFolder, const std::string& tempFolder) {
    FileDescriptor folder;
    if (runtimeFolder.starts_with('/'))
        folder = OpenSafeFolder(runtimeFolder);
    if (!folder) {
        const std::string own = fmt::format("{}/quavix-{}", tempFolder, geteuid());
        mkdir(own.c_str(), S_IRWXU);  // it may exist already; it is checked below
        folder = OpenSafeFolder(own);
        if (!folder)
            return {{},
                    fmt::format("There is no safe folder for its lock: {} is not a private folder.", own)};
    }
    FileDescriptor file(openat(folder.Get(), "quavix-speaker.lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                               S_IRUSR | S_IWUSR));
    if (!file)
        return {{}, fmt::format("Its lock can't be made: {}.", std::strerror(errno))};
    if (flock(file.Get(), LOCK_EX | LOCK_NB) == 0)
        return {std::move(file), {}};
    if (errno == EWOULDBLOCK)
        return {{}, "Another copy of Quavix is using the PC speaker."};
    return {{}, fmt::format("Its lock can't be taken: {}.", std::strerror(errno))};
}

}  // namespace quavix
