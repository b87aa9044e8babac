// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ports/message_boxes.h"
#include "ports/sound_library.h"
#include "shell/debug_log.h"

namespace quavix {

/// Returns the text of a result, in the library's own words, including trailing blanks; "Unknown error." for
/// anything but 0 to 81.
const char* FmodErrorText(SoundLibrary::Result result);

/// Reports failures of the sound library; the program carries on.
class FmodErrors {
  public:
    /// The only supported version of the library, 4.06.21.
    static constexpr std::uint32_t RequiredVersion = 0x40621;

    FmodErrors(MessageBoxes& boxes, DebugLog& log) : boxes_(boxes), log_(log) {}

    /// Checks a result of the library: one other than 0 is logged and shown, in a message that does not wait,
    /// because errors may recur with every tone. Returns true for 0. All results pass through here.
    bool ERRCHECK(SoundLibrary::Result result);

    /// Runs `body`, and afterwards shows all its failures in one message, each text once: on a machine
    /// without sound, every step after the first one fails too.
    void ShowTogether(const std::function<void()>& body);

    /// Shows a message if the library's version is not the required one, older or newer. `word` is "Version"
    /// or "version".
    void RequireVersion(std::uint32_t version, const char* word);

  private:
    void TellTogether();

    MessageBoxes& boxes_;
    DebugLog& log_;
    std::string together_;
    bool isGathering_ = false;
};

}  // namespace quavix
