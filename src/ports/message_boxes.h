// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

enum class BoxIcon { None, Information, Question, Warning, Critical };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// A modal message. Title and Text are UTF-8 plain text, shown without markup; lines end in LF or CR LF.
struct MessageBox {
    std::string Title;
    std::string Text;
    BoxIcon Icon = BoxIcon::None;
    BoxButtons Buttons = BoxButtons::Ok;
};

/// Shows messages and asks questions.
///
/// Thread: the user-interface thread. Show() returns when the user has answered; other handlers may run
/// meanwhile. Closing the box without a choice answers Cancel (OkCancel, YesNoCancel), No (YesNo) or Ok (Ok).
/// Tell() shows a message with only an Ok button and returns at once, so that the music goes on; if the
/// system has no such messages, it is the same as Show().
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer Show(const MessageBox& box) = 0;
    virtual void Tell(const MessageBox& box) { Show(box); }
};

}  // namespace quavix
