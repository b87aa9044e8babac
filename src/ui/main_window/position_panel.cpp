// SPDX-License-Identifier: MIT
#include <QFontDatabase>

#include "playback/position_display.h"
#include "ui/main_window/panels.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_position_panel.h"

namespace quavix {
namespace {

/// Uses digits of equal width, with room for the longest caption, so that counting labels don't move.
void Prepare(QLabel* label, const QString& longest) {
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(longest) + 4 * label->margin());
    PaintLabel(label, colour::DarkGreen);
}

}  // namespace

QWidget* MakePositionPanel(PositionDisplay& position, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::PositionPanel ui{};
    ui.setupUi(panel);
    Prepare(ui.lblPlayBar, "0000");
    Prepare(ui.lblPlayPos, "00 00/00");
    Prepare(ui.lblPlaySig, "00.00");
    BindLabel(ui.lblPlayBar, position.lblPlayBar);
    BindLabel(ui.lblPlayPos, position.lblPlayPos);
    BindLabel(ui.lblPlaySig, position.lblPlaySig);
    ShowIn(ui.lblPlayPos, position.lblPlayPosBackColor,
           [label = ui.lblPlayPos](std::int32_t colour) { PaintLabel(label, colour); });
    BindCheck(ui.NoUpdateCheck, position.NoUpdateCheck, handlers,
              [&position] { position.NoUpdateCheck_Click(); });
    BindEnabled(ui.NoUpdateCheck, position.NoUpdateCheckEnabled);
    BindButton(ui.NoUpdateHButton, handlers, [&position] { position.NoUpdateHButton_Click(); });
    return panel;
}

}  // namespace quavix
