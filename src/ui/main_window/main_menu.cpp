// SPDX-License-Identifier: MIT
#include "ui/main_window/main_menu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <fmt/format.h>

#include "ports/message_boxes.h"
#include "program/program_parts.h"
#include "program/program_ports.h"
#include "shell/file_access.h"
#include "shell/program_info.h"
#include "ui/dialogs/manual_form.h"
#include "ui/widgets/binding.h"

namespace quavix {

MainMenu::MainMenu(Program& program, std::function<void()> closeProgram, QMainWindow& window)
    : QObject(&window), program_(program), closeProgram_(std::move(closeProgram)), window_(window) {
    AddFileMenu();
    AddEditMenu();
    AddPlayMenu();
    AddHelpMenu();
}

QMenu* MainMenu::AddMenu(const char* name, const QString& title) {
    QMenu* menu = window_.menuBar()->addMenu(title);
    menu->setObjectName(name);
    menu->setToolTipsVisible(true);
    return menu;
}

QAction* MainMenu::Add(QMenu* menu, const char* name, const QString& caption, const QKeySequence& keys,
                       const QString& tip, std::function<void()> triggered) {
    auto* action = menu->addAction(caption);
    action->setObjectName(name);
    action->setShortcut(keys);
    action->setToolTip(tip);
    connect(action, &QAction::triggered, this, [this, action, handler = std::move(triggered)] {
        RunHandler(*action, "Click", program_.Handlers, handler);
    });
    return action;
}

void MainMenu::AddFileMenu() {
    QMenu* menu = AddMenu("FileMenu", tr("&File"));
    Add(menu, "NewAction", tr("&New"), QKeySequence::New, tr("Begin a new song"),
        [this] { program_.Storage.SongDocument.New(); });
    Add(menu, "OpenAction", tr("&Open..."), QKeySequence::Open, tr("Load a song from a file"), [this] {
        if (program_.Storage.SongDocument.MayClose())
            program_.Storage.SongDocument.Load();
    });
    menu->addSeparator();
    Add(menu, "SaveAction", tr("&Save"), QKeySequence::Save, tr("Save the song in its file"),
        [this] { program_.Storage.SongDocument.Save(); });
    Add(menu, "SaveAsAction", tr("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        tr("Save the song in a file that you choose"), [this] { program_.Storage.SongDocument.SaveAs(); });
    menu->addSeparator();
    Add(menu, "QuitAction", tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), tr("End the program"),
        [this] { closeProgram_(); });
}

void MainMenu::AddEditMenu() {
    QMenu* menu = AddMenu("EditMenu", tr("&Edit"));
    QAction* undo = Add(menu, "UndoAction", tr("Undo"), QKeySequence::Undo, tr("Take the last change back"),
                        [this] { program_.Editing.EditHistory.Undo(); });
    QAction* redo = Add(menu, "RedoAction", tr("Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
                        tr("Make the change again that was taken back last"),
                        [this] { program_.Editing.EditHistory.Redo(); });
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
    BindEnabled(undo, program_.Editing.EditHistory.CanUndo);
    BindEnabled(redo, program_.Editing.EditHistory.CanRedo);
    ShowIn(undo, program_.Editing.EditHistory.UndoText,
           [undo](const std::string& caption) { undo->setText("&" + QString::fromStdString(caption)); });
    ShowIn(redo, program_.Editing.EditHistory.RedoText,
           [redo](const std::string& caption) { redo->setText("&" + QString::fromStdString(caption)); });
    menu->addSeparator();
    QAction* cut =
        Add(menu, "CutAction", tr("Cu&t"), QKeySequence::Cut, tr("Move the selected lines to the clipboard"),
            [this] { program_.Editing.LineClipboard.CutLines(); });
    QAction* copy = Add(menu, "CopyAction", tr("&Copy"), QKeySequence::Copy,
                        tr("Copy the selected lines to the clipboard"),
                        [this] { program_.Editing.LineClipboard.CopyLines(); });
    Add(menu, "PasteAction", tr("&Paste"), QKeySequence::Paste,
        tr("Insert the clipboard's lines before the selected line, or at the end"), [this] { Paste(); });
    QAction* duplicate = Add(menu, "DuplicateAction", tr("&Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
                             tr("Insert copies of the selected lines behind them"),
                             [this] { program_.Editing.LineClipboard.DuplicateLines(); });
    QAction* erase =
        Add(menu, "EraseAction", tr("&Erase"), QKeySequence(Qt::Key_Delete), tr("Remove the selected lines"),
            [this] { program_.Editing.LineClipboard.EraseLines(); });
    for (QAction* action : {cut, copy, duplicate, erase})
        BindEnabled(action, program_.Editing.LineClipboard.LinesSelected);
}

void MainMenu::AddPlayMenu() {
    QMenu* menu = AddMenu("PlayMenu", tr("Pla&y"));
    QAction* all = Add(menu, "PlayAllAction", tr("Play &all"), QKeySequence(Qt::Key_F5),
                       tr("Play the whole list of music again and again, until you stop it"),
                       [this] { program_.Playing.PlaybackEngine.PlayAllButton_Click(); });
    QAction* from =
        Add(menu, "PlayFromLineAction", tr("Play &from selected line"), QKeySequence(Qt::SHIFT | Qt::Key_F5),
            tr("Play from the selected line to the end of the list again and again, until you "
               "stop it"),
            [this] { program_.Playing.PlaybackEngine.PlayFromLineButton_Click(); });
    QAction* stop = Add(menu, "StopAction", tr("&Stop playing"), QKeySequence(Qt::Key_F6),
                        tr("Stop the music (it may take a second or so to stop)"),
                        [this] { program_.Playing.PlaybackEngine.StopPlayButton_Click(); });
    for (QAction* action : {all, from, stop})
        action->setAutoRepeat(false);
    BindEnabled(all, program_.Fields.View.PlayAllButtonEnabled);
    BindEnabled(from, program_.Fields.View.PlayFromLineButtonEnabled);
    BindEnabled(stop, program_.Fields.View.StopPlayButtonEnabled);
}

void MainMenu::AddHelpMenu() {
    QMenu* menu = AddMenu("HelpMenu", tr("&Help"));
    Add(menu, "ManualAction", tr("&Manual"), QKeySequence(Qt::Key_F1), tr("Read how to use the program"),
        [this] { ShowManual(); });
    Add(menu, "AboutAction", tr("&About"), {}, tr("Which version of the program this is"),
        [this] { ShowAbout(); });
}

void MainMenu::ServeList(QTableView& list) {
    for (const char* name : {"UndoAction", "RedoAction", "CutAction", "CopyAction", "PasteAction",
                             "DuplicateAction", "EraseAction"})
        list.addAction(window_.findChild<QAction*>(name));
    list.setContextMenuPolicy(Qt::ActionsContextMenu);
}

void MainMenu::Paste() {
    const LineClipboard::PasteResult result = program_.Editing.LineClipboard.PasteLines();
    if (result.Rejected == 0)
        return;
    program_.Ports.Boxes.get().Show(
        {.Title = "Paste",
         .Text = result.Pasted == 0 ? "There are no lines of music in what you want to paste.\n\n"
                                      "A line of music is, for example: Quarter C4 E4 Dot"
                                    : fmt::format("{} of the lines that you pasted were left out, because "
                                                  "they are no lines of music.",
                                                  result.Rejected),
         .Icon = BoxIcon::Information});
}

void MainMenu::ShowManual() {
    if (manual_ == nullptr) {
        const ProgramPorts& ports = program_.Ports;
        const std::string manual = WholeText(ports.Disk, FileInFolder(ports.ProgramFolder, "info.txt"));
        if (manual.empty()) {
            program_.Ports.Boxes.get().Show(
                {.Title = "Can't open the manual!",
                 .Text = "The manual is in a file called 'info.txt' in the same folder as this "
                         "program, but that file can't be read.",
                 .Icon = BoxIcon::Warning});
            return;
        }
        manual_ = MakeManualForm(QString::fromStdString(manual), &window_);
    }
    manual_->show();
    manual_->raise();
    manual_->activateWindow();
}

void MainMenu::ShowAbout() {
    program_.Ports.Boxes.get().Show(
        {.Title = "About Quavix",
         .Text = fmt::format("{} {}\n\nCompose simple two-voice music and hear it on the PC "
                             "speaker.\n\nFree software under the MIT licence.\n{}",
                             program::Title, program::VersionText, program::ContactAddress),
         .Icon = BoxIcon::Information});
}

}  // namespace quavix
