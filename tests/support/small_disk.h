// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/mount.h>

#include "support/own_mounts.h"
#include "support/temporary_folder.h"

namespace quavix::test {

/// A disk of a few hundred kilobytes that only this process and its children see, for as long as they live.
///
/// Making one takes and throws what HaveOwnMounts() does.
class SmallDisk {
  public:
    SmallDisk() {
        HaveOwnMounts();
        if (::mount("none", folder_.Path().c_str(), "tmpfs", 0, "size=256k") != 0)
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
