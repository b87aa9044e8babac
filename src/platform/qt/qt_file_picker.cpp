// SPDX-License-Identifier: MIT
#include "platform/qt/qt_file_picker.h"

#include <algorithm>

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QRegularExpression>

#include "platform/qt/dialog_owner.h"

namespace quavix {
namespace {

QString Patterns(const QString& patterns) {
    QStringList all;
    for (const QString& pattern : patterns.split(';', Qt::SkipEmptyParts)) {
        const QString trimmed = pattern.trimmed();
        if (trimmed == "*.*") {
            all += "*";
            continue;
        }
        all += trimmed;
        if (const QString lower = trimmed.toLower(); lower != trimmed)
            all += lower;
    }
    return all.join(' ');
}

/// Returns true if the folder exists, otherwise tells the user; the window may be destroyed meanwhile.
bool PathExists(const QString& name, QFileDialog& window) {
    const QString folder = QFileInfo(name).absolutePath();
    if (QFileInfo(folder).isDir())
        return true;
    OwnedDialog<QMessageBox> box(&window);
    box->setIcon(QMessageBox::Warning);
    box->setWindowTitle(window.windowTitle());
    box->setText(QString("%1\nThis folder doesn't exist. Please choose another one.").arg(folder));
    box->exec();
    return false;
}

/// Returns the chosen filter with its patterns, which the dialog omits if it hides them.
QString WholeFilter(const QFileDialog& window) {
    const QStringList filters = window.nameFilters();
    const auto chosen = std::find_if(filters.begin(), filters.end(), [&](const QString& filter) {
        return filter.startsWith(window.selectedNameFilter());
    });
    return chosen == filters.end() ? QString() : *chosen;
}

std::string Ask(QFileDialog::AcceptMode mode, const FileDialog& dialog, QString& folder) {
    OwnedDialog<QFileDialog> window(DialogOwner());
    window->setWindowTitle(QString::fromStdString(dialog.Title));
    window->setAcceptMode(mode);
    window->setFileMode(dialog.FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    window->setOption(QFileDialog::DontConfirmOverwrite);
    // The filter's name is enough; the user need not see that lower-case patterns match too.
    window->setOption(QFileDialog::HideNameFilterDetails);
    window->setNameFilters(NameFilters(dialog.Filter));
    if (!folder.isEmpty())
        window->setDirectory(folder);
    QString name;
    do {
        if (!window || window->exec() != QDialog::Accepted || window->selectedFiles().isEmpty())
            return {};
        name = window->selectedFiles().first();
    } while (dialog.PathMustExist && !PathExists(name, *window));
    folder = QFileInfo(name).absolutePath();
    if (mode == QFileDialog::AcceptSave)
        name = WithExtension(name, WholeFilter(*window));
    return QFile::encodeName(name).toStdString();
}

}  // namespace

QStringList NameFilters(const std::string& filter) {
    QStringList filters;
    const QStringList parts = QString::fromStdString(filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        filters += parts[i] + " (" + Patterns(parts[i + 1]) + ")";
    }
    return filters;
}

QString WithExtension(const QString& name, const QString& nameFilter) {
    static const QRegularExpression ownKind(R"(\(\*(\.[^*?\[ )]+))");
    static const QRegularExpression extension(R"(\.[^./ ]*[A-Za-z][^./ ]*$)");
    const QRegularExpressionMatch kind = ownKind.match(nameFilter);
    if (!kind.hasMatch() || extension.match(name).hasMatch())
        return name;
    return (name.endsWith('.') ? name.chopped(1) : name) + kind.captured(1);
}

std::string QtFilePicker::AskForSaveName(const FileDialog& dialog) {
    return Ask(QFileDialog::AcceptSave, dialog, folder_);
}

std::string QtFilePicker::AskForOpenName(const FileDialog& dialog) {
    return Ask(QFileDialog::AcceptOpen, dialog, folder_);
}

}  // namespace quavix
