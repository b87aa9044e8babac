// SPDX-License-Identifier: MIT
#include "ui/main_window/main_menu.h"

#include <utility>

#include <QAction>
#include <QDialog>
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
namespace {

class MainMenu : public QObject {
  public:
    MainMenu(Program& program, QMainWindow& window) : QObject(&window), program_(program), window_(window) {}

    void AddFileMenu(std::function<void()> closeProgram) {
        QMenu* menu = AddMenu("FileMenu", tr("&File"));
        SongDocument& document = program_.Storage.SongDocument;
        Add(menu, "NewAction", tr("&New"), QKeySequence::New, tr("Begin a new song"),
            [&document] { document.New(); });
        Add(menu, "OpenAction", tr("&Open..."), QKeySequence::Open, tr("Load a song from a file"),
            [&document] {
                if (document.MayClose())
                    document.Load();
            });
        menu->addSeparator();
        Add(menu, "SaveAction", tr("&Save"), QKeySequence::Save, tr("Save the song in its file"),
            [&document] { document.Save(); });
        Add(menu, "SaveAsAction", tr("Save &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
            tr("Save the song in a file that you choose"), [&document] { document.SaveAs(); });
        menu->addSeparator();
        Add(menu, "QuitAction", tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), tr("End the program"),
            std::move(closeProgram));
    }

    /// Adds the menu also to the list, as its context menu.
    void AddEditMenu(QTableView& list) {
        QMenu* menu = AddMenu("EditMenu", tr("&Edit"));
        EditHistory& history = program_.Editing.EditHistory;
        LineClipboard& lines = program_.Editing.LineClipboard;
        QAction* undo = Add(menu, "UndoAction", tr("Undo"), QKeySequence::Undo,
                            tr("Take the last change back"), [&history] { history.Undo(); });
        QAction* redo =
            Add(menu, "RedoAction", tr("Redo"), {}, tr("Make the change again that was taken back last"),
                [&history] { history.Redo(); });
        redo->setShortcuts(
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});
        BindEnabled(undo, history.CanUndo);
        BindEnabled(redo, history.CanRedo);
        for (const auto& [action, text] : {std::pair{undo, &history.UndoText}, {redo, &history.RedoText}}) {
            ShowIn(action, *text, [shownIn = action](const std::string& caption) {
                shownIn->setText("&" + QString::fromStdString(caption));
            });
        }
        menu->addSeparator();
        QAction* cut = Add(menu, "CutAction", tr("Cu&t"), QKeySequence::Cut,
                           tr("Move the selected lines to the clipboard"), [&lines] { lines.CutLines(); });
        QAction* copy = Add(menu, "CopyAction", tr("&Copy"), QKeySequence::Copy,
                            tr("Copy the selected lines to the clipboard"), [&lines] { lines.CopyLines(); });
        Add(menu, "PasteAction", tr("&Paste"), QKeySequence::Paste,
            tr("Insert the clipboard's lines before the selected line, or at the end"), [this] { Paste(); });
        QAction* duplicate =
            Add(menu, "DuplicateAction", tr("&Duplicate"), QKeySequence(Qt::CTRL | Qt::Key_D),
                tr("Insert copies of the selected lines behind them"), [&lines] { lines.DuplicateLines(); });
        QAction* erase = Add(menu, "EraseAction", tr("&Erase"), QKeySequence(Qt::Key_Delete),
                             tr("Remove the selected lines"), [&lines] { lines.EraseLines(); });
        for (QAction* action : {cut, copy, duplicate, erase})
            BindEnabled(action, lines.LinesSelected);
        for (QAction* action : menu->actions()) {
            if (!action->isSeparator())
                list.addAction(action);
        }
        list.setContextMenuPolicy(Qt::ActionsContextMenu);
    }

    void AddPlayMenu() {
        QMenu* menu = AddMenu("PlayMenu", tr("Pla&y"));
        PlaybackEngine& playback = program_.Playing.PlaybackEngine;
        const PlaybackView& view = program_.Fields.View;
        QAction* all = Add(menu, "PlayAllAction", tr("Play &all"), QKeySequence(Qt::Key_F5),
                           tr("Play the whole list of music again and again, until you stop it"),
                           [&playback] { playback.PlayAllButton_Click(); });
        QAction* from = Add(menu, "PlayFromLineAction", tr("Play &from selected line"),
                            QKeySequence(Qt::SHIFT | Qt::Key_F5),
                            tr("Play from the selected line to the end of the list again and again, until "
                               "you stop it"),
                            [&playback] { playback.PlayFromLineButton_Click(); });
        QAction* stop = Add(menu, "StopAction", tr("&Stop playing"), QKeySequence(Qt::Key_F6),
                            tr("Stop the music (it may take a second or so to stop)"),
                            [&playback] { playback.StopPlayButton_Click(); });
        for (QAction* action : {all, from, stop})
            action->setAutoRepeat(false);
        BindEnabled(all, view.PlayAllButtonEnabled);
        BindEnabled(from, view.PlayFromLineButtonEnabled);
        BindEnabled(stop, view.StopPlayButtonEnabled);
    }

    void AddHelpMenu() {
        QMenu* menu = AddMenu("HelpMenu", tr("&Help"));
        Add(menu, "ManualAction", tr("&Manual"), QKeySequence(Qt::Key_F1), tr("Read how to use the program"),
            [this] { ShowManual(); });
        Add(menu, "AboutAction", tr("&About"), {}, tr("Which version of the program this is"),
            [this] { ShowAbout(); });
    }

  private:
    QMenu* AddMenu(const char* name, const QString& title) {
        QMenu* menu = window_.menuBar()->addMenu(title);
        menu->setObjectName(name);
        menu->setToolTipsVisible(true);
        return menu;
    }

    QAction* Add(QMenu* menu, const char* name, const QString& caption, const QKeySequence& keys,
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

    void ShowBox(const char* title, const std::string& text, BoxIcon icon = BoxIcon::Information) {
        program_.Ports.Boxes.get().Show({.Title = title, .Text = text, .Icon = icon});
    }

    void Paste() {
        const LineClipboard::PasteResult result = program_.Editing.LineClipboard.PasteLines();
        if (result.Rejected == 0)
            return;
        ShowBox("Paste", result.Pasted == 0
                             ? "There are no lines of music in what you want to paste.\n\n"
                               "A line of music is, for example: Quarter C4 E4 Dot"
                             : fmt::format("{} of the lines that you pasted were left out, because they are "
                                           "no lines of music.",
                                           result.Rejected));
    }

    void ShowManual() {
        if (manual_ == nullptr) {
            const ProgramPorts& ports = program_.Ports;
            const std::string manual = WholeText(ports.Disk, FileInFolder(ports.ProgramFolder, "info.txt"));
            if (manual.empty()) {
                ShowBox("Can't open the manual!",
                        "The manual is in a file called 'info.txt' in the same folder as this program, but "
                        "that file can't be read.",
                        BoxIcon::Warning);
                return;
            }
            manual_ = MakeManualForm(QString::fromStdString(manual), &window_);
        }
        manual_->show();
        manual_->raise();
        manual_->activateWindow();
    }

    void ShowAbout() {
        ShowBox("About Quavix",
                fmt::format("{} {}\n\nCompose simple two-voice music and hear it on the PC speaker.\n\n"
                            "Free software under the MIT licence.\n{}",
                            program::Title, program::VersionText, program::ContactAddress));
    }

    Program& program_;
    QMainWindow& window_;
    QDialog* manual_ = nullptr;
};

}  // namespace

void AddMainMenu(Program& program, std::function<void()> closeProgram, QMainWindow& window,
                 QTableView& list) {
    auto* menu = new MainMenu(program, window);
    menu->AddFileMenu(std::move(closeProgram));
    menu->AddEditMenu(list);
    menu->AddPlayMenu();
    menu->AddHelpMenu();
}

}  // namespace quavix
