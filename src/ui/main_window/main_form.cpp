// SPDX-License-Identifier: MIT
#include "ui/main_window/main_form.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

#include "midi/midi_file_opening.h"
#include "shell/program_info.h"
#include "ui/dialogs/save_load_form.h"
#include "ui/main_window/editing_panel.h"
#include "ui/main_window/keyboard_panel.h"
#include "ui/main_window/list_panel.h"
#include "ui/main_window/main_menu.h"
#include "ui/main_window/mods_panel.h"
#include "ui/main_window/note_entry_panel.h"
#include "ui/main_window/notes_to_play_panel.h"
#include "ui/main_window/playback_panel.h"
#include "ui/main_window/position_panel.h"
#include "ui/main_window/speaker_panel.h"
#include "ui/main_window/timing_panel.h"
#include "ui/mods/beat_form.h"
#include "ui/mods/fmod_options_form.h"
#include "ui/mods/midi_file_form.h"
#include "ui/mods/midi_in_form.h"
#include "ui/mods/midi_out_form.h"
#include "ui/mods/mod_window.h"
#include "ui/mods/portamento_form.h"
#include "ui/mods/synchro_form.h"
#include "ui/mods/voice_internal_form.h"
#include "ui/widgets/binding.h"
#include "ui_main_form.h"

/// The icon comes out of a static library, which the linker would leave behind. The macro wants no namespace.
static void LoadResources() {
    Q_INIT_RESOURCE(resources);
}

namespace quavix {
namespace {

/// On a screen too low for all of a column it scrolls, and makes room for the scroll bar beside the controls.
void KeepColumnWide(QScrollArea* area, const QWidget* column) {
    const QScrollBar* bar = area->verticalScrollBar();
    const auto keep = [area, column, bar](int, int highest) {
        area->setFixedWidth(column->minimumSizeHint().width() + (highest > 0 ? bar->sizeHint().width() : 0));
    };
    keep(0, bar->maximum());
    QObject::connect(bar, &QScrollBar::rangeChanged, area, keep);
}

/// What the keyboard goes to is scrolled to where it can be seen. A mouse points at what it sees already, and
/// must find it there when its button is let go.
void ScrollTo(QWidget* control) {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    for (QWidget* around = control->parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around))
            area->ensureWidgetVisible(control);
    }
}

/// Above the list, each a step further from the check boxes, which must stay free.
void PlaceModWindow(ModWindow& form, QWidget& owner) {
    constexpr int Step = 24;
    const auto steps = static_cast<int>(owner.findChildren<ModWindow*>().size());
    const auto* list = owner.findChild<QWidget*>("MainList");
    const QPoint corner = list->mapToGlobal(QPoint(list->width() - form.sizeHint().width(), -Step));
    form.move(corner + QPoint(-Step, Step) * steps);
}

/// The window of a mod is made when it is first wanted.
template <typename Form>
void MakeWhenTicked(const Watched<bool>& check, const WindowParts& parts, QWidget* owner) {
    check.Watch([&parts, guard = QPointer<QWidget>(owner), isMade = false](bool) mutable {
        if (!guard || isMade)
            return;
        isMade = true;
        PlaceModWindow(*new Form(parts, guard), *guard);
    });
}

/// The file that is being dragged, as the file system takes its name; empty where it is no single file.
std::string DraggedFile(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    if (urls.size() != 1 || !urls.first().isLocalFile())
        return {};
    return QFile::encodeName(urls.first().toLocalFile()).toStdString();
}

}  // namespace

MainForm::MainForm(const WindowParts& parts, QWidget* parent)
    : QMainWindow(parent),
      parts_(parts),
      ui_(std::make_unique<Ui::MainForm>()),
      saveLoad_(*this, parts_.Document) {
    ui_->setupUi(this);
    LoadResources();
    setWindowIcon(QIcon(":/quavix.png"));
    title_ = QString("%1 (v%2.%3.%4 BETA)")
                 .arg(windowTitle())
                 .arg(program::MajorVersion)
                 .arg(program::MinorVersion)
                 .arg(program::Revision);
    auto* menu = new MainMenu(parts_, *this);
    AddPanels();
    menu->ServeList(*findChild<QTableView*>("MainList"));
    ConnectSaveLoadForm();
    MakeWhenTicked<FMODOptionsForm>(parts_.Fmod.Generator.FMODOptionsFormVisible, parts_, this);
    MakeWhenTicked<VoiceInternalForm>(parts_.Fmod.Controls.VoiceInternalFormVisible, parts_, this);
    MakeWhenTicked<MIDIOutForm>(parts_.MidiOut.Fields.MIDIOutFormVisible, parts_, this);
    MakeWhenTicked<MIDIInForm>(parts_.MidiIn.MIDIInFormVisible, parts_, this);
    MakeWhenTicked<BeatForm>(parts_.Fields.UseBeatCheck, parts_, this);
    MakeWhenTicked<PortamentoForm>(parts_.Fields.UsePortaCheck, parts_, this);
    MakeWhenTicked<MIDIFileForm>(parts_.MidiFile.MIDIFileFormVisible, parts_, this);
    MakeWhenTicked<SynchroForm>(parts_.Fields.UseSynchroCheck, parts_, this);
    ShowIn(this, parts_.Document.FileName(), [this](const std::string&) { ShowTitle(); });
    ShowIn(this, parts_.Document.Modified(), [this](bool) { ShowTitle(); });
    KeepColumnWide(ui_->settingsScroll, ui_->settings);
    KeepColumnWide(ui_->modsScroll, ui_->mods);
    FitScreen();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* control) {
        if (control != nullptr && control->window() == this)
            ScrollTo(control);
    });
}

MainForm::~MainForm() = default;

/// As large as it likes to be, where the screen has room for that beside what others put around the window;
/// on a small one what stands above the piano scrolls.
void MainForm::FitScreen() {
    const QMargins margins = ui_->mainLayout->contentsMargins();
    const int bars = 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent);  // of the two columns
    const QSize wanted(ui_->upper->minimumSizeHint().width() + margins.left() + margins.right() + bars,
                       height());
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const int frame = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const QSize room = screen()->availableSize() - QSize(2 * frame, title + frame);
    resize(size().expandedTo(wanted).boundedTo(room));
}

/// In the order in which the Tab key goes through them.
void MainForm::AddPanels() {
    ui_->settingsColumn->addWidget(new NoteEntryPanel(parts_, this));
    ui_->settingsColumn->addWidget(new TimingPanel(parts_, this));
    ui_->settingsColumn->addStretch(1);
    AddDebugLogNotice();
    ui_->listColumn->addWidget(new PlaybackPanel(parts_, this));
    ui_->listColumn->addWidget(new ListPanel(parts_, this), 1);
    ui_->listColumn->addWidget(new EditingPanel(parts_, this));
    AddSaveLoadButton();
    ui_->modsColumn->addWidget(new NotesToPlayPanel(parts_, this));
    ui_->modsColumn->addWidget(new ModsPanel(parts_, this));
    ui_->modsColumn->addStretch(1);
    ui_->keyboardRow->addWidget(new KeyboardPanel(parts_, this));
    ui_->bottomRow->addWidget(new SpeakerPanel(parts_, this), 1);
    ui_->bottomRow->addWidget(new PositionPanel(parts_, this));
}

void MainForm::AddSaveLoadButton() {
    auto* button = new QPushButton(tr("&SAVE / LOAD"), this);
    button->setObjectName("SaveLoadButton");
    button->setAccessibleName(tr("Save / Load"));
    button->setToolTip(tr("Save the song in a file, or load one"));
    BindButton(button, parts_.Handlers, [this] { saveLoad_.SaveLoadButton_Click(); });
    ui_->modsColumn->addWidget(button);
}

void MainForm::AddDebugLogNotice() {
    auto* notice = new QLabel("DEBUG LOGGING ENABLED", this);
    notice->setObjectName("lblDebugLogging");
    notice->setAccessibleName(notice->text());
    notice->setToolTip(tr("The program writes what it does into debuglog.txt in its folder"));
    QFont font = notice->font();
    font.setBold(true);
    notice->setFont(font);
    notice->setVisible(parts_.Log.Enabled());
    ui_->settingsColumn->addWidget(notice);
}

void MainForm::ConnectSaveLoadForm() {
    SaveLoadForm* form = &parts_.SaveLoadWindow;
    const auto run = [this, form](const char* handler, void (SaveLoad::*click)()) {
        parts_.Handlers.Run(handler, [&] { (saveLoad_.*click)(); });
    };
    connect(form, &SaveLoadForm::SaveClicked, this,
            [run] { run("SaveButton_Click", &SaveLoad::SaveButton_Click); });
    connect(form, &SaveLoadForm::LoadClicked, this,
            [run] { run("LoadButton_Click", &SaveLoad::LoadButton_Click); });
    connect(form, &SaveLoadForm::CancelClicked, this,
            [run] { run("CancelButton_Click", &SaveLoad::CancelButton_Click); });
}

void MainForm::ShowSaveLoadForm(bool show) {
    if (show)
        parts_.SaveLoadWindow.OpenAbove(*this);
    else
        parts_.SaveLoadWindow.hide();
}

void MainForm::BringMainFormToFront() {
    raise();
    activateWindow();
}

void MainForm::ShowTitle() {
    QString title = title_;
    const QString file = QFile::decodeName(parts_.Document.FileName().Get().c_str());
    if (!file.isEmpty())
        title += " - " + QFileInfo(file).fileName().replace("[*]", "[*][*]") +
                 (parts_.Document.Modified() ? " *" : "");
    setWindowTitle(title);
}

void MainForm::closeEvent(QCloseEvent* event) {
    parts_.CloseProgram();
    // The user may have wanted to keep the song after all.
    event->setAccepted(parts_.Fields.ShuttingDown);
    if (!isEnabled() && parts_.SaveLoadWindow.isVisible())
        parts_.SaveLoadWindow.activateWindow();  // this one takes no input
}

void MainForm::keyPressEvent(QKeyEvent* event) {
    const MainFields& fields = parts_.Fields;
    const bool isPlain = event->modifiers() == Qt::NoModifier && !event->isAutoRepeat();
    if (isPlain && event->key() == Qt::Key_Space && fields.PlayAllButtonEnabled)
        RunHandler(*this, "KeyPress", parts_.Handlers, [this] { parts_.Playback.PlayAllButton_Click(); });
    else if (isPlain && (event->key() == Qt::Key_Space || event->key() == Qt::Key_Escape) &&
             fields.StopPlayButtonEnabled)
        RunHandler(*this, "KeyPress", parts_.Handlers, [this] { parts_.Playback.StopPlayButton_Click(); });
    else
        QMainWindow::keyPressEvent(event);
}

void MainForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event).empty())
        event->acceptProposedAction();
}

/// The dragging program waits for the end of the drop, so the load comes afterwards.
void MainForm::dropEvent(QDropEvent* event) {
    const std::string file = DraggedFile(*event);
    if (file.empty())
        return;
    // The file stays where it is, whatever the other program proposes.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    QMetaObject::invokeMethod(
        this, [this, file] { LoadDropped(file); }, Qt::QueuedConnection);
}

void MainForm::LoadDropped(const std::string& fileName) {
    RunHandler(*this, "Drop", parts_.Handlers, [&] {
        if (IsMidiFileName(fileName))
            parts_.MidiFile.UseFile(fileName);
        else if (parts_.Document.MayClose())
            parts_.Document.LoadFile(fileName);
    });
}

}  // namespace quavix
