// SPDX-License-Identifier: MIT
#pragma once

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as Qt dialogs over the active window. A box destroyed with that window is answered as if
/// closed without a choice. Tell() does not repeat a message that is still open.
class QtMessageBoxes : public MessageBoxes {
  public:
    BoxAnswer Show(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;

    /// Answers all later boxes at once as if closed without a choice, for a process that the system ends.
    void AnswerThemselves() { answerThemselves_ = true; }

  private:
    bool answerThemselves_ = false;
};

}  // namespace quavix
