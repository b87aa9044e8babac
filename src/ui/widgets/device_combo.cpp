// SPDX-License-Identifier: MIT
#include "ui/widgets/device_combo.h"

#include <utility>

#include "ui/widgets/binding.h"

namespace quavix {

void DeviceCombo::Show(const std::vector<std::string>& devices) {
    clear();
    for (const std::string& name : devices)
        addItem(QString::fromStdString(name));
}

void DeviceCombo::Bind(EventBoundary& handlers, std::function<void()> search,
                       std::function<void(std::int32_t)> clicked) {
    BindChoice(this, handlers, std::move(clicked));
    beforePopup_ = [this, &handlers, run = std::move(search)] {
        RunHandler(*this, "DropDown", handlers, run);
    };
}

void DeviceCombo::Bind(const Watched<std::vector<std::string>>& devices, const Watched<std::int32_t>& chosen,
                       EventBoundary& handlers, std::function<void()> search,
                       std::function<void(std::int32_t)> clicked) {
    ShowIn(this, devices, [this, &chosen](const std::vector<std::string>& names) {
        Show(names);
        setCurrentIndex(chosen);
    });
    ShowIn(this, chosen, [this](std::int32_t entry) { setCurrentIndex(entry); });
    Bind(handlers, std::move(search), std::move(clicked));
}

void DeviceCombo::showPopup() {
    beforePopup_();
    QComboBox::showPopup();
}

}  // namespace quavix
