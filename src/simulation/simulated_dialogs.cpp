// SPDX-License-Identifier: MIT
#include "simulation/simulated_dialogs.h"

#include <utility>

#include <fmt/format.h>

namespace quavix {

BoxAnswer SimulatedMessageBoxes::Show(const MessageBox& box) {
    Record(fmt::format("box \"{}\" {}", box.Title, box.Text));
    shown_.push_back(box);
    if (const auto action = std::exchange(whileOpen_, nullptr))
        action();
    if (box.Buttons == BoxButtons::Ok)
        return BoxAnswer::Ok;
    if (answers_.empty())
        throw UnexpectedCall{"nobody expected the question: " + box.Title};
    const BoxAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

std::string SimulatedFilePicker::Ask(const char* kind, const FileDialog& dialog) {
    Record(fmt::format("file dialog {} \"{}\"", kind, dialog.Title));
    shown_.push_back(dialog);
    if (answers_.empty())
        throw UnexpectedCall{"nobody expected the file dialog: " + dialog.Title};
    std::string answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

}  // namespace quavix
