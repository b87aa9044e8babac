// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;

namespace quavix {

/// A pair of small arrow buttons beside a text field. They repeat while held, and the up and down keys in the
/// field do the same.
class UpDown : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

    /// Makes the buttons, with the field's tooltip, and takes over the field's arrow keys. `what` names the
    /// value for screen readers ("Tempo"). Called once.
    void SetBuddy(QLineEdit* field, const QString& what);

  Q_SIGNALS:
    /// Emitted for a step: 1 up, -1 down.
    void Stepped(int direction);
};

}  // namespace quavix
