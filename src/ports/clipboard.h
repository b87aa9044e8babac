// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// The system's text clipboard.
///
/// Thread: the user-interface thread. Texts are UTF-8, of any length, with any line ends. No call raises an
/// error: if the system has no clipboard, or another program holds it, a text that was set is lost.
class Clipboard {
  public:
    virtual ~Clipboard() = default;
    virtual void SetText(const std::string& text) = 0;
    /// Returns the current text; empty if the clipboard holds no text.
    virtual std::string Text() = 0;
};

}  // namespace quavix
