// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <QColor>

class QLabel;
class QLineEdit;

namespace quavix {

/// A colour value (red + green × 256 + blue × 65536).
QColor ToColor(std::int32_t colour);

/// Black or white, whichever is easier to read on that background.
QColor ReadableOn(const QColor& background);

/// Gives a text field a background, and text that can be read on it in every palette. The window background's
/// value gives back the system's own colours.
void PaintField(QLineEdit* field, std::int32_t colour);

/// The same for a label, which then fills its whole place.
void PaintLabel(QLabel* label, std::int32_t colour);

}  // namespace quavix
