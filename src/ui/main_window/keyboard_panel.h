// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QPointer>
#include <QWidget>

#include "music/main_fields.h"
#include "playback/piano_keys.h"
#include "shell/event_boundary.h"

namespace quavix {

namespace Ui {
class KeyboardPanel;
}

/// The piano, the octaves above its coloured groups, and the field that changes them.
class KeyboardPanel : public QWidget {
    Q_OBJECT

  public:
    explicit KeyboardPanel(EntryOptions& entry, const PlaybackView& view, PianoKeys& keys,
                           EventBoundary& handlers, QWidget* parent = nullptr);
    ~KeyboardPanel() override;

  private:
    void ShowSounding();
    void EnableKeys(bool enabled);
    void StepOctave(int key, int direction);

    EntryOptions& entry_;
    const PlaybackView& view_;
    PianoKeys& keys_;
    EventBoundary& handlers_;
    std::unique_ptr<Ui::KeyboardPanel> ui_;
    bool hadFocus_ = false;
    QPointer<QWidget> focusMeanwhile_;
};

}  // namespace quavix
