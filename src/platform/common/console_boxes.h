// SPDX-License-Identifier: MIT
#pragma once

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as lines "title: text" on standard error. Questions are answered with Yes or OK if `yes`,
/// otherwise with No or Cancel.
class ConsoleBoxes : public MessageBoxes {
  public:
    explicit ConsoleBoxes(bool yes) : yes_(yes) {}

    BoxAnswer Show(const MessageBox& box) override;

  private:
    bool yes_;
};

}  // namespace quavix
