// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include <QColor>

class QLabel;
class QLineEdit;

namespace quavix {

/// Converts a colour value (red + green × 256 + blue × 65536).
QColor ToColor(std::int32_t colour);

/// Returns black or white, whichever is easier to read on a background.
QColor ReadableOn(const QColor& background);

/// Sets a text field's background, and a text colour readable on it in every palette. The value of the window
/// background restores the system's colours.
void PaintField(QLineEdit* field, std::int32_t colour);

/// Same for a label, which then fills its whole area.
void PaintLabel(QLabel* label, std::int32_t colour);

}  // namespace quavix
