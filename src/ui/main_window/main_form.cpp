// SPDX-License-Identifier: MIT
#include "ui/main_window/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>

#include "midi/midi_file_opening.h"
#include "program/program_parts.h"
#include "program/program_ports.h"
#include "shell/program_info.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/main_window/main_menu.h"
#include "ui/main_window/panels.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui_main_form.h"

/// Loads the icon from a static library, which the linker would drop otherwise. The macro must be outside of
/// namespaces.
static void LoadResources() {
    Q_INIT_RESOURCE(resources);
}

namespace quavix {
namespace {

/// If the screen is too low for a column, it scrolls, with room for the scroll bar beside the controls.
void KeepColumnWide(QScrollArea* area, const QWidget* column) {
    const QScrollBar* bar = area->verticalScrollBar();
    const auto keep = [area, column, bar](int, int highest) {
        area->setFixedWidth(column->minimumSizeHint().width() + (highest > 0 ? bar->sizeHint().width() : 0));
    };
    keep(0, bar->maximum());
    QObject::connect(bar, &QScrollBar::rangeChanged, area, keep);
}

/// Scrolls a control with the keyboard focus into view. Does nothing during a mouse click, because the
/// control must not move before the button is released.
void ScrollTo(QWidget* control) {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    for (QWidget* around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around))
            area->ensureWidgetVisible(control);
    }
}

/// Places a mod's window above the list, each further from the check boxes, which must stay visible.
void PlaceModWindow(ModWindow& form, QWidget& owner) {
    constexpr int Step = 24;
    const auto steps = static_cast<int>(owner.findChildren<ModWindow*>().size());
    const auto* list = owner.findChild<QWidget*>("MainList");
    const QPoint corner = list->mapToGlobal(QPoint(list->width() - form.sizeHint().width(), -Step));
    form.move(corner + QPoint(-Step, Step) * steps);
}

/// Shows the window of a mod in front while `visible` is true. When it is first needed, it is made and filled
/// by `setUp`, with `parts` as its dependencies.
template <typename SetUp, typename... Parts>
void AddModWindow(QWidget* owner, Mod& mod, const Watched<bool>& visible, EventBoundary& handlers,
                  SetUp setUp, Parts&... parts) {
    visible.Watch([&mod, &handlers, setUp, &parts..., guard = QPointer<QWidget>(owner),
                   form = static_cast<ModWindow*>(nullptr)](bool show) mutable {
        if (!guard)
            return;
        if (form == nullptr) {
            form = new ModWindow(mod.Ticked, handlers, guard);
            setUp(*form, parts..., handlers);
            PlaceModWindow(*form, *guard);
        }
        form->setVisible(show);
        if (show) {
            form->raise();
            form->activateWindow();
        }
    });
}

/// Returns the dragged file's name, as the file system spells it; empty if it is not a single local file.
std::string DraggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    return QFile::encodeName(urls.first().toLocalFile()).toStdString();
}

}  // namespace

MainForm::MainForm(Program& program, SaveLoadForm& saveLoadForm, std::function<void()> closeProgram,
                   QWidget* parent)
    : QMainWindow(parent),
      program_(program),
      saveLoadForm_(saveLoadForm),
      closeProgram_(std::move(closeProgram)),
      ui_(std::make_unique<Ui::MainForm>()),
      saveLoad_(*this, program_.Storage.SongDocument) {
    ui_->setupUi(this);
    LoadResources();
    setWindowIcon(QIcon(":/quavix.png"));
    title_ = QString("%1 (v%2.%3.%4 BETA)")
                 .arg(windowTitle())
                 .arg(program::MajorVersion)
                 .arg(program::MinorVersion)
                 .arg(program::Revision);
    AddPanels();
    AddMainMenu(program_, closeProgram_, *this, *findChild<QTableView*>("MainList"));
    saveLoadForm_.Serve(saveLoad_, program_.Handlers);
    AddModWindows();
    ShowIn(this, program_.Storage.SongDocument.FileName(), [this](const std::string&) { ShowTitle(); });
    ShowIn(this, program_.Storage.SongDocument.Modified(), [this](bool) { ShowTitle(); });
    KeepColumnWide(ui_->settingsScroll, ui_->settings);
    KeepColumnWide(ui_->modsScroll, ui_->mods);
    FitScreen();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* control) {
        if (control != nullptr && control->window() == this)
            ScrollTo(control);
    });
}

MainForm::~MainForm() = default;

/// Sets the preferred size, limited to the screen without the window's frame; on a small screen, the part
/// above the piano scrolls.
void MainForm::FitScreen() {
    const QMargins margins = ui_->mainLayout->contentsMargins();
    const int bars = 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);  // scroll bars of the two columns
    const QSize wanted(ui_->upper->minimumSizeHint().width() + margins.left() + margins.right() + bars,
                       height());
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const QSize room = screen()->availableSize() - QSize(2 * frame, title + frame);
    resize(size().expandedTo(wanted).boundedTo(room));
}

void MainForm::AddModWindows() {
    ModFields& mods = program_.Fields.Mods;
    EventBoundary& handlers = program_.Handlers;
    SoundMods& sound = program_.Outputs.SoundMods;
    MidiOutput& midiOut = program_.Outputs.MidiOutput;
    Playing& playing = program_.Playing;
    AddModWindow(this, mods.UseFMOD, sound.UseFmod.FMODOptionsFormVisible, handlers, &SetUpFMODOptionsForm,
                 sound);
    AddModWindow(this, mods.UseVoice, sound.UseVoice.VoiceInternalFormVisible, handlers,
                 &SetUpVoiceInternalForm, program_.Fields.Output, sound);
    AddModWindow(this, mods.UseMIDIOut, midiOut.Fields.MIDIOutFormVisible, handlers, &SetUpMIDIOutForm,
                 midiOut);
    AddModWindow(this, mods.UseMIDIIn, playing.MidiInput.MIDIInFormVisible, handlers, &SetUpMIDIInForm,
                 playing.MidiInput);
    AddModWindow(this, mods.UseBeat, mods.UseBeat.Ticked, handlers, &SetUpBeatForm, playing.Beat);
    AddModWindow(this, mods.UsePorta, mods.UsePorta.Ticked, handlers, &SetUpPortamentoForm,
                 program_.Outputs.PitchGlide);
    AddModWindow(this, mods.UseMIDIFile, playing.MidiFilePlayback.MIDIFileFormVisible, handlers,
                 &SetUpMIDIFileForm, playing.MidiFilePlayback);
    AddModWindow(this, mods.UseSynchro, mods.UseSynchro.Ticked, handlers, &SetUpSynchroForm,
                 playing.SynchroPlay);
}

/// Adds the panels in the order of the Tab key.
void MainForm::AddPanels() {
    MainFields& fields = program_.Fields;
    EventBoundary& handlers = program_.Handlers;
    SongEditing& editing = program_.Editing;
    Playing& playing = program_.Playing;
    Speaker& speaker = program_.Ports.PcSpeaker;
    ui_->settingsColumn->insertWidget(0, MakeNoteEntryPanel(fields.Entry, handlers, this));
    ui_->settingsColumn->insertWidget(1, MakeTimingPanel(fields.Song, playing.Metronome, handlers, this));
    ui_->lblDebugLogging->setVisible(program_.Log.Enabled());
    ui_->listColumn->addWidget(MakePlaybackPanel(fields.View, playing.PlaybackEngine, handlers, this));
    ui_->listColumn->addWidget(
        MakeListPanel(program_.List, editing.ListEditing, playing.PlaybackEngine, handlers, this), 1);
    ui_->listColumn->addWidget(MakeEditingPanel(editing.ListEditing, handlers, this));
    AddSaveLoadButton();
    ui_->modsColumn->addWidget(MakeNotesToPlayPanel(fields.Song, handlers, this));
    ui_->modsColumn->addWidget(MakeModsPanel(fields.Mods, fields.Output, program_.Outputs.MotorModModule,
                                             program_.Ports.Boxes, handlers, this));
    ui_->modsColumn->addStretch(1);
    ui_->keyboardRow->addWidget(
        MakeKeyboardPanel(fields.Entry, fields.View, playing.PianoKeys, handlers, this));
    ui_->bottomRow->addWidget(MakeSpeakerPanel(fields.Output, fields.State, fields.View,
                                               program_.Outputs.ToneDispatcher, speaker, handlers, this),
                              1);
    ui_->bottomRow->addWidget(MakePositionPanel(editing.PositionDisplay, handlers, this));
}

void MainForm::AddSaveLoadButton() {
    auto* button = new QPushButton(tr("&SAVE / LOAD"), this);
    button->setObjectName("SaveLoadButton");
    button->setAccessibleName(tr("Save / Load"));
    button->setToolTip(tr("Save the song in a file, or load one"));
    BindButton(button, program_.Handlers, [this] { saveLoad_.SaveLoadButton_Click(); });
    ui_->modsColumn->addWidget(button);
}

void MainForm::ShowSaveLoadForm(bool show) {
    if (show)
        saveLoadForm_.OpenAbove(*this);
    else
        saveLoadForm_.hide();
}

void MainForm::BringMainFormToFront() {
    raise();
    activateWindow();
}

void MainForm::ShowTitle() {
    QString title = title_;
    const QString file = QFile::decodeName(program_.Storage.SongDocument.FileName().Get().c_str());
    if (!file.isEmpty())
        title += " - " + QFileInfo(file).fileName().replace("[*]", "[*][*]") +
                 (program_.Storage.SongDocument.Modified() ? " *" : "");
    setWindowTitle(title);
}

void MainForm::closeEvent(QCloseEvent* event) {
    closeProgram_();
    // The user may have cancelled to keep the song.
    event->setAccepted(program_.Fields.State.ShuttingDown);
    if (!isEnabled() && saveLoadForm_.isVisible())
        saveLoadForm_.activateWindow();  // the main window is disabled
}

void MainForm::keyPressEvent(QKeyEvent* event) {
    const PlaybackView& view = program_.Fields.View;
    const bool isPlain = event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
    if (isPlain && event->key() == Qt::Key_Space && view.PlayAllButtonEnabled)
        RunHandler(*this, "KeyPress", program_.Handlers,
                   [this] { program_.Playing.PlaybackEngine.PlayAllButton_Click(); });
    else if (isPlain && (event->key() == Qt::Key_Space || event->key() == Qt::Key_Escape) &&
             view.StopPlayButtonEnabled)
        RunHandler(*this, "KeyPress", program_.Handlers,
                   [this] { program_.Playing.PlaybackEngine.StopPlayButton_Click(); });
    else
        QMainWindow::keyPressEvent(event);
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event).empty())
        event->acceptProposedAction();
}

/// Loads a dropped file after the event, because the dragging program waits for the end of the drop.
void MainForm::dropEvent(QDropEvent* event) {
    const std::string file = DraggedFile(*event);
    if (file.empty())
        return;
    // Copies, whatever the other program proposes, so that the file stays in place.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, file] { LoadDropped(file); }, Qt::QueuedConnection);
}

void MainForm::LoadDropped(const std::string& fileName) {
    RunHandler(*this, "Drop", program_.Handlers, [&] {
        if (IsMidiFileName(fileName))
            program_.Playing.MidiFilePlayback.UseFile(fileName);
        else if (program_.Storage.SongDocument.MayClose())
            program_.Storage.SongDocument.LoadFile(fileName);
    });
}

}  // namespace quavix
