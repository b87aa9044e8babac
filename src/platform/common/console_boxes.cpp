// SPDX-License-Identifier: MIT
#include "platform/common/console_boxes.h"

#include <cstdio>
#include <string>

namespace quavix {

BoxAnswer ConsoleBoxes::Show(const MessageBox& box) {
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

}  // namespace quavix
