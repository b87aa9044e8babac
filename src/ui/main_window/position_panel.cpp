// SPDX-License-Identifier: MIT
#include "ui/main_window/position_panel.h"

#include <QFontDatabase>

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

PositionPanel::PositionPanel(PositionDisplay& position, EventBoundary& handlers, QWidget* parent)
    : QWidget(parent), position_(position), handlers_(handlers), ui_(std::make_unique<Ui::PositionPanel>()) {
    ui_->setupUi(this);
    Prepare(ui_->lblPlayBar, "0000");
    Prepare(ui_->lblPlayPos, "00 00/00");
    Prepare(ui_->lblPlaySig, "00.00");
    BindLabel(ui_->lblPlayBar, position_.lblPlayBar);
    BindLabel(ui_->lblPlayPos, position_.lblPlayPos);
    BindLabel(ui_->lblPlaySig, position_.lblPlaySig);
    ShowIn(ui_->lblPlayPos, position_.lblPlayPosBackColor,
           [label = ui_->lblPlayPos](std::int32_t colour) { PaintLabel(label, colour); });
    BindCheck(ui_->NoUpdateCheck, position_.NoUpdateCheck, handlers_,
              [this] { position_.NoUpdateCheck_Click(); });
    BindEnabled(ui_->NoUpdateCheck, position_.NoUpdateCheckEnabled);
    BindButton(ui_->NoUpdateHButton, handlers_, [this] { position_.NoUpdateHButton_Click(); });
}

PositionPanel::~PositionPanel() = default;

}  // namespace quavix
