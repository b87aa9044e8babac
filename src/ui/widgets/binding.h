// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include <QPointer>
#include <QWidget>

#include "music/parameters.h"
#include "music/setting.h"
#include "shell/event_boundary.h"
#include "shell/watched.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QRadioButton;
class QSlider;

namespace quavix {

// Bindings of controls to watched values: the control shows the value, and the user's changes set it. The
// values must outlive the control's use, but not the control itself.

/// Calls `show` with the value now and after every change, during the lifetime of `shownIn`.
template <typename T, typename Show>
void ShowIn(QObject* shownIn, const Watched<T>& value, Show show) {
    show(value.Get());
    value.Watch([guard = QPointer<QObject>(shownIn), show = std::move(show)](const T& now) {
        if (guard)
            show(now);
    });
}

/// Runs `handler` under the name "<name of the control>_<event>".
void RunHandler(const QObject& control, std::string_view event, EventBoundary& handlers,
                const std::function<void()>& handler);

/// Returns true for the auto-repeat of a held Enter key, which would press a dialog's default button again.
bool IsRepeatedEnter(const QKeyEvent& event);

/// Runs `clicked` at each click.
void BindButton(QAbstractButton* button, EventBoundary& handlers, std::function<void()> clicked);

/// Sets the value at each click, then runs `clicked`, unless empty.
void BindCheck(QCheckBox* box, Watched<bool>& value, EventBoundary& handlers,
               std::function<void()> clicked = {});

/// Passes text from the user or from assistive technology to the setting.
void BindText(QLineEdit* edit, Setting& setting, EventBoundary& handlers);

/// Sets the value when the slider moves.
void BindSlider(QSlider* slider, Setting& setting, std::string_view event, EventBoundary& handlers);
void BindSlider(QSlider* slider, Watched<std::int32_t>& value, const Parameter& range, std::string_view event,
                EventBoundary& handlers);

/// Runs `clicked` with the index, from 0, of an entry that the user chooses, even of the shown one.
void BindChoice(QComboBox* combo, EventBoundary& handlers, std::function<void(std::int32_t)> clicked);
/// Same, and shows the entry with the index `chosen`.
void BindCombo(QComboBox* combo, const Watched<std::int32_t>& chosen, EventBoundary& handlers,
               std::function<void(std::int32_t)> clicked);
/// Sets the value to the index of the chosen entry.
void BindCombo(QComboBox* combo, Watched<std::int32_t>& value, EventBoundary& handlers);

/// Sets the clicked option and clears the other.
void BindOptions(QRadioButton* first, Watched<bool>& firstValue, QRadioButton* second,
                 Watched<bool>& secondValue, EventBoundary& handlers);

/// Shows a text in a label with the meaning `what`. Assistive technology reads only the name of a label, so
/// the name becomes `what` with the text.
void ShowReading(QLabel* label, const QString& what, const QString& text);

/// Shows the value in the label, with the label's accessible name as its meaning.
void BindLabel(QLabel* label, const Watched<std::string>& caption);
void BindLabel(QLabel* label, const Setting& setting);

/// Enables a widget or an action while the value is true.
template <typename Control>
void BindEnabled(Control* control, const Watched<bool>& enabled) {
    ShowIn(control, enabled, [control](bool isEnabled) { control->setEnabled(isEnabled); });
}
/// Shows a widget while the value is true.
void BindVisible(QWidget* widget, const Watched<bool>& visible);

/// Keeps the layout as it is when the widget is hidden.
void KeepPlaceWhenHidden(QWidget* widget);

/// Keeps a number label as wide as its longest text, so that the slider beside it does not move.
void KeepWidthOf(QLabel* label, const QString& longest);

}  // namespace quavix
