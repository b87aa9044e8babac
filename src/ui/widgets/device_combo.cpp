// SPDX-License-Identifier: MIT
#include "ui/widgets/device_combo.h"

#include <utility>

#include <QAbstractItemView>

#include "ui/widgets/binding.h"

namespace quavix {

void DeviceCombo::Bind(const Watched<std::vector<std::string>>& devices, const Watched<std::int32_t>& chosen,
                       EventBoundary& handlers, std::function<void()> search,
                       std::function<void(std::int32_t)> clicked) {
    // The opened list takes the keyboard focus, but lacks the combo box's name.
    view()->setAccessibleName(accessibleName());
    setPlaceholderText(tr("(none)"));
    ShowIn(this, devices, [this, &chosen](const std::vector<std::string>& names) {
        clear();
        for (const std::string& name : names)
            addItem(QString::fromStdString(name));
        setCurrentIndex(chosen);
    });
    ShowIn(this, chosen, [this](std::int32_t entry) { setCurrentIndex(entry); });
    beforePopup_ = [this, &handlers, run = std::move(search)] {
        RunHandler(*this, "DropDown", handlers, run);
    };
    connect(this, &QComboBox::activated, this, [this, &handlers, run = std::move(clicked)](int entry) {
        RunHandler(*this, "Click", handlers, [&] { run(entry); });
    });
}

void DeviceCombo::showPopup() {
    if (beforePopup_)
        beforePopup_();
    QComboBox::showPopup();
}

}  // namespace quavix
