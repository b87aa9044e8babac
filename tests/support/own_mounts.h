// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

namespace quavix::test {

/// Gives this process and its children mounts that nobody else sees.
///
/// It takes the superuser, or a system that lets everybody have namespaces; the latter only before the
/// process has threads. Throws std::runtime_error otherwise.
inline void HaveOwnMounts() {
    if (const uid_t user = ::geteuid(); user != 0) {
        if (::unshare(CLONE_NEWUSER) != 0)
            throw std::runtime_error("nobody but the superuser may mount a disk here");
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    }
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        throw std::runtime_error("a disk can't be mounted here");
}

/// Leaves this process without the machine's own sound devices, where it has any; the same holds as above.
inline void HideSoundDevices() {
    constexpr const char* Devices = "/dev/snd";
    if (!std::filesystem::exists(Devices))
        return;
    HaveOwnMounts();
    if (::mount("none", Devices, "tmpfs", 0, nullptr) != 0)
        throw std::runtime_error("the sound devices can't be hidden");
}

}  // namespace quavix::test
