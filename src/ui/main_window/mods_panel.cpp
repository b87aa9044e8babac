// SPDX-License-Identifier: MIT
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QToolButton>

#include "music/main_fields.h"
#include "playback/motor_mod_module.h"
#include "ports/message_boxes.h"
#include "ui/main_window/panels.h"
#include "ui/texts.h"
#include "ui/widgets/binding.h"
#include "ui_motor_settings.h"

namespace quavix {
namespace {

/// Adds a row to the panel with the check box of a mod and the button that explains it.
void AddMod(QGroupBox* panel, QGridLayout* grid, const text::Mod& mod, Mod& values, MessageBoxes& boxes,
            EventBoundary& handlers) {
    const int row = grid->rowCount();
    auto* check = new QCheckBox(mod.Caption, panel);
    check->setObjectName(mod.CheckName);
    check->setAccessibleName(mod.Caption);
    check->setToolTip(mod.ToolTip);
    BindCheck(check, values.Ticked, handlers);
    BindEnabled(check, values.Enabled);
    grid->addWidget(check, row, 0);

    auto* help = new QToolButton(panel);
    help->setObjectName(QString(mod.CheckName).replace("Check", "HButton"));
    help->setText("?");
    help->setAccessibleName(QObject::tr("Help about '%1'").arg(mod.Caption));
    help->setToolTip(QObject::tr("What '%1' does").arg(mod.Caption));
    help->setFocusPolicy(Qt::StrongFocus);
    BindButton(help, handlers, [&boxes, &mod] {
        boxes.Show({.Title = mod.HelpTitle, .Text = mod.HelpText, .Icon = BoxIcon::Information});
    });
    grid->addWidget(help, row, 1);
}

QWidget* MakeMotorSettings(OutputOptions& output, MotorModModule& motor, EventBoundary& handlers,
                           QWidget* parent) {
    auto* settings = new QWidget(parent);
    Ui::MotorSettings ui{};
    ui.setupUi(settings);
    BindSlider(ui.MotorOctSlider, output.MotorOct, parameter::MotorOct, "Change", handlers);
    ShowIn(ui.lblMotorOctValue, output.MotorOct,
           [label = ui.lblMotorOctValue, what = ui.lblMotorOct->text()](std::int32_t octaves) {
               ShowReading(label, what, QString::number(octaves));
           });

    DeviceCombo* const ports = ui.cmbMotorPort;
    const auto show = [ports, &motor](const auto&) {
        ports->Show(motor.PortNames());
        const QString chosen = QString::fromStdString(motor.PortName);
        // The port in use may be missing from the list.
        if (!chosen.isEmpty() && ports->findText(chosen) < 0)
            ports->addItem(chosen);
        ports->setCurrentIndex(ports->findText(chosen));
    };
    ShowIn(ports, motor.PortNames(), show);
    ShowIn(ports, motor.PortName, show);
    ports->Bind(
        handlers, [&motor] { motor.FindPorts(); },
        [ports, &motor](std::int32_t entry) { motor.PortName = ports->itemText(entry).toStdString(); });
    return settings;
}

}  // namespace

QWidget* MakeModsPanel(ModFields& mods, OutputOptions& output, MotorModModule& motor, MessageBoxes& boxes,
                       EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QGroupBox(QObject::tr("Mods"), parent);
    panel->setObjectName("ModsPanel");
    auto* grid = new QGridLayout(panel);
    grid->setColumnStretch(0, 1);
    grid->setVerticalSpacing(2);
    for (const text::Mod* mod : text::Mods) {
        AddMod(panel, grid, *mod, mods.*mod->Switch, boxes, handlers);
        if (mod == &text::UseMotor)
            grid->addWidget(MakeMotorSettings(output, motor, handlers, panel), grid->rowCount(), 0, 1, 2);
    }
    return panel;
}

}  // namespace quavix
