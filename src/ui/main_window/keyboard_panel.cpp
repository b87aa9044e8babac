// SPDX-License-Identifier: MIT
#include <utility>

#include <QPointer>

#include "music/main_fields.h"
#include "playback/piano_keys.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui/widgets/piano_keyboard.h"
#include "ui/widgets/piano_painter.h"
#include "ui_keyboard_panel.h"

namespace quavix {
namespace {

class KeyboardPanel : public QWidget {
  public:
    KeyboardPanel(EntryOptions& entry, PlaybackView& view, PianoKeys& keys, EventBoundary& handlers,
                  QWidget* parent)
        : QWidget(parent), keys_(keys), handlers_(handlers) {
        ui_.setupUi(this);
        ui_.KeyboardOctaveText->setFixedWidth(
            ui_.KeyboardOctaveText->fontMetrics().horizontalAdvance("00000"));
        ui_.KeyboardOctaveUpDown->SetBuddy(ui_.KeyboardOctaveText, tr("Octave"));
        int group = 0;
        for (QLabel* label : {ui_.OctLabel0, ui_.OctLabel1, ui_.OctLabel2}) {
            PaintLabel(label, GroupColour(group));
            ShowIn(label, entry.KeyboardOctave.State(), [this, label, group](const SettingState&) {
                label->setText(QString::fromStdString(keys_.OctLabel(group)));
                label->setAccessibleName(tr("Octave %1").arg(label->text()));
            });
            ++group;
        }

        BindText(ui_.KeyboardOctaveText, entry.KeyboardOctave, handlers_);
        connect(ui_.KeyboardOctaveUpDown, &UpDown::Stepped, this,
                [this](int direction) { StepOctave(ui_.PianoKey->CurrentKey(), direction); });
        ShowIn(this, entry.KeyboardOctave.State(), [this](const SettingState& octave) {
            ui_.PianoKey->SetOctave(octave.Value);
            ShowSounding();
        });
        ShowIn(this, view.NotesSounding, [this](const SoundingNotes&) { ShowSounding(); });
        ShowIn(this, view.PianoKeysEnabled, [this](bool enabled) { EnableKeys(enabled); });
        connect(ui_.PianoKey, &PianoKeyboard::KeyClicked, this, [this](int key) {
            RunHandler(*ui_.PianoKey, "Click", handlers_, [&] { keys_.PianoKey_Click(key); });
        });
        connect(ui_.PianoKey, &PianoKeyboard::OctaveStepped, this, &KeyboardPanel::StepOctave);
    }

  private:
    void StepOctave(int key, int direction) {
        RunHandler(*ui_.PianoKey, "KeyDown", handlers_, [&] {
            keys_.PianoKey_KeyDown(key, direction > 0 ? PianoKeys::UpArrow : PianoKeys::DownArrow,
                                   PianoKeys::CtrlOnly);
        });
    }

    void ShowSounding() {
        PianoKeySet keys;
        for (int key = 0; key < PianoPlan::Keys; ++key)
            keys.set(static_cast<std::size_t>(key), keys_.IsSounding(key));
        ui_.PianoKey->ShowSounding(keys);
    }

    /// Enabled again, the keys regain the keyboard focus that they had, unless the user has moved it.
    void EnableKeys(bool enabled) {
        if (!enabled)
            hadFocus_ = window()->focusWidget() == ui_.PianoKey;
        ui_.PianoKey->setEnabled(enabled);
        if (!enabled)
            focusMeanwhile_ = window()->focusWidget();
        else if (std::exchange(hadFocus_, false) && window()->focusWidget() == focusMeanwhile_)
            ui_.PianoKey->setFocus();
    }

    PianoKeys& keys_;
    EventBoundary& handlers_;
    Ui::KeyboardPanel ui_;
    bool hadFocus_ = false;
    QPointer<QWidget> focusMeanwhile_;
};

}  // namespace

QWidget* MakeKeyboardPanel(EntryOptions& entry, PlaybackView& view, PianoKeys& keys, EventBoundary& handlers,
                           QWidget* parent) {
    return new KeyboardPanel(entry, view, keys, handlers, parent);
}

}  // namespace quavix
