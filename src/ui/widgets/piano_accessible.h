// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

namespace quavix {

/// What assistive technology sees of an on-screen keyboard: a group of 36 buttons with the names of their
/// notes, each of which can be pressed. Null for any other object.
QAccessibleInterface* PianoAccessible(const QString& className, QObject* object);

}  // namespace quavix
