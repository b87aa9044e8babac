// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace quavix {

/// Makes the window of the manual, a plain text.
QDialog* MakeManualForm(const QString& text, QWidget* parent);

}  // namespace quavix
