// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <QPainter>

namespace quavix {

class PianoKeyboard;

/// Returns the colour value of an octave group: orange, blue, green from the left.
std::int32_t GroupColour(int group);

/// Draws a key of the on-screen keyboard in its place. The ivory is the same in every palette.
void DrawKey(QPainter& painter, const PianoKeyboard& piano, int key, const QRectF& place);

/// Draws the ring around the key that the space bar presses.
void DrawFocus(QPainter& painter, const QRectF& key);

}  // namespace quavix
