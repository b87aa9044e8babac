// SPDX-License-Identifier: MIT
#include "platform/qt/qt_file_picker.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>

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

std::string Ask(QFileDialog::AcceptMode mode, const FileDialog& dialog, QString& folder) {
    QFileDialog window(QApplication::activeWindow(), QString::fromStdString(dialog.Title));
    window.setAcceptMode(mode);
    window.setFileMode(dialog.FileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    window.setOption(QFileDialog::DontConfirmOverwrite);
    window.setNameFilters(NameFilters(dialog.Filter));
    if (!folder.isEmpty())
        window.setDirectory(folder);
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return {};
    QString name = window.selectedFiles().first();
    folder = QFileInfo(name).absolutePath();
    if (mode == QFileDialog::AcceptSave)
        name = WithExtension(name, window.selectedNameFilter());
    return QFile::encodeName(name).toStdString();
}

}  // namespace

QStringList NameFilters(const std::string& filter) {
    QStringList filters;
    const QStringList parts = QString::fromStdString(filter).split('|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString shownPattern = "(" + parts[i + 1] + ")";
        QString name = parts[i];
        if (name.endsWith(shownPattern))
            name.chop(shownPattern.size());
        filters += name.trimmed() + " (" + Patterns(parts[i + 1]) + ")";
    }
    return filters;
}

QString WithExtension(const QString& name, const QString& nameFilter) {
    static const QRegularExpression ownKind(R"(\(\*(\.[^*?\[ )]+))");
    static const QRegularExpression extension(R"(\.[^./ ]+$)");
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
