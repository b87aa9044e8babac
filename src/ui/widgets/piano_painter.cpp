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

constexpr std::array<std::int32_t, 3> Groups{0x288CF2, 0xD57B3A, 0x5DA33D};

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

void DrawWhite(QPainter& painter, const PianoKeyboard& piano, const QString& caption, const QColor& group,
               bool down, QRectF place) {
    const double radius = std::min(5.0, place.width() / 5);

    QLinearGradient ivory(place.topLeft(), place.bottomLeft());
    ivory.setColorAt(0, Mix(Qt::white, group, down ? 0.95 : 0.55));
    ivory.setColorAt(0.12, Mix(Qt::white, group, down ? 0.75 : 0.28));
    ivory.setColorAt(1, Mix(Qt::white, group, down ? 0.85 : 0.06));
    painter.setPen(QPen(QColor(70, 70, 74), 1));
    painter.setBrush(ivory);
    painter.drawPath(KeyShape(place, radius));

    // The front edge, invisible when the key is down.
    const double edge = std::min(6.0, place.height() / 16);
    if (!down) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 34));
        const QRectF front(place.left() + 1, place.bottom() - edge, place.width() - 2, edge - 0.5);
        painter.drawPath(KeyShape(front, radius));
    }

    QFont font = piano.font();
    font.setBold(down);
    // On a large screen the letters grow with the keys, but less.
    constexpr double KeyWidthOfPlainFont = 60;
    constexpr double LargestFactor = 2.5;
    const double factor = std::clamp(place.width() / KeyWidthOfPlainFont, 1.0, LargestFactor);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * factor);
    painter.setFont(font);
    const QColor ink = down ? ReadableOn(Mix(Qt::white, group, 0.85)) : QColor(48, 48, 52);
    painter.setPen(piano.isEnabled() || down ? ink : QColor(120, 120, 124));
    place.setBottom(place.bottom() - (down ? edge / 2 : edge + 2));
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignBottom, caption);
}

void DrawBlack(QPainter& painter, const QColor& group, bool down, const QRectF& place) {
    const double radius = std::min(3.0, place.width() / 6);

    const QColor body = down ? Mix(group, Qt::black, 0.15) : Mix(QColor(26, 26, 28), group, 0.08);
    painter.setPen(QPen(QColor(10, 10, 12), 1));
    painter.setBrush(body);
    painter.drawPath(KeyShape(place, radius));

    // Light on the top of the key; less when the key is down.
    const double side = place.width() * 0.16;
    const double front = place.height() * (down ? 0.05 : 0.12);
    const QRectF top = place.adjusted(side, 0, -side, -front);
    QLinearGradient light(top.topLeft(), top.bottomLeft());
    light.setColorAt(0, Mix(body, Qt::black, 0.2));
    light.setColorAt(1, Mix(body, Qt::white, down ? 0.35 : 0.28));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawPath(KeyShape(top, radius));
}

}  // namespace

std::int32_t GroupColour(int group) {
    return Groups[static_cast<std::size_t>(group)];
}

void DrawKey(QPainter& painter, const PianoKeyboard& piano, int key, const QRectF& place) {
    const QColor group = ToColor(GroupColour(PianoPlan::GroupOf(key)));
    const bool down = piano.IsPressed(key) || piano.IsSounding(key);
    if (PianoPlan::IsBlack(key))
        DrawBlack(painter, group, down, place);
    else
        DrawWhite(painter, piano, PianoPlan::Caption(key), group, down, place);
}

void DrawFocus(QPainter& painter, const QRectF& key) {
    const QRectF place = key.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 4));
    painter.drawRoundedRect(place, 2, 2);
    painter.setPen(QPen(QColor(170, 0, 90), 2));
    painter.drawRoundedRect(place, 2, 2);
}

}  // namespace quavix
