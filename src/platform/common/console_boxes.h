// SPDX-License-Identifier: MIT
#pragma once

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as lines "title: text" on standard error. Questions are answered No or Cancel, or Yes and OK
/// where `yes` says so.
class ConsoleBoxes : public MessageBoxes {
  public:
    explicit ConsoleBoxes(bool yes) : yes_(yes) {}

    BoxAnswer Show(const MessageBox& box) override;

  private:
    bool yes_;
};

}  // namespace quavix
