// SPDX-License-Identifier: MIT
#include "platform/qt/qt_file_picker.h"

#include <QtTest>
#include <QtWidgets>
#include <gtest/gtest.h>

namespace quavix {
namespace {

TEST(NameFilters, TakePairsOfNamesAndPatterns) {
    EXPECT_EQ(NameFilters("This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*"),
              (QStringList{"This program's file type (*.QVX) (*.QVX *.qvx)", "All files (*.*) (*)"}));
    EXPECT_EQ(NameFilters("MIDI|*.mid;*.midi"), (QStringList{"MIDI (*.mid *.midi)"}));
}

TEST(NameFilters, LeaveAnOddNameOut) {
    EXPECT_EQ(NameFilters("Songs|*.qvx|odd"), (QStringList{"Songs (*.qvx)"}));
    EXPECT_EQ(NameFilters(""), QStringList{});
}

TEST(WithExtension, IsAddedToANameWithoutOneWhereTheFilterStandsForOneKind) {
    const QString own = NameFilters("Songs (*.QVX)|*.QVX").first();
    EXPECT_EQ(WithExtension("/home/me/song", own), "/home/me/song.QVX");
    EXPECT_EQ(WithExtension("/home/me.d/song", own), "/home/me.d/song.QVX");
    EXPECT_EQ(WithExtension("/home/me/No. 5", own), "/home/me/No. 5.QVX");
    EXPECT_EQ(WithExtension("song.", own), "song.QVX");
    EXPECT_EQ(WithExtension("two words v1.2", own), "two words v1.2.QVX");
}

TEST(WithExtension, LeavesAnExtensionThatTheUserTypedAlone) {
    const QString own = NameFilters("Songs (*.QVX)|*.QVX").first();
    EXPECT_EQ(WithExtension("song.qvx", own), "song.qvx");
    EXPECT_EQ(WithExtension("song.txt", own), "song.txt");
    EXPECT_EQ(WithExtension("song", NameFilters("All files (*.*)|*.*").first()), "song");
    EXPECT_EQ(WithExtension("song", ""), "song");
}

/// Answers the file dialog that is about to open.
void AnswerDialog(const QString& name, QString* folderShown) {
    QTimer::singleShot(0, [name, folderShown] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        *folderShown = dialog->directory().absolutePath();
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        static_cast<QDialog*>(dialog)->accept();
        if (dialog->isVisible())
            dialog->reject();
    });
}

TEST(QtFilePicker, RemembersTheFolder) {
    const QTemporaryDir folder;
    QtFilePicker picker;
    QString shown;
    AnswerDialog(folder.filePath("song"), &shown);
    EXPECT_EQ(picker.AskForSaveName({.Title = "Save", .Filter = "Songs|*.QVX|All files|*.*"}),
              folder.filePath("song.QVX").toStdString());
    AnswerDialog("other", &shown);
    EXPECT_EQ(picker.AskForSaveName({.Title = "Save", .Filter = "All files|*.*"}),
              folder.filePath("other").toStdString());
    EXPECT_EQ(shown, folder.path());
}

TEST(QtFilePicker, ShowsTheFiltersNamesAsTheyAre) {
    QtFilePicker picker;
    QStringList shown;
    QTimer::singleShot(0, [&shown] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        const auto* types = dialog->findChild<QComboBox*>("fileTypeCombo");
        for (int i = 0; i < types->count(); ++i)
            shown += types->itemText(i).trimmed();
        dialog->reject();
    });
    picker.AskForOpenName(
        {.Title = "Open", .Filter = "This program's file type (*.QVX)|*.QVX|All files (*.*)|*.*"});
    EXPECT_EQ(shown, (QStringList{"This program's file type (*.QVX)", "All files (*.*)"}));
}

TEST(QtFilePicker, AsksAgainWhereTheFolderDoesNotExist) {
    const QTemporaryDir folder;
    QtFilePicker picker;
    QString said;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("none/song"));
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            said = box->text();
            QTimer::singleShot(
                0, [] { qobject_cast<QFileDialog*>(QApplication::activeModalWidget())->reject(); });
            box->accept();
        });
        static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(picker.AskForSaveName({.Title = "Save", .Filter = "Songs|*.QVX", .PathMustExist = true}), "");
    EXPECT_TRUE(said.startsWith(folder.filePath("none"))) << qPrintable(said);
}

/// An active window, which the caller deletes.
QWidget* ActiveWindow() {
    auto* window = new QWidget;
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    return window;
}

TEST(QtFilePicker, ADialogWhoseWindowIsDestroyedChoosesNoFile) {
    QWidget* const window = ActiveWindow();
    QTimer::singleShot(0, [window] {
        EXPECT_EQ(QApplication::activeModalWidget()->parentWidget(), window);
        delete window;
    });
    QtFilePicker picker;
    EXPECT_EQ(picker.AskForSaveName({.Title = "Save", .Filter = "Songs|*.QVX"}), "");
}

TEST(QtFilePicker, AMessageWhoseDialogIsDestroyedEndsTheQuestion) {
    const QTemporaryDir folder;
    QWidget* const window = ActiveWindow();
    bool wasTold = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(folder.filePath("none/song"));
        QTimer::singleShot(0, [&] {
            wasTold = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
            delete window;
        });
        static_cast<QDialog*>(dialog)->accept();
    });
    QtFilePicker picker;
    EXPECT_EQ(picker.AskForSaveName({.Title = "Save", .Filter = "Songs|*.QVX", .PathMustExist = true}), "");
    EXPECT_TRUE(wasTold);
}

}  // namespace
}  // namespace quavix
