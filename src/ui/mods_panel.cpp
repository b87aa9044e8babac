// SPDX-License-Identifier: MIT
#include "ui/mods_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include "ui/binding.h"

namespace quavix {
namespace {

QString HelpButtonName(const text::Mod& mod) {
    QString name = mod.CheckName;
    name.chop(static_cast<qsizetype>(std::string_view("Check").size()));
    return name + "HButton";
}

}  // namespace

ModsPanel::ModsPanel(const WindowParts& parts, QWidget* parent)
    : QGroupBox(tr("Mods"), parent), parts_(parts), grid_(new QGridLayout(this)) {
    setObjectName("ModsPanel");
    grid_->setColumnStretch(0, 1);
    grid_->setVerticalSpacing(2);
    for (const text::Mod* mod : text::Mods) {
        AddMod(*mod);
        if (mod == &text::UseMotor)
            AddMotorOctave();
    }
}

void ModsPanel::AddMod(const text::Mod& mod) {
    const int row = grid_->rowCount();
    auto* check = new QCheckBox(mod.Caption, this);
    check->setObjectName(mod.CheckName);
    check->setAccessibleName(mod.Caption);
    check->setToolTip(mod.ToolTip);
    if (mod.IsBuilt) {
        BindCheck(check, parts_.Fields.*mod.Value, parts_.Handlers);
        BindEnabled(check, parts_.Fields.*mod.Enabled);
    } else {
        DisableUntilBuilt(check);
    }
    grid_->addWidget(check, row, 0);

    auto* help = new QToolButton(this);
    help->setObjectName(HelpButtonName(mod));
    help->setText("?");
    help->setAccessibleName(tr("Help about '%1'").arg(mod.Caption));
    help->setToolTip(tr("What '%1' does").arg(mod.Caption));
    help->setFocusPolicy(Qt::StrongFocus);
    BindButton(help, parts_.Handlers, [this, &mod] { ShowHelp(mod); });
    grid_->addWidget(help, row, 1);
}

void ModsPanel::AddMotorOctave() {
    constexpr int Gap = 8;
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    auto* label = new QLabel(text::MotorOctaveCaption, this);
    label->setObjectName("lblMotorOct");
    label->setAccessibleName(text::MotorOctaveCaption);
    label->setToolTip(text::MotorOctaveTip);
    row->addWidget(label);

    constexpr int HighestMotorOct = 6;
    auto* slider = new QSlider(Qt::Horizontal, this);
    slider->setObjectName("MotorOctSlider");
    slider->setAccessibleName(text::MotorOctaveCaption);
    slider->setToolTip(text::MotorOctaveTip);
    slider->setRange(0, HighestMotorOct);
    slider->setPageStep(1);
    slider->setValue(parts_.Fields.MotorOct);
    connect(slider, &QSlider::valueChanged, this,
            [fields = &parts_.Fields](int octave) { fields->MotorOct = octave; });
    DisableUntilBuilt(slider);
    row->addWidget(slider, 1);
    label->setBuddy(slider);
    label->setEnabled(false);
    grid_->addLayout(row, grid_->rowCount(), 0, 1, 2);
}

void ModsPanel::ShowHelp(const text::Mod& mod) {
    parts_.Boxes.Show({.Title = mod.HelpTitle, .Text = mod.HelpText, .Icon = BoxIcon::Information});
}

}  // namespace quavix
