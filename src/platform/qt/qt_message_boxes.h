// SPDX-License-Identifier: MIT
#pragma once

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as Qt dialogs over whatever window is active.
class QtMessageBoxes : public MessageBoxes {
  public:
    BoxAnswer Show(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
};

}  // namespace quavix
