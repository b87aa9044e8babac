// SPDX-License-Identifier: MIT
#include "songfile/recovery_slots.h"

#include <string_view>

#include <fmt/format.h>

#include "shell/file_access.h"

namespace quavix {
namespace {

constexpr std::string_view CopyEnding = ".QVX";

std::string LockNameOf(const std::string& copyName) {
    return copyName.substr(0, copyName.size() - CopyEnding.size()) + ".lock";
}

}  // namespace

std::optional<RecoverySlot> RecoverySlots::TakeFree(std::error_code& error) {
    constexpr int Most = 999;
    error = files_.CreateFolder(folder_);
    for (int number = 1; number <= Most && !error; ++number) {
        const std::string copyName =
            FileInFolder(folder_, fmt::format("unsaved-{:03}{}", number, CopyEnding));
        // A copy that was left behind isn't even locked for a moment: somebody may just be about to offer it.
        if (files_.FindsNormalFile(copyName))
            continue;
        auto lock = files_.TryLock(LockNameOf(copyName), error);
        if (lock && !files_.FindsNormalFile(copyName))
            return RecoverySlot{copyName, std::move(lock)};
        if (error == std::errc::resource_unavailable_try_again)
            error.clear();
    }
    if (!error)
        error = std::make_error_code(std::errc::resource_unavailable_try_again);
    return std::nullopt;
}

std::vector<std::string> RecoverySlots::Copies() {
    return files_.NormalFiles(FileInFolder(folder_, fmt::format("unsaved-*{}", CopyEnding)));
}

std::optional<RecoverySlot> RecoverySlots::TakeLeftBehind(const std::string& copyName) {
    std::error_code error;
    auto lock = files_.TryLock(LockNameOf(copyName), error);
    if (!lock || !files_.FindsNormalFile(copyName))
        return std::nullopt;
    return RecoverySlot{copyName, std::move(lock)};
}

}  // namespace quavix
