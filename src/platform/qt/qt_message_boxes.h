// SPDX-License-Identifier: MIT
#pragma once

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as Qt dialogs over the active window. A box that is destroyed with that window is answered
/// as if it were closed without a choice. What is told is not told again while it still stands there.
class QtMessageBoxes : public MessageBoxes {
  public:
    BoxAnswer Show(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;

    /// For a process that the system ends: from now on nobody is there to answer, and what is to be shown is
    /// answered at once as if it were closed without a choice.
    void AnswerThemselves() { answerThemselves_ = true; }

  private:
    bool answerThemselves_ = false;
};

}  // namespace quavix
