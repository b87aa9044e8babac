// SPDX-License-Identifier: MIT
#include "ui/widgets/device_combo.h"

#include <utility>

#include "ui/widgets/binding.h"

namespace quavix {

void DeviceCombo::Bind(const Watched<std::vector<std::string>>& devices, const Watched<std::int32_t>& chosen,
                       EventBoundary& handlers, std::function<void()> search,
                       std::function<void(std::int32_t)> clicked) {
    setPlaceholderText(tr("(none)"));
    ShowIn(this, devices, [this, &chosen](const std::vector<std::string>& names) {
        clear();
        for (const std::string& name : names)
            addItem(QString::fromStdString(name));
        setCurrentIndex(chosen);
    });
    BindCombo(this, chosen, handlers, std::move(clicked));
    beforePopup_ = [this, &handlers, run = std::move(search)] {
        RunHandler(*this, "DropDown", handlers, run);
    };
}

void DeviceCombo::showPopup() {
    if (beforePopup_)
        beforePopup_();
    QComboBox::showPopup();
}

}  // namespace quavix
