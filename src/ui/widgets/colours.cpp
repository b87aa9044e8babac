// SPDX-License-Identifier: MIT
#include "ui/widgets/colours.h"

#include <cmath>

#include <QLabel>
#include <QLineEdit>
#include <QPalette>

#include "music/setting.h"

namespace quavix {
namespace {

double RelativeLuminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

void Paint(QWidget* widget, QPalette::ColorRole back, QPalette::ColorRole text, std::int32_t colour) {
    QPalette palette;
    if (colour != colour::WindowBackground) {
        const QColor background = ToColor(colour);
        palette = widget->palette();
        palette.setColor(back, background);
        palette.setColor(text, ReadableOn(background));
    }
    widget->setPalette(palette);
}

}  // namespace

QColor ToColor(std::int32_t colour) {
    return {colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF};
}

QColor ReadableOn(const QColor& background) {
    // At this luminance the contrast to black equals that to white.
    constexpr double Middle = 0.179;
    return RelativeLuminance(background) > Middle ? Qt::black : Qt::white;
}

void PaintField(QLineEdit* field, std::int32_t colour) {
    Paint(field, QPalette::Base, QPalette::Text, colour);
}

void PaintLabel(QLabel* label, std::int32_t colour) {
    label->setAutoFillBackground(colour != colour::WindowBackground);
    Paint(label, QPalette::Window, QPalette::WindowText, colour);
}

}  // namespace quavix
