// SPDX-License-Identifier: MIT
#include "ui/widgets/binding.h"

#include <memory>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSlider>

#include "ui/widgets/colours.h"

namespace quavix {

void RunHandler(const QObject& control, std::string_view event, EventBoundary& handlers,
                const std::function<void()>& handler) {
    std::string name = control.objectName().toStdString();
    name += '_';
    name += event;
    handlers.Run(name, handler);
}

bool IsRepeatedEnter(const QKeyEvent& event) {
    return event.isAutoRepeat() && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

void BindButton(QAbstractButton* button, EventBoundary& handlers, std::function<void()> clicked) {
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [button, &handlers, clicked = std::move(clicked)] {
                         RunHandler(*button, "Click", handlers, clicked);
                     });
}

void BindCheck(QCheckBox* box, Watched<bool>& value, EventBoundary& handlers, std::function<void()> clicked) {
    ShowIn(box, value, [box](bool ticked) { box->setChecked(ticked); });
    // Assistive technology toggles without a click.
    QObject::connect(box, &QCheckBox::toggled, box,
                     [box, &value, &handlers, clicked = std::move(clicked)](bool ticked) {
                         if (ticked == value)
                             return;
                         RunHandler(*box, "Click", handlers, [&] {
                             value = ticked;
                             if (clicked)
                                 clicked();
                         });
                     });
}

void BindText(QLineEdit* edit, Setting& setting, EventBoundary& handlers) {
    const auto showing = std::make_shared<bool>(false);
    const auto show = [edit, showing](const SettingState& state) {
        PaintField(edit, state.BackColor);
        const QString shown = QString::fromStdString(state.Text);
        if (edit->text() == shown)  // keeps the cursor in place while the user types
            return;
        const QScopedValueRollback now(*showing, true);
        edit->setText(shown);
    };
    ShowIn(edit, setting.State(), show);
    // Not textEdited, which ignores text written by a screen reader or a voice control.
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [edit, showing, show, &setting, &handlers](const QString& text) {
                         if (*showing)
                             return;
                         const QPointer<QWidget> guard(edit);
                         RunHandler(*edit, "Change", handlers, [&] { setting.Type(text.toStdString()); });
                         // If the setting keeps its text, no change is reported, so show it again here.
                         if (guard)
                             show(setting.State());
                     });
}

void BindSlider(QSlider* slider, Setting& setting, std::string_view event, EventBoundary& handlers) {
    slider->setRange(setting.Range().Lowest, setting.Range().Highest);
    ShowIn(slider, setting.State(), [slider](const SettingState& state) { slider->setValue(state.Value); });
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [slider, &setting, event, &handlers](int position) {
                         RunHandler(*slider, event, handlers, [&] { setting.Set(position); });
                     });
}

void BindSlider(QSlider* slider, Watched<std::int32_t>& value, const Parameter& range, std::string_view event,
                EventBoundary& handlers) {
    slider->setRange(range.Lowest, range.Highest);
    ShowIn(slider, value, [slider](std::int32_t position) { slider->setValue(position); });
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [slider, &value, event, &handlers](int position) {
                         RunHandler(*slider, event, handlers, [&] { value = position; });
                     });
}

void BindChoice(QComboBox* combo, EventBoundary& handlers, std::function<void(std::int32_t)> clicked) {
    // The opened list takes the keyboard focus, but lacks the combo box's name.
    combo->view()->setAccessibleName(combo->accessibleName());
    QObject::connect(combo, &QComboBox::activated, combo,
                     [combo, &handlers, clicked = std::move(clicked)](int entry) {
                         RunHandler(*combo, "Click", handlers, [&] { clicked(entry); });
                     });
}

void BindCombo(QComboBox* combo, const Watched<std::int32_t>& chosen, EventBoundary& handlers,
               std::function<void(std::int32_t)> clicked) {
    ShowIn(combo, chosen, [combo](std::int32_t entry) { combo->setCurrentIndex(entry); });
    BindChoice(combo, handlers, std::move(clicked));
}

void BindCombo(QComboBox* combo, Watched<std::int32_t>& value, EventBoundary& handlers) {
    BindCombo(combo, value, handlers, [&value](std::int32_t entry) { value = entry; });
}

void BindOptions(QRadioButton* first, Watched<bool>& firstValue, QRadioButton* second,
                 Watched<bool>& secondValue, EventBoundary& handlers) {
    const auto showing = std::make_shared<bool>(false);
    for (const auto& [button, own, other] :
         {std::tuple{first, &firstValue, &secondValue}, std::tuple{second, &secondValue, &firstValue}}) {
        ShowIn(button, *own, [option = button, showing](bool chosen) {
            if (option->isChecked() == chosen)
                return;
            const QScopedValueRollback now(*showing, true);
            option->setAutoExclusive(chosen);  // otherwise the chosen option of a group can't be cleared
            option->setChecked(chosen);
            option->setAutoExclusive(true);
        });
        const auto choose = [option = button, ownValue = own, otherValue = other, showing, &handlers] {
            if (*showing || !option->isChecked() || (*ownValue && !*otherValue))
                return;
            RunHandler(*option, "Click", handlers, [&] {
                *otherValue = false;
                *ownValue = true;
            });
        };
        // Assistive technology toggles without a click; a click on a chosen option toggles nothing.
        QObject::connect(button, &QRadioButton::toggled, button, choose);
        QObject::connect(button, &QRadioButton::clicked, button, choose);
    }
}

void ShowReading(QLabel* label, const QString& what, const QString& text) {
    label->setText(text);
    label->setAccessibleName(what + ": " + text);
}

void BindLabel(QLabel* label, const Watched<std::string>& caption) {
    ShowIn(label, caption, [label, what = label->accessibleName()](const std::string& text) {
        ShowReading(label, what, QString::fromStdString(text));
    });
}

void BindLabel(QLabel* label, const Setting& setting) {
    ShowIn(label, setting.State(), [label, what = label->accessibleName()](const SettingState& state) {
        ShowReading(label, what, QString::fromStdString(state.Text));
    });
}

void BindVisible(QWidget* widget, const Watched<bool>& visible) {
    ShowIn(widget, visible, [widget](bool isVisible) { widget->setVisible(isVisible); });
}

void KeepPlaceWhenHidden(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

void KeepWidthOf(QLabel* label, const QString& longest) {
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(longest));
}

}  // namespace quavix
