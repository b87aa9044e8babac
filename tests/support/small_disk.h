// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <sched.h>
#include <stdexcept>
#include <string>
#include <sys/mount.h>
#include <unistd.h>

#include "support/temporary_folder.h"

namespace quavix::test {

/// A disk of a few hundred kilobytes that only this process and its children see, for as long as they live.
///
/// Making one takes the superuser, or a system that lets everybody have namespaces; the latter only before
/// the process has threads. Throws std::runtime_error otherwise.
class SmallDisk {
  public:
    SmallDisk() {
        if (const uid_t user = ::geteuid(); user != 0) {
            if (::unshare(CLONE_NEWUSER) != 0)
                throw std::runtime_error("nobody but the superuser may mount a disk here");
            std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        }
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", folder_.Path().c_str(), "tmpfs", 0, "size=256k") != 0)
            throw std::runtime_error("a disk can't be mounted here");
    }
    ~SmallDisk() { ::umount2(folder_.Path().c_str(), MNT_DETACH); }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    const TemporaryFolder& Folder() const { return folder_; }

    /// Takes all space that is left.
    void Fill() const {
        std::ofstream file(Filler(), std::ios::binary);
        const std::string piece(1024, 'x');
        while (file << piece << std::flush) {
        }
    }
    /// Gives it back.
    void MakeSpace() const { std::filesystem::remove(Filler()); }

    void MakeReadOnly() const {
        if (::mount("none", folder_.Path().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) != 0)
            throw std::runtime_error("the disk can't be made read-only");
    }

  private:
    std::string Filler() const { return folder_.File("filler"); }

    TemporaryFolder folder_;
};

}  // namespace quavix::test
