// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ports/message_boxes.h"
#include "ports/sound_library.h"
#include "shell/debug_log.h"

namespace quavix {

/// Returns the meaning of a result of the sound library. The texts are the library's own, blanks at their
/// ends included; anything but 0 to 81 is "Unknown error.".
const char* FmodErrorText(SoundLibrary::Result result);

/// Reports what goes wrong with the sound library; the program carries on.
class FmodErrors {
  public:
    /// The one version of the library that the program is made for, 4.06.21.
    static constexpr std::uint32_t RequiredVersion = 0x40621;

    FmodErrors(MessageBoxes& boxes, DebugLog& log) : boxes_(boxes), log_(log) {}

    /// Every result of the library passes through here: one other than 0 is logged and shown, in a message
    /// that holds nothing up, as it comes with every tone of the music. Returns whether it was 0.
    bool ERRCHECK(SoundLibrary::Result result);

    /// Runs `body`, and then shows everything that ERRCHECK() was to show meanwhile in one message, each
    /// failure once: on a machine without sound each step of a start fails after the first.
    void ShowTogether(const std::function<void()>& body);

    /// Shows a message where the library's version is not the required one, be it older or newer. `word` is
    /// "Version" or "version".
    void RequireVersion(std::uint32_t version, const char* word);

  private:
    void TellTogether();

    MessageBoxes& boxes_;
    DebugLog& log_;
    std::string together_;
    bool isGathering_ = false;
};

}  // namespace quavix
