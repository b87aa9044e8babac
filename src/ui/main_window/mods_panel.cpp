// SPDX-License-Identifier: MIT
#include "ui/main_window/mods_panel.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include "ui/widgets/binding.h"
#include "ui/widgets/port_combo.h"

namespace quavix {
namespace {

QString HelpButtonName(const text::Mod& mod) {
    QString name = mod.CheckName;
    name.chop(static_cast<qsizetype>(std::string_view("Check").size()));
    return name + "HButton";
}

}  // namespace

ModsPanel::ModsPanel(ModFields& mods, OutputOptions& output, MotorModModule& motor, MessageBoxes& boxes,
                     EventBoundary& handlers, QWidget* parent)
    : QGroupBox(tr("Mods"), parent),
      mods_(mods),
      output_(output),
      motor_(motor),
      boxes_(boxes),
      handlers_(handlers),
      grid_(new QGridLayout(this)) {
    setObjectName("ModsPanel");
    grid_->setColumnStretch(0, 1);
    grid_->setVerticalSpacing(2);
    for (const text::Mod* mod : text::Mods) {
        AddMod(*mod);
        if (mod == &text::UseMotor)
            AddMotorSettings();
    }
}

void ModsPanel::AddMod(const text::Mod& mod) {
    const int row = grid_->rowCount();
    auto* check = new QCheckBox(mod.Caption, this);
    check->setObjectName(mod.CheckName);
    check->setAccessibleName(mod.Caption);
    check->setToolTip(mod.ToolTip);
    BindCheck(check, (mods_.*mod.Switch).Ticked, handlers_);
    BindEnabled(check, (mods_.*mod.Switch).Enabled);
    grid_->addWidget(check, row, 0);

    auto* help = new QToolButton(this);
    help->setObjectName(HelpButtonName(mod));
    help->setText("?");
    help->setAccessibleName(tr("Help about '%1'").arg(mod.Caption));
    help->setToolTip(tr("What '%1' does").arg(mod.Caption));
    help->setFocusPolicy(Qt::StrongFocus);
    BindButton(help, handlers_, [this, &mod] { ShowHelp(mod); });
    grid_->addWidget(help, row, 1);
}

void ModsPanel::AddMotorSettings() {
    constexpr int Gap = 8;
    constexpr int Indent = 20;
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    row->setContentsMargins(Indent, 0, 0, 0);

    auto* label = new QLabel(text::MotorOctaveCaption, this);
    label->setObjectName("lblMotorOct");
    label->setToolTip(text::MotorOctaveTip);
    row->addWidget(label);
    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName("MotorOctSlider");
    slider->setAccessibleName(text::MotorOctaveCaption);
    slider->setToolTip(text::MotorOctaveTip);
    slider->setPageStep(1);
    label->setBuddy(slider);
    BindSlider(slider, output_.MotorOct, parameter::MotorOct, "Change", handlers_);
    row->addWidget(slider, 1);
    auto* value = new QLabel(this);
    value->setObjectName("lblMotorOctValue");
    ShowIn(value, output_.MotorOct, [value](std::int32_t octaves) {
        ShowReading(value, text::MotorOctaveCaption, QString::number(octaves));
    });
    row->addWidget(value);

    auto* combo = new PortCombo(motor_, handlers_, this);
    combo->setObjectName("cmbMotorPort");
    combo->setAccessibleName(text::MotorPortCaption);
    combo->view()->setAccessibleName(text::MotorPortCaption);
    combo->setToolTip(text::MotorPortTip);
    row->addWidget(combo);
    // Screen readers read a combo box's entry and its label, which is hidden for lack of room.
    auto* caption = new QLabel(text::MotorPortCaption, this);
    caption->setObjectName("lblMotorPort");
    caption->setBuddy(combo);
    caption->hide();
    grid_->addLayout(row, grid_->rowCount(), 0, 1, 2);
}

void ModsPanel::ShowHelp(const text::Mod& mod) {
    boxes_.Show({.Title = mod.HelpTitle, .Text = mod.HelpText, .Icon = BoxIcon::Information});
}

}  // namespace quavix
