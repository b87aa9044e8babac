// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

namespace quavix {

/// Returns the accessible interface of an on-screen keyboard: a group of 36 buttons, named by their notes,
/// that can be pressed. Null for any other object.
QAccessibleInterface* PianoAccessible(const QString& className, QObject* object);

}  // namespace quavix
