// SPDX-License-Identifier: MIT
#pragma once

#include <source_location>
#include <string>

#include <gtest/gtest.h>

#include "simulation/simulated_dialogs.h"

namespace quavix::test {

/// Expects that this message box was shown, and no other one.
inline void ExpectOnlyBox(const SimulatedMessageBoxes& boxes, const MessageBox& expected,
                          const std::source_location& place = std::source_location::current()) {
    const testing::ScopedTrace trace(place.file_name(), static_cast<int>(place.line()), "message box");
    ASSERT_EQ(boxes.Shown().size(), 1U);
    const MessageBox& box = boxes.Shown()[0];
    EXPECT_EQ(box.Title, expected.Title);
    EXPECT_EQ(box.Text, expected.Text);
    EXPECT_EQ(box.Icon, expected.Icon);
    EXPECT_EQ(box.Buttons, expected.Buttons);
}

/// Returns the content of a file dialog for comparisons.
inline std::string TextOf(const FileDialog& dialog) {
    return dialog.Title + ", " + dialog.Filter + (dialog.PathMustExist ? ", path must exist" : "") +
           (dialog.FileMustExist ? ", file must exist" : "") +
           (dialog.HideReadOnly ? ", read-only hidden" : "");
}

/// Expects that this file dialog was shown, and no other one.
inline void ExpectOnlyDialog(const SimulatedFilePicker& picker, const FileDialog& expected,
                             const std::source_location& place = std::source_location::current()) {
    const testing::ScopedTrace trace(place.file_name(), static_cast<int>(place.line()), "file dialog");
    ASSERT_EQ(picker.Shown().size(), 1U);
    EXPECT_EQ(TextOf(picker.Shown()[0]), TextOf(expected));
}

}  // namespace quavix::test
