// SPDX-License-Identifier: MIT
#include "ui/widgets/up_down.h"

#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace quavix {

UpDown::UpDown(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    up_ = AddButton(Qt::UpArrow, 1);
    down_ = AddButton(Qt::DownArrow, -1);
}

QToolButton* UpDown::AddButton(Qt::ArrowType arrow, int direction) {
    auto* button = new QToolButton(this);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);  // the keyboard uses the field's arrow keys
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    layout()->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, direction] { Q_EMIT Stepped(direction); });
    return button;
}

void UpDown::SetBuddy(QLineEdit* field, const QString& what) {
    up_->setObjectName(objectName() + "Up");
    down_->setObjectName(objectName() + "Down");
    up_->setAccessibleName(tr("%1 up").arg(what));
    down_->setAccessibleName(tr("%1 down").arg(what));
    up_->setToolTip(field->toolTip());
    down_->setToolTip(field->toolTip());
    setMaximumHeight(field->sizeHint().height());
    for (const auto& [key, direction] : {std::pair{Qt::Key_Up, 1}, std::pair{Qt::Key_Down, -1}}) {
        auto* shortcut = new QShortcut(key, field);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, step = direction] { Q_EMIT Stepped(step); });
    }
}

}  // namespace quavix
