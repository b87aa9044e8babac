// SPDX-License-Identifier: MIT
#include "ui/dialogs/manual_form.h"

#include <QFontDatabase>
#include <QScreen>

#include "ui_manual_form.h"

namespace quavix {

ManualForm::ManualForm(const QString& text, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::ManualForm>()) {
    ui_->setupUi(this);
    ui_->ManualText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->ManualText->setPlainText(text);
    connect(ui_->ManualCloseButton, &QPushButton::clicked, this, &QDialog::close);
    constexpr int Columns = 88;
    constexpr int Rows = 34;
    const QFontMetrics metrics = ui_->ManualText->fontMetrics();
    resize(QSize(Columns * metrics.averageCharWidth(), Rows * metrics.lineSpacing())
               .boundedTo(screen()->availableSize()));
}

ManualForm::~ManualForm() = default;

}  // namespace quavix
