// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace quavix {

/// A pair of small arrow buttons beside a text field. They repeat while they are held, and the up and down
/// keys in the field do the same.
class UpDown : public QWidget {
    Q_OBJECT

  public:
    explicit UpDown(QWidget* parent = nullptr);

    /// Takes over the field's arrow keys, and the field's tooltip for the buttons. `what` is what goes up and
    /// down, for those who can't see the arrows ("Tempo").
    void SetBuddy(QLineEdit* field, const QString& what);

  Q_SIGNALS:
    /// 1 up, -1 down.
    void Stepped(int direction);

  private:
    QToolButton* AddButton(Qt::ArrowType arrow, int direction);

    QToolButton* up_;
    QToolButton* down_;
};

}  // namespace quavix
