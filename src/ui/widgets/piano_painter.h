// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainter>

#include "ui/widgets/piano_plan.h"

namespace quavix {

class PianoKeyboard;

/// Returns the colour of an octave group: orange, blue, green from the left.
QColor GroupColour(int group);

/// Draws the keys of the on-screen keyboard. Their ivory is the same in every palette.
class PianoPainter {
  public:
    PianoPainter(QPainter& painter, const PianoKeyboard& piano, const PianoPlan& plan)
        : painter_(painter), piano_(piano), plan_(plan) {}

    void Draw(int key) const;
    /// Draws the ring around the key that the space bar presses.
    void DrawFocus(int key) const;

  private:
    void DrawWhite(int key) const;
    void DrawBlack(int key) const;

    QPainter& painter_;
    const PianoKeyboard& piano_;
    PianoPlan plan_;
};

}  // namespace quavix
