// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include "ports/file_picker.h"

namespace quavix {

/// The filters of a file dialog as Qt writes them, from "name|pattern|name|pattern". A pattern is found in
/// either letter case, and "*.*" stands for every file. An odd name at the end is left out.
QStringList NameFilters(const std::string& filter);

/// A file name that a user has typed, with the extension of the chosen filter where the name has none and the
/// filter stands for one kind of file: "song" becomes "song.QVX" with "Songs (*.QVX *.qvx)".
QString WithExtension(const QString& name, const QString& nameFilter);

/// Asks for file names with the desktop's own dialog. A file that exists already may be chosen for saving:
/// whether to replace it is asked by whoever saves. No file is chosen when the window below is destroyed.
class QtFilePicker : public FilePicker {
  public:
    std::string AskForSaveName(const FileDialog& dialog) override;
    std::string AskForOpenName(const FileDialog& dialog) override;

  private:
    QString folder_;
};

}  // namespace quavix
