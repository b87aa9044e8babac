// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <QDialog>

namespace quavix {

namespace Ui {
class ManualForm;
}

/// The window of the manual, a plain text.
class ManualForm : public QDialog {
    Q_OBJECT

  public:
    explicit ManualForm(const QString& text, QWidget* parent = nullptr);
    ~ManualForm() override;

  private:
    std::unique_ptr<Ui::ManualForm> ui_;
};

}  // namespace quavix
