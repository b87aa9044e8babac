// SPDX-License-Identifier: MIT
#include "ui/widgets/up_down.h"

#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

namespace quavix {

void UpDown::SetBuddy(QLineEdit* field, const QString& what) {
    struct Step {
        int Direction;
        Qt::ArrowType Arrow;
        Qt::Key Key;
        const char* Name;
        QString Caption;
    };
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    setMaximumHeight(field->sizeHint().height());
    for (const Step& step : {Step{1, Qt::UpArrow, Qt::Key_Up, "Up", tr("%1 up")},
                             Step{-1, Qt::DownArrow, Qt::Key_Down, "Down", tr("%1 down")}}) {
        const auto emitStep = [this, direction = step.Direction] { Q_EMIT Stepped(direction); };
        auto* button = new QToolButton(this);
        button->setObjectName(objectName() + step.Name);
        button->setAccessibleName(step.Caption.arg(what));
        button->setToolTip(field->toolTip());
        button->setArrowType(step.Arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);  // the keyboard uses the field's arrow keys
        button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
        column->addWidget(button);
        connect(button, &QToolButton::clicked, this, emitStep);
        auto* shortcut = new QShortcut(step.Key, field);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, emitStep);
    }
}

}  // namespace quavix
