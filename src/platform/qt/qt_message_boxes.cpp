// SPDX-License-Identifier: MIT
#include "platform/qt/qt_message_boxes.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "platform/qt/dialog_owner.h"

namespace quavix {
namespace {

QMessageBox::Icon Icon(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Warning:
            return QMessageBox::Warning;
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

/// The buttons of a box, its default for Enter, and the result of closing it.
struct Choice {
    QMessageBox::StandardButtons Buttons;
    QMessageBox::StandardButton Default;
    QMessageBox::StandardButton Escape;
};

Choice Choices(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::OkCancel:
            return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Ok, QMessageBox::Cancel};
        case BoxButtons::YesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
        case BoxButtons::YesNoCancel:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                    QMessageBox::Cancel};
        case BoxButtons::Ok:
            break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

BoxAnswer Answer(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return BoxAnswer::Yes;
        case QMessageBox::No:
            return BoxAnswer::No;
        case QMessageBox::Cancel:
            return BoxAnswer::Cancel;
        default:
            return BoxAnswer::Ok;
    }
}

/// Returns as much of a line as fits on a screen.
QString PresentableLine(std::string_view line) {
    constexpr qsizetype LongestLine = 500;
    constexpr qsizetype LongestWord = 100;
    constexpr qsizetype MostBytesPerCharacter = 4;
    const QString ellipsis = QString::fromUtf8("…");
    // Decodes no more than may be shown.
    const auto bytes = line.substr(0, (LongestLine + 1) * MostBytesPerCharacter);
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (text.size() > LongestLine)
        text = text.left(LongestLine) + ellipsis;
    // A word longer than a line would be broken anywhere, and the box would be too low for the rest.
    QStringList words = text.split(' ');
    for (QString& word : words) {
        if (word.size() > LongestWord)
            word = word.left(LongestWord) + ellipsis;
    }
    return words.join(' ');
}

/// Returns as much of a text as fits on a screen: songs may bring lines of any length into messages, and any
/// number of them. The first and the last lines stay, as the question stands at the end.
QString Presentable(const std::string& text) {
    constexpr qsizetype FirstLines = 25;
    constexpr qsizetype LastLines = 10;
    QStringList lines;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = std::string_view(text).substr(start, end - start);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines += PresentableLine(line);
        start = end + 1;
        if (lines.size() <= FirstLines + 1 + LastLines)
            continue;
        lines[FirstLines] = QString::fromUtf8("…");
        lines.removeAt(FirstLines + 1);
    }
    return lines.join('\n');
}

void Fill(QMessageBox& dialog, const MessageBox& box) {
    const Choice choice = Choices(box.Buttons);
    dialog.setWindowTitle(Presentable(box.Title));
    dialog.setTextFormat(Qt::PlainText);
    dialog.setText(Presentable(box.Text));
    dialog.setIcon(Icon(box.Icon));
    dialog.setStandardButtons(choice.Buttons);
    dialog.setDefaultButton(choice.Default);
    dialog.setEscapeButton(choice.Escape);
}

/// Returns true while such a message is there that waits for nobody.
bool StandsOpen(const QMessageBox& like) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&](const QWidget* window) {
        const auto* box = qobject_cast<const QMessageBox*>(window);
        return box != nullptr && box->isVisible() && !box->isModal() &&
               box->windowTitle() == like.windowTitle() && box->text() == like.text();
    });
}

}  // namespace

BoxAnswer QtMessageBoxes::Show(const MessageBox& box) {
    if (answerThemselves_)
        return Answer(Choices(box.Buttons).Escape);
    OwnedDialog<QMessageBox> dialog(DialogOwner());
    Fill(*dialog, box);
    const int button = dialog->exec();
    return Answer(dialog ? button : Choices(box.Buttons).Escape);
}

void QtMessageBoxes::Tell(const MessageBox& box) {
    if (answerThemselves_)
        return;
    const auto show = [box] {
        auto dialog = std::make_unique<QMessageBox>(LastingDialogOwner());
        Fill(*dialog, box);
        if (StandsOpen(*dialog))
            return;
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setModal(false);
        dialog.release()->show();
    };
    if (QApplication::activeWindow() != nullptr)
        show();
    else  // A window that is just opening would cover it.
        QTimer::singleShot(0, qApp, show);
}

}  // namespace quavix
