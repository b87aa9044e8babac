// SPDX-License-Identifier: MIT
#pragma once

#include "ports/clipboard.h"

namespace quavix {

/// The desktop's clipboard.
class QtClipboard : public Clipboard {
  public:
    void SetText(const std::string& text) override;
    std::string Text() override;
};

}  // namespace quavix
