// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>

#include <QMap>
#include <QTouchEvent>
#include <QWidget>

#include "ui/widgets/piano_plan.h"

class QAccessibleInterface;

namespace quavix {

using PianoKeySet = std::bitset<PianoPlan::Keys>;

/// A piano of three octaves in three colours. Keys are pressed with the mouse, with fingers, with the space
/// bar (arrow keys move from key to key), or by assistive technology. The caller sets the shown octaves and
/// sounding tones.
class PianoKeyboard : public QWidget {
    Q_OBJECT

  public:
    explicit PianoKeyboard(QWidget* parent = nullptr);

    /// Sets the octave of the middle group, for the keys' names.
    void SetOctave(int octave) { octave_ = octave; }
    /// Marks the keys of sounding notes, at once.
    void ShowSounding(const PianoKeySet& keys);

    /// Returns e.g. "C sharp 4".
    QString KeyName(int key) const;
    /// Returns the key that the space bar presses.
    int CurrentKey() const { return current_; }
    void SetCurrentKey(int key);
    bool IsPressed(int key) const { return pressed_.test(static_cast<std::size_t>(key)); }
    bool IsSounding(int key) const { return sounding_.test(static_cast<std::size_t>(key)); }
    QRect KeyRect(int key) const;
    /// Presses a key for the duration of its click.
    void ClickKey(int key);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// Emitted when a key goes down. Handlers of the program may run meanwhile.
    void KeyClicked(int key);
    /// Emitted for Ctrl with the up (1) or down (-1) arrow.
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

/// Returns the accessible interface of a PianoKeyboard: a group of 36 buttons, named by their notes, that can
/// be pressed. Null for any other object.
QAccessibleInterface* PianoAccessible(const QString& className, QObject* object);

}  // namespace quavix
