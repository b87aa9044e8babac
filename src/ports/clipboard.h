// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// The text that users carry from place to place, between programs too.
///
/// Thread: the user-interface thread. Texts are UTF-8, of any length; lines may end in any way. Nothing is
/// raised: where the system has no clipboard, or another program holds it, a text that was set is not found
/// again.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    virtual void SetText(const std::string& text) = 0;
    /// What is there now; empty where it is no text.
    virtual std::string Text() = 0;
};

}  // namespace quavix
