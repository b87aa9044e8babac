// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "ports/files.h"

namespace quavix {

/// The place of one recovery copy: its file, and the lock of the process it belongs to.
struct RecoverySlot {
    std::string CopyName;
    std::unique_ptr<FileLock> Lock;
};

/// The places for recovery copies in a folder. A copy whose lock nobody holds has been left behind.
class RecoverySlots {
  public:
    RecoverySlots(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

    /// A place without a copy, locked for this process; creates the folder where it is missing. None with
    /// `error` set.
    std::optional<RecoverySlot> TakeFree(std::error_code& error);

    /// The copies of all processes.
    std::vector<std::string> Copies();

    /// Takes the place of a copy that was left behind; none where its process still runs, or somebody else
    /// has taken it or done away with it.
    std::optional<RecoverySlot> TakeLeftBehind(const std::string& copyName);

  private:
    Files& files_;
    std::string folder_;
};

}  // namespace quavix
