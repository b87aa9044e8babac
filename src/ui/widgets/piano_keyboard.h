// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>

#include <QMap>
#include <QTouchEvent>
#include <QWidget>

#include "ui/widgets/piano_plan.h"

namespace quavix {

using PianoKeySet = std::bitset<PianoPlan::Keys>;

/// A piano of three octaves in three colours. A key is pressed with the mouse, with one or more fingers, with
/// the space bar (arrow keys move from key to key), or by assistive technology. Which octaves and which tones
/// it shows is told to it.
class PianoKeyboard : public QWidget {
    Q_OBJECT

  public:
    explicit PianoKeyboard(QWidget* parent = nullptr);

    /// Octave of the middle group, for the keys' names.
    void SetOctave(int octave) { octave_ = octave; }
    /// Marks the keys whose notes sound, at once.
    void ShowSounding(const PianoKeySet& keys);

    /// "C sharp 4".
    QString KeyName(int key) const;
    /// The key that the space bar presses.
    int CurrentKey() const { return current_; }
    void SetCurrentKey(int key);
    bool IsPressed(int key) const { return pressed_.test(static_cast<std::size_t>(key)); }
    bool IsSounding(int key) const { return sounding_.test(static_cast<std::size_t>(key)); }
    QRect KeyRect(int key) const;
    /// Presses a key for as long as its click takes.
    void ClickKey(int key);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// A key goes down. Handlers of the program may run inside.
    void KeyClicked(int key);
    /// Ctrl and the up (1) or the down (-1) arrow.
    void OctaveStepped(int key, int direction);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    PianoPlan Plan() const;
    void Press(int key);
    void ShowPressed(int key, bool pressed);
    void ReleaseAll();
    void Touch(const QTouchEvent& event);
    void RepaintKeys(const PianoKeySet& keys);
    void TellFocus();

    int octave_ = 4;
    int current_ = PianoPlan::KeysPerGroup;  // the middle C
    int mouseKey_ = -1;
    QMap<int, int> touchKeys_;  // by touch point
    PianoKeySet pressed_;
    PianoKeySet sounding_;
};

}  // namespace quavix
