// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include "ports/file_picker.h"

namespace quavix {

/// Converts "name|pattern|name|pattern" into Qt's filters. Patterns match in either letter case, and "*.*"
/// means every file. A name without a pattern at the end is dropped.
QStringList NameFilters(const std::string& filter);

/// Adds the extension of the chosen filter to a typed file name, if the name has none and the filter is for
/// one kind of file: "song" becomes "song.QVX" with "Songs (*.QVX *.qvx)".
QString WithExtension(const QString& name, const QString& nameFilter);

/// Asks for file names with the desktop's own dialog. An existing file may be chosen for saving: the caller
/// has to ask about replacing it. If the window below is destroyed, no file is chosen.
class QtFilePicker : public FilePicker {
  public:
    std::string AskForSaveName(const FileDialog& dialog) override;
    std::string AskForOpenName(const FileDialog& dialog) override;

  private:
    QString folder_;
};

}  // namespace quavix
