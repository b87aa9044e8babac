// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <string>

#include "ports/message_boxes.h"

namespace quavix {

/// Message boxes as lines "title: text" on standard error. Questions are answered with Yes or OK if `yes`,
/// otherwise with No or Cancel.
class ConsoleBoxes : public MessageBoxes {
  public:
    explicit ConsoleBoxes(bool yes) : yes_(yes) {}

    BoxAnswer Show(const MessageBox& box) override {
        std::string text = box.Title + ": " + box.Text + "\n";
        std::erase(text, '\r');
        std::fwrite(text.data(), 1, text.size(), stderr);
        switch (box.Buttons) {
            case BoxButtons::Ok:
                return BoxAnswer::Ok;
            case BoxButtons::OkCancel:
                return yes_ ? BoxAnswer::Ok : BoxAnswer::Cancel;
            case BoxButtons::YesNo:
                return yes_ ? BoxAnswer::Yes : BoxAnswer::No;
            case BoxButtons::YesNoCancel:
                return yes_ ? BoxAnswer::Yes : BoxAnswer::Cancel;
        }
        return BoxAnswer::Cancel;
    }

  private:
    bool yes_;
};

}  // namespace quavix
