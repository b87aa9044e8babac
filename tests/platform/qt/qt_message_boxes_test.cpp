// SPDX-License-Identifier: MIT
#include "platform/qt/qt_message_boxes.h"

#include <string>
#include <utility>

#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <QtTest>
#include <gtest/gtest.h>

namespace quavix {
namespace {

/// Shows a box and works it with `act` once it stands open.
template <typename Act>
BoxAnswer ShowAnd(const MessageBox& box, Act act) {
    QTimer::singleShot(0, [act] { act(*qobject_cast<QMessageBox*>(QApplication::activeModalWidget())); });
    QtMessageBoxes boxes;
    return boxes.Show(box);
}

void PressEscape(QMessageBox& box) {
    QTest::keyClick(&box, Qt::Key_Escape);
}
void PressEnter(QMessageBox& box) {
    QTest::keyClick(&box, Qt::Key_Return);
}

TEST(QtMessageBoxes, ShowsPlainTextWithItsTitleAndIcon) {
    QString title, text;
    QMessageBox::Icon icon{};
    ShowAnd({.Title = "Title", .Text = "<b>1</b>\r\n2\n3", .Icon = BoxIcon::Warning}, [&](QMessageBox& box) {
        title = box.windowTitle();
        text = box.text();
        icon = box.icon();
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        PressEnter(box);
    });
    EXPECT_EQ(title, "Title");
    EXPECT_EQ(text, "<b>1</b>\n2\n3");
    EXPECT_EQ(icon, QMessageBox::Warning);
}

/// The message of this title; null where there is none.
QPointer<QMessageBox> Told(const QString& title) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowTitle() == title)
            return qobject_cast<QMessageBox*>(widget);
    }
    return nullptr;
}

TEST(QtMessageBoxes, AMessageBeforeTheFirstWindowWaitsForIt) {
    QtMessageBoxes boxes;
    boxes.Tell({.Title = "Early", .Text = "1"});
    EXPECT_FALSE(Told("Early")) << "the window would cover it";
    QWidget window;
    window.show();
    QCoreApplication::processEvents();
    const QPointer<QMessageBox> told = Told("Early");
    ASSERT_TRUE(told);
    EXPECT_TRUE(told->isVisible());
    PressEnter(*told);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(QtMessageBoxes, AMessageWithoutAQuestionDoesNotBlock) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QtMessageBoxes boxes;
    boxes.Tell({.Title = "Told", .Text = "1\r\n2", .Icon = BoxIcon::Warning});
    const QPointer<QMessageBox> told = Told("Told");
    ASSERT_TRUE(told);
    EXPECT_TRUE(told->isVisible());
    EXPECT_FALSE(told->isModal());
    EXPECT_EQ(told->text(), "1\n2");
    PressEnter(*told);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(told);
}

TEST(QtMessageBoxes, ARepeatedMessageIsShownOnceUntilItIsClosed) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QtMessageBoxes boxes;
    const auto shown = [] {
        const QWidgetList all = QApplication::topLevelWidgets();
        return std::count_if(all.begin(), all.end(),
                             [](const QWidget* widget) { return widget->windowTitle() == "Again"; });
    };
    boxes.Tell({.Title = "Again", .Text = "1"});
    boxes.Tell({.Title = "Again", .Text = "1"});
    EXPECT_EQ(shown(), 1);
    boxes.Tell({.Title = "Again", .Text = "2"});
    EXPECT_EQ(shown(), 2);
    while (const QPointer<QMessageBox> told = Told("Again")) {
        PressEnter(*told);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    boxes.Tell({.Title = "Again", .Text = "1"});
    EXPECT_EQ(shown(), 1);
    PressEnter(*Told("Again"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Activate(QWidget& window) {
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

/// A window of which another one is the child, is active and deletes itself when it closes.
struct WindowWithPassingOne {
    WindowWithPassingOne() {
        Activate(Window);
        Passing->setAttribute(Qt::WA_DeleteOnClose);
        Activate(*Passing);
    }

    QWidget Window;
    QPointer<QWidget> Passing = new QDialog(&Window);
};

void CloseAndDelete(QWidget& window) {
    window.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(QtMessageBoxes, ABoxBelongsToAWindowThatStays) {
    WindowWithPassingOne front;
    ShowAnd({.Title = "", .Text = "?"}, [&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &front.Window);
        PressEnter(box);
    });
}

TEST(QtMessageBoxes, AMessageOutlivesAWindowThatCloses) {
    WindowWithPassingOne front;
    QtMessageBoxes boxes;
    boxes.Tell({.Title = "Over another", .Text = "1"});
    CloseAndDelete(*front.Passing);
    EXPECT_FALSE(front.Passing);
    const QPointer<QMessageBox> told = Told("Over another");
    ASSERT_TRUE(told);
    EXPECT_EQ(told->parentWidget(), &front.Window);
    CloseAndDelete(*told);
}

TEST(QtMessageBoxes, ABoxOutlivesAMenuThatDeletesItself) {
    QWidget window;
    Activate(window);
    const QPointer<QMenu> menu = new QMenu(&window);
    menu->popup(window.mapToGlobal(QPoint()));
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QApplication::setActiveWindow(menu);
    QT_WARNING_POP
    ASSERT_EQ(QApplication::activeWindow(), menu);
    menu->deleteLater();
    const BoxAnswer answer =
        ShowAnd({.Title = "", .Text = "?", .Buttons = BoxButtons::YesNo}, [&](QMessageBox& box) {
            EXPECT_FALSE(menu);
            EXPECT_EQ(box.parentWidget(), &window);
            PressEnter(box);
        });
    EXPECT_EQ(answer, BoxAnswer::Yes);
}

TEST(QtMessageBoxes, AMessageOverADialogOutlivesTheDialog) {
    QWidget window;
    window.show();
    QtMessageBoxes boxes;
    {
        QFileDialog dialog(&window);
        dialog.setModal(true);
        Activate(dialog);
        boxes.Tell({.Title = "Over a dialog", .Text = "1"});
    }
    const QPointer<QMessageBox> told = Told("Over a dialog");
    ASSERT_TRUE(told);
    EXPECT_EQ(told->parentWidget(), &window);
    CloseAndDelete(*told);
}

TEST(QtMessageBoxes, ABoxWhoseWindowIsDestroyedAnswersTheCautiousChoice) {
    for (const auto& [buttons, answer] : {std::pair{BoxButtons::YesNo, BoxAnswer::No},
                                          {BoxButtons::YesNoCancel, BoxAnswer::Cancel},
                                          {BoxButtons::Ok, BoxAnswer::Ok}}) {
        auto* window = new QWidget;
        Activate(*window);
        EXPECT_EQ(ShowAnd({.Title = "", .Text = "?", .Buttons = buttons},
                          [window](QMessageBox& box) {
                              EXPECT_EQ(box.parentWidget(), window);
                              delete window;
                          }),
                  answer);
    }
}

TEST(QtMessageBoxes, TextOfAnyLengthFitsOnTheScreen) {
    const std::string endless(1'000'000, 'x');
    std::string manyLines;
    for (int i = 0; i < 10'000; ++i)
        manyLines += "line\n";
    for (const std::string& text : {endless, manyLines, endless + "\n" + manyLines}) {
        ShowAnd({.Title = endless, .Text = "The line is: \n" + text + "\r\nCarry on?"}, [](QMessageBox& box) {
            EXPECT_TRUE(box.text().startsWith("The line is: \n"));
            EXPECT_TRUE(box.text().endsWith("\nCarry on?"));
            EXPECT_TRUE(box.text().contains(QString::fromUtf8("…")));
            EXPECT_LT(box.text().size(), 25'000);
            EXPECT_LT(box.height(), 2000);
            EXPECT_LT(box.width(), 2000);
            PressEnter(box);
        });
    }
}

TEST(QtMessageBoxes, ClosingABoxAnswersTheCautiousChoice) {
    for (const auto& [buttons, answer] : {std::pair{BoxButtons::YesNo, BoxAnswer::No},
                                          {BoxButtons::OkCancel, BoxAnswer::Cancel},
                                          {BoxButtons::YesNoCancel, BoxAnswer::Cancel},
                                          {BoxButtons::Ok, BoxAnswer::Ok}})
        EXPECT_EQ(ShowAnd({.Title = "", .Text = "?", .Buttons = buttons}, PressEscape), answer);
}

TEST(QtMessageBoxes, EnterAnswersTheFirstChoice) {
    for (const auto& [buttons, answer] : {std::pair{BoxButtons::YesNo, BoxAnswer::Yes},
                                          {BoxButtons::YesNoCancel, BoxAnswer::Yes},
                                          {BoxButtons::OkCancel, BoxAnswer::Ok}})
        EXPECT_EQ(ShowAnd({.Title = "", .Text = "?", .Buttons = buttons}, PressEnter), answer);
}

TEST(QtMessageBoxes, AfterTheProgramsEndBeginsBoxesAnswerThemselves) {
    QtMessageBoxes boxes;
    boxes.AnswerThemselves();
    EXPECT_EQ(boxes.Show({.Title = "Title", .Text = "Text"}), BoxAnswer::Ok);
    EXPECT_EQ(boxes.Show({.Title = "Title", .Text = "Text", .Buttons = BoxButtons::YesNo}), BoxAnswer::No);
    EXPECT_EQ(boxes.Show({.Title = "Title", .Text = "Text", .Buttons = BoxButtons::YesNoCancel}),
              BoxAnswer::Cancel);
}

}  // namespace
}  // namespace quavix
