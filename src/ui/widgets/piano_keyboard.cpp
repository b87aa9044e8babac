// SPDX-License-Identifier: MIT
#include "ui/widgets/piano_keyboard.h"

#include <algorithm>
#include <utility>

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTouchEvent>

#include "music/piano_layout.h"
#include "ui/widgets/piano_painter.h"

namespace quavix {
namespace {

constexpr std::size_t Bit(int key) {
    return static_cast<std::size_t>(key);
}

}  // namespace

PianoKeyboard::PianoKeyboard(QWidget* parent) : QWidget(parent) {
    QAccessible::installFactory(&PianoAccessible);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize PianoKeyboard::sizeHint() const {
    const int keyWidth = 3 * fontMetrics().horizontalAdvance('C');
    return {PianoPlan::WhiteKeys * keyWidth, 7 * fontMetrics().height()};
}

QSize PianoKeyboard::minimumSizeHint() const {
    const int keyWidth = fontMetrics().horizontalAdvance('C') * 3 / 2;
    return {PianoPlan::WhiteKeys * keyWidth, 5 * fontMetrics().height()};
}

PianoPlan PianoKeyboard::Plan() const {
    return PianoPlan(QRectF(rect()).adjusted(1, 0, -1, -1));
}

QRect PianoKeyboard::KeyRect(int key) const {
    return Plan().KeyRect(key).toAlignedRect();
}

QString PianoKeyboard::KeyName(int key) const {
    return QString::fromStdString(SpokenKeyName(key, octave_));
}

void PianoKeyboard::ShowSounding(const PianoKeySet& keys) {
    RepaintKeys(std::exchange(sounding_, keys) ^ keys);
}

/// Repaints keys at once, because a tone may hold the thread afterwards.
void PianoKeyboard::RepaintKeys(const PianoKeySet& keys) {
    if (keys.none() || !isVisible())
        return;
    QRegion region;
    for (int key = 0; key < PianoPlan::Keys; ++key) {
        if (keys.test(Bit(key)))
            region += KeyRect(key).adjusted(-2, -2, 2, 2);
    }
    repaint(region);
}

void PianoKeyboard::SetCurrentKey(int key) {
    const int before = std::exchange(current_, std::clamp(key, 0, PianoPlan::Keys - 1));
    RepaintKeys(PianoKeySet().set(Bit(before)).set(Bit(current_)));
    if (hasFocus())
        TellFocus();
}

void PianoKeyboard::TellFocus() {
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(current_);
    QAccessible::updateAccessibility(&event);
}

void PianoKeyboard::ShowPressed(int key, bool pressed) {
    if (IsPressed(key) == pressed)
        return;
    pressed_.set(Bit(key), pressed);
    RepaintKeys(PianoKeySet().set(Bit(key)));
}

void PianoKeyboard::Press(int key) {
    SetCurrentKey(key);
    ShowPressed(key, true);
    Q_EMIT KeyClicked(key);
}

void PianoKeyboard::ClickKey(int key) {
    if (!isEnabled())
        return;
    Press(key);
    ShowPressed(key, false);
}

void PianoKeyboard::ReleaseAll() {
    mouseKey_ = -1;
    touchKeys_.clear();
    RepaintKeys(std::exchange(pressed_, {}));
}

void PianoKeyboard::mousePressEvent(QMouseEvent* event) {
    const int key = Plan().KeyAt(event->position());
    if (event->button() != Qt::LeftButton || key == -1) {
        event->ignore();
        return;
    }
    mouseKey_ = key;
    Press(key);
}

void PianoKeyboard::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || mouseKey_ == -1)
        return;
    ShowPressed(mouseKey_, false);
    mouseKey_ = -1;
}

bool PianoKeyboard::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            if (isEnabled())
                Touch(static_cast<QTouchEvent&>(*event));
            return true;
        case QEvent::TouchCancel:
            ReleaseAll();
            return true;
        default:
            return QWidget::event(event);
    }
}

/// Handles a touch: every finger presses the key where it comes down.
void PianoKeyboard::Touch(const QTouchEvent& event) {
    std::vector<int> pressedNow;
    for (const QEventPoint& point : event.points()) {
        if (point.state() == QEventPoint::Pressed) {
            const int key = Plan().KeyAt(point.position());
            if (key == -1)
                continue;
            touchKeys_[point.id()] = key;
            pressedNow.push_back(key);
        } else if (point.state() == QEventPoint::Released && touchKeys_.contains(point.id())) {
            ShowPressed(touchKeys_.take(point.id()), false);
        }
    }
    for (const int key : pressedNow)
        Press(key);
}

void PianoKeyboard::keyPressEvent(QKeyEvent* event) {
    const bool isControl = event->modifiers() == Qt::ControlModifier;
    const int key = event->key();
    if (isControl && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        Q_EMIT OctaveStepped(current_, key == Qt::Key_Up ? 1 : -1);
        return;
    }
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier)) {
        event->ignore();
        return;
    }
    switch (key) {
        case Qt::Key_Left:
            SetCurrentKey(current_ - 1);
            break;
        case Qt::Key_Right:
            SetCurrentKey(current_ + 1);
            break;
        case Qt::Key_Up:
            SetCurrentKey(current_ + PianoPlan::KeysPerGroup < PianoPlan::Keys
                              ? current_ + PianoPlan::KeysPerGroup
                              : current_);
            break;
        case Qt::Key_Down:
            SetCurrentKey(current_ >= PianoPlan::KeysPerGroup ? current_ - PianoPlan::KeysPerGroup
                                                              : current_);
            break;
        case Qt::Key_Home:
            SetCurrentKey(0);
            break;
        case Qt::Key_End:
            SetCurrentKey(PianoPlan::Keys - 1);
            break;
        case Qt::Key_Space:
            if (!event->isAutoRepeat())
                Press(current_);
            break;
        default:
            event->ignore();
    }
}

void PianoKeyboard::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        event->ignore();
        return;
    }
    if (!event->isAutoRepeat())
        ReleaseAll();
}

void PianoKeyboard::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    TellFocus();
}

void PianoKeyboard::focusOutEvent(QFocusEvent* event) {
    ReleaseAll();
    QWidget::focusOutEvent(event);
}

void PianoKeyboard::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        ReleaseAll();
    QWidget::changeEvent(event);
}

void PianoKeyboard::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const PianoPlan plan = Plan();
    // White keys first, because the black ones lie on top of them.
    for (const bool black : {false, true}) {
        for (int key = 0; key < PianoPlan::Keys; ++key) {
            if (PianoPlan::IsBlack(key) == black &&
                event->region().intersects(KeyRect(key).adjusted(-2, -2, 2, 2)))
                DrawKey(painter, *this, key, plan.KeyRect(key));
        }
    }
    if (hasFocus())
        DrawFocus(painter, plan.KeyRect(current_));
}

}  // namespace quavix
