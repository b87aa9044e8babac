// SPDX-License-Identifier: MIT
#include "ui/dialogs/manual_form.h"

#include <QFontDatabase>
#include <QScreen>

#include "ui_manual_form.h"

namespace quavix {

QDialog* MakeManualForm(const QString& text, QWidget* parent) {
    auto* form = new QDialog(parent);
    Ui::ManualForm ui{};
    ui.setupUi(form);
    ui.ManualText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui.ManualText->setPlainText(text);
    constexpr int Columns = 88;
    constexpr int Rows = 34;
    const QFontMetrics metrics = ui.ManualText->fontMetrics();
    form->resize(QSize(Columns * metrics.averageCharWidth(), Rows * metrics.lineSpacing())
                     .boundedTo(form->screen()->availableSize()));
    return form;
}

}  // namespace quavix
