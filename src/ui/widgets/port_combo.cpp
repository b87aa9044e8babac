// SPDX-License-Identifier: MIT
#include "ui/widgets/port_combo.h"

#include "ui/widgets/binding.h"

namespace quavix {

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

}  // namespace quavix
