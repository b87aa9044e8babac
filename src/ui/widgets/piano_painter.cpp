// SPDX-License-Identifier: MIT
#include "ui/widgets/piano_painter.h"

#include <algorithm>
#include <array>

#include <QFontInfo>
#include <QLinearGradient>
#include <QPainterPath>

#include "ui/widgets/colours.h"
#include "ui/widgets/piano_keyboard.h"

namespace quavix {
namespace {

constexpr std::array<QRgb, 3> Groups{0xFFF28C28, 0xFF3A7BD5, 0xFF3DA35D};

QColor Mix(const QColor& from, const QColor& to, double share) {
    const auto part = [share](int a, int b) { return a + static_cast<int>((b - a) * share); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

/// Returns the shape of a key: square at the top, where the keys go under the case, and rounded at the front.
QPainterPath KeyShape(const QRectF& place, double radius) {
    QPainterPath shape;
    shape.moveTo(place.topLeft());
    shape.lineTo(place.topRight());
    shape.lineTo(place.right(), place.bottom() - radius);
    shape.quadTo(place.bottomRight(), {place.right() - radius, place.bottom()});
    shape.lineTo(place.left() + radius, place.bottom());
    shape.quadTo(place.bottomLeft(), {place.left(), place.bottom() - radius});
    shape.closeSubpath();
    return shape;
}

}  // namespace

QColor GroupColour(int group) {
    return QColor::fromRgb(Groups[static_cast<std::size_t>(group)]);
}

void PianoPainter::Draw(int key) const {
    if (PianoPlan::IsBlack(key))
        DrawBlack(key);
    else
        DrawWhite(key);
}

void PianoPainter::DrawWhite(int key) const {
    const QColor group = GroupColour(PianoPlan::GroupOf(key));
    const bool down = piano_.IsPressed(key) || piano_.IsSounding(key);
    QRectF place = plan_.KeyRect(key);
    const double radius = std::min(5.0, place.width() / 5);

    QLinearGradient ivory(place.topLeft(), place.bottomLeft());
    ivory.setColorAt(0, Mix(Qt::white, group, down ? 0.95 : 0.55));
    ivory.setColorAt(0.12, Mix(Qt::white, group, down ? 0.75 : 0.28));
    ivory.setColorAt(1, Mix(Qt::white, group, down ? 0.85 : 0.06));
    painter_.setPen(QPen(QColor(70, 70, 74), 1));
    painter_.setBrush(ivory);
    painter_.drawPath(KeyShape(place, radius));

    // The front edge, invisible when the key is down.
    const double edge = std::min(6.0, place.height() / 16);
    if (!down) {
        painter_.setPen(Qt::NoPen);
        painter_.setBrush(QColor(0, 0, 0, 34));
        const QRectF front(place.left() + 1, place.bottom() - edge, place.width() - 2, edge - 0.5);
        painter_.drawPath(KeyShape(front, radius));
    }

    QFont font = piano_.font();
    font.setBold(down);
    // On a large screen the letters grow with the keys, but less.
    constexpr double KeyWidthOfPlainFont = 60;
    constexpr double LargestFactor = 2.5;
    const double factor = std::clamp(place.width() / KeyWidthOfPlainFont, 1.0, LargestFactor);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
    painter_.setFont(font);
    const QColor ink = down ? ReadableOn(Mix(Qt::white, group, 0.85)) : QColor(48, 48, 52);
    painter_.setPen(piano_.isEnabled() || down ? ink : QColor(120, 120, 124));
    place.setBottom(place.bottom() - (down ? edge / 2 : edge + 2));
    painter_.drawText(place, Qt::AlignHCenter | Qt::AlignBottom, PianoPlan::Caption(key));
}

void PianoPainter::DrawBlack(int key) const {
    const QColor group = GroupColour(PianoPlan::GroupOf(key));
    const bool down = piano_.IsPressed(key) || piano_.IsSounding(key);
    const QRectF place = plan_.KeyRect(key);
    const double radius = std::min(3.0, place.width() / 6);

    const QColor body = down ? Mix(group, Qt::black, 0.15) : Mix(QColor(26, 26, 28), group, 0.08);
    painter_.setPen(QPen(QColor(10, 10, 12), 1));
    painter_.setBrush(body);
    painter_.drawPath(KeyShape(place, radius));

    // Light on the top of the key; less when the key is down.
    const double side = place.width() * 0.16;
    const double front = place.height() * (down ? 0.05 : 0.12);
    const QRectF top = place.adjusted(side, 0, -side, -front);
    QLinearGradient light(top.topLeft(), top.bottomLeft());
    light.setColorAt(0, Mix(body, Qt::black, 0.2));
    light.setColorAt(1, Mix(body, Qt::white, down ? 0.35 : 0.28));
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(light);
    painter_.drawPath(KeyShape(top, radius));
}

void PianoPainter::DrawFocus(int key) const {
    const QRectF place = plan_.KeyRect(key).adjusted(1.5, 1.5, -1.5, -1.5);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(Qt::white, 4));
    painter_.drawRoundedRect(place, 2, 2);
    painter_.setPen(QPen(QColor(170, 0, 90), 2));
    painter_.drawRoundedRect(place, 2, 2);
}

}  // namespace quavix
