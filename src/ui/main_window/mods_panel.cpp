// SPDX-License-Identifier: MIT
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include "music/main_fields.h"
#include "playback/motor_mod_module.h"
#include "ports/message_boxes.h"
#include "ui/main_window/panels.h"
#include "ui/texts.h"
#include "ui/widgets/binding.h"

namespace quavix {
namespace {

QString HelpButtonName(const text::Mod& mod) {
    QString name = mod.CheckName;
    name.chop(static_cast<qsizetype>(std::string_view("Check").size()));
    return name + "HButton";
}

/// The choice of the motor's serial port. Opening the list searches for ports again.
class PortCombo : public QComboBox {
  public:
    PortCombo(MotorModModule& motor, EventBoundary& handlers, QWidget* parent);

    void showPopup() override;

  private:
    void ShowPorts();

    MotorModModule& motor_;
    EventBoundary& handlers_;
};

PortCombo::PortCombo(MotorModModule& motor, EventBoundary& handlers, QWidget* parent)
    : QComboBox(parent), motor_(motor), handlers_(handlers) {
    constexpr int ShortestWidth = 9;
    setMinimumContentsLength(ShortestWidth);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setPlaceholderText(tr("(none)"));
    ShowIn(this, motor_.PortNames(), [this](const auto&) { ShowPorts(); });
    ShowIn(this, motor_.PortName, [this](const auto&) { ShowPorts(); });
    connect(this, &QComboBox::activated, this, [this](int entry) {
        RunHandler(*this, "Click", handlers_, [&] { motor_.PortName = itemText(entry).toStdString(); });
    });
}

void PortCombo::showPopup() {
    RunHandler(*this, "DropDown", handlers_, [this] { motor_.FindPorts(); });
    QComboBox::showPopup();
}

void PortCombo::ShowPorts() {
    clear();
    for (const std::string& name : motor_.PortNames().Get())
        addItem(QString::fromStdString(name));
    const QString chosen = QString::fromStdString(motor_.PortName);
    // The port in use may be missing from the list.
    if (!chosen.isEmpty() && findText(chosen) < 0)
        addItem(chosen);
    setCurrentIndex(findText(chosen));
}

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
    help->setObjectName(HelpButtonName(mod));
    help->setText("?");
    help->setAccessibleName(QObject::tr("Help about '%1'").arg(mod.Caption));
    help->setToolTip(QObject::tr("What '%1' does").arg(mod.Caption));
    help->setFocusPolicy(Qt::StrongFocus);
    BindButton(help, handlers, [&boxes, &mod] {
        boxes.Show({.Title = mod.HelpTitle, .Text = mod.HelpText, .Icon = BoxIcon::Information});
    });
    grid->addWidget(help, row, 1);
}

void AddMotorSettings(QGroupBox* panel, QGridLayout* grid, OutputOptions& output, MotorModModule& motor,
                      EventBoundary& handlers) {
    constexpr int Gap = 8;
    constexpr int Indent = 20;
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    row->setContentsMargins(Indent, 0, 0, 0);

    auto* label = new QLabel(text::MotorOctaveCaption, panel);
    label->setObjectName("lblMotorOct");
    label->setToolTip(text::MotorOctaveTip);
    row->addWidget(label);
    auto* slider = new QSlider(Qt::Horizontal, panel);
    slider->setObjectName("MotorOctSlider");
    slider->setAccessibleName(text::MotorOctaveCaption);
    slider->setToolTip(text::MotorOctaveTip);
    slider->setPageStep(1);
    label->setBuddy(slider);
    BindSlider(slider, output.MotorOct, parameter::MotorOct, "Change", handlers);
    row->addWidget(slider, 1);
    auto* value = new QLabel(panel);
    value->setObjectName("lblMotorOctValue");
    ShowIn(value, output.MotorOct, [value](std::int32_t octaves) {
        ShowReading(value, text::MotorOctaveCaption, QString::number(octaves));
    });
    row->addWidget(value);

    auto* combo = new PortCombo(motor, handlers, panel);
    combo->setObjectName("cmbMotorPort");
    combo->setAccessibleName(text::MotorPortCaption);
    combo->view()->setAccessibleName(text::MotorPortCaption);
    combo->setToolTip(text::MotorPortTip);
    row->addWidget(combo);
    // Screen readers read a combo box's entry and its label, which is hidden for lack of room.
    auto* caption = new QLabel(text::MotorPortCaption, panel);
    caption->setObjectName("lblMotorPort");
    caption->setBuddy(combo);
    caption->hide();
    grid->addLayout(row, grid->rowCount(), 0, 1, 2);
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
            AddMotorSettings(panel, grid, output, motor, handlers);
    }
    return panel;
}

}  // namespace quavix
