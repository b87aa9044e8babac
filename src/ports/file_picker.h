// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace quavix {

/// Contents of a file dialog. Filter is a list of "name|pattern" pairs joined by "|".
struct FileDialog {
    std::string Title;
    std::string Filter;
    bool PathMustExist = false;
    bool FileMustExist = false;
    bool HideReadOnly = false;
};

/// Asks the user for a file name.
///
/// Thread: the user-interface thread. Returns when the user has answered, with the full name as the file
/// system spells it, or an empty text if the dialog was cancelled. Other handlers may run meanwhile.
class FilePicker {
  public:
    virtual ~FilePicker() = default;
    virtual std::string AskForSaveName(const FileDialog& dialog) = 0;
    virtual std::string AskForOpenName(const FileDialog& dialog) = 0;
};

}  // namespace quavix
