// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

enum class BoxIcon { None, Information, Question, Warning, Critical };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// A modal message. Title and Text are UTF-8 plain text, shown as they are (no markup); lines end in LF or CR
/// LF.
struct MessageBox {
    std::string Title;
    std::string Text;
    BoxIcon Icon = BoxIcon::None;
    BoxButtons Buttons = BoxButtons::Ok;
};

/// Shows messages and asks questions.
///
/// Thread: the user-interface thread. Show() returns when the user has answered; other handlers of the
/// program may run meanwhile. Closing the box without a choice answers Cancel (OkCancel, YesNoCancel), No
/// (YesNo) or Ok (Ok). Tell() shows a message with nothing but an Ok button and does not wait for it, for
/// what must not hold up the music; where there is no such message, it is Show().
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer Show(const MessageBox& box) = 0;
    virtual void Tell(const MessageBox& box) { Show(box); }
};

}  // namespace quavix
