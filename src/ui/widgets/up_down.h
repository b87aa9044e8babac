// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace quavix {

/// A pair of small arrow buttons beside a text field. They repeat while held, and the up and down keys in the
/// field do the same.
class UpDown : public QWidget {
    Q_OBJECT

  public:
    explicit UpDown(QWidget* parent = nullptr);

    /// Takes over the field's arrow keys, and uses its tooltip for the buttons. `what` names the value for
    /// screen readers ("Tempo").
    void SetBuddy(QLineEdit* field, const QString& what);

  Q_SIGNALS:
    /// Emitted for a step: 1 up, -1 down.
    void Stepped(int direction);

  private:
    QToolButton* AddButton(Qt::ArrowType arrow, int direction);

    QToolButton* up_;
    QToolButton* down_;
};

}  // namespace quavix
