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

// Ties controls to watched values: the control shows the value, and what the user does to the control sets
// it. The values must outlive the control's use, not the control itself.

/// Calls `show` with the value now and with every later one, for as long as `widget` lives.
template <typename T, typename Show>
void ShowIn(QWidget* widget, const Watched<T>& value, Show show) {
    show(value.Get());
    value.Watch([guard = QPointer<QWidget>(widget), show = std::move(show)](const T& now) {
        if (guard)
            show(now);
    });
}

/// Runs `handler` as "<name of the control>_<event>".
void RunHandler(const QObject& control, std::string_view event, EventBoundary& handlers,
                const std::function<void()>& handler);

/// True for the repetition of Enter held down, which presses a dialog's default button again.
bool IsRepeatedEnter(const QKeyEvent& event);

/// A click runs `clicked`.
void BindButton(QAbstractButton* button, EventBoundary& handlers, std::function<void()> clicked);

/// A click sets the value and then runs `clicked`, where there is one.
void BindCheck(QCheckBox* box, Watched<bool>& value, EventBoundary& handlers,
               std::function<void()> clicked = {});

/// Types into the setting what the user types or assistive technology writes.
void BindText(QLineEdit* edit, Setting& setting, EventBoundary& handlers);

/// Moving the slider sets the value.
void BindSlider(QSlider* slider, Setting& setting, std::string_view event, EventBoundary& handlers);
void BindSlider(QSlider* slider, Watched<std::int32_t>& value, const Parameter& range, std::string_view event,
                EventBoundary& handlers);

/// Choosing an entry sets the value, which counts from 0.
void BindCombo(QComboBox* combo, Watched<std::int32_t>& value, EventBoundary& handlers);

/// A click sets one option and clears the other.
void BindOptions(QRadioButton* first, Watched<bool>& firstValue, QRadioButton* second,
                 Watched<bool>& secondValue, EventBoundary& handlers);

/// Shows a text in a label whose meaning is "what", which assistive technology reads before the text: it
/// reads the name of a label only, not what stands in it.
void ShowReading(QLabel* label, const QString& what, const QString& text);

/// The label shows the value, as a reading of what its accessible name is so far.
void BindLabel(QLabel* label, const Watched<std::string>& caption);
void BindLabel(QLabel* label, const Setting& setting);

void BindEnabled(QWidget* widget, const Watched<bool>& enabled);

/// A label that shows a number keeps the width of its longest one, so that the slider beside it stays put.
void KeepWidthOf(QLabel* label, const QString& longest);

}  // namespace quavix
