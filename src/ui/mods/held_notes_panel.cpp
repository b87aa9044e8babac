// SPDX-License-Identifier: MIT
#include <memory>

#include "midi/using_form.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_held_notes_panel.h"

namespace quavix {
namespace {

constexpr int Columns = 8;

/// Updates a label. A hidden one keeps its place. Unchanged properties are skipped, because the grid changes
/// up to a thousand times a second.
void Show(QLabel* label, const OnNoteLabel& wanted, const OnNoteLabel& shown) {
    if (wanted.Caption != shown.Caption)
        label->setText(QString::fromStdString(wanted.Caption));
    if (wanted.Colour != shown.Colour)
        PaintLabel(label, wanted.Colour);
    if (wanted.Visible != shown.Visible)
        label->setVisible(wanted.Visible);
}

QLabel* MakeLabel(const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    constexpr int Margin = 2;
    label->setMargin(Margin);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    KeepPlaceWhenHidden(label);
    PaintLabel(label, OnNoteLabel::Listed);
    label->hide();
    return label;
}

/// Adds the check boxes of the channels, and returns the last one.
QCheckBox* AddChannels(UsingForm& form, EventBoundary& handlers, QGroupBox* channels, QGridLayout* grid) {
    QCheckBox* check = nullptr;
    for (int channel = 0; channel < UsingForm::Channels; ++channel) {
        check = new QCheckBox(QString::number(channel + 1), channels);
        check->setObjectName(QString("ListenChannelCheck%1").arg(channel));
        check->setAccessibleName(QObject::tr("Channel %1").arg(channel + 1));
        check->setToolTip(QObject::tr("Play what comes on channel %1").arg(channel + 1));
        BindCheck(check, form.ListenChannelCheck[static_cast<std::size_t>(channel)], handlers);
        grid->addWidget(check, channel / Columns, channel % Columns);
    }
    return check;
}

void AddLabels(UsingForm& form, QWidget* area, QGridLayout* grid) {
    std::array<QLabel*, UsingForm::Labels> labels{};
    for (int index = 0; index < UsingForm::Labels; ++index) {
        QLabel* label = MakeLabel(QString("lblOnNotes%1").arg(index), area);
        grid->addWidget(label, index / Columns, index % Columns);
        grid->setColumnStretch(index % Columns, 1);
        labels[static_cast<std::size_t>(index)] = label;
    }
    const auto shown = std::make_shared<UsingForm::OnNoteLabels>();
    ShowIn(area, form.lblOnNotes, [labels, shown](const UsingForm::OnNoteLabels& wanted) {
        for (std::size_t index = 0; index < labels.size(); ++index)
            Show(labels[index], wanted[index], (*shown)[index]);
        *shown = wanted;
    });
}

}  // namespace

QWidget* MakeHeldNotesPanel(UsingForm& form, int cycleMs, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    Ui::HeldNotesPanel ui{};
    ui.setupUi(panel);
    QCheckBox* const lastChannel = AddChannels(form, handlers, ui.fraChannels, ui.channelGrid);
    QWidget::setTabOrder(lastChannel, ui.SaveCPUCheck);
    QWidget::setTabOrder(ui.SaveCPUCheck, ui.AutoTimeCheck);
    QWidget::setTabOrder(ui.AutoTimeCheck, ui.OnlyOnceCheck);
    BindLabel(ui.lblHeldCount, form.lblHeldCount);
    BindLabel(ui.lblMoreOnNotes, form.lblMoreOnNotes);
    BindVisible(ui.lblMoreOnNotes, form.lblMoreOnNotesVisible);
    AddLabels(form, ui.fraOnNotes, ui.onNotesGrid);
    ui.AutoTimeCheck->setText(ui.AutoTimeCheck->text().arg(cycleMs).arg(cycleMs / 2));
    ui.AutoTimeCheck->setAccessibleName(ui.AutoTimeCheck->text());
    BindCheck(ui.SaveCPUCheck, form.SaveCPUCheck, handlers);
    BindCheck(ui.AutoTimeCheck, form.AutoTimeCheck, handlers);
    BindCheck(ui.OnlyOnceCheck, form.OnlyOnceCheck, handlers);
    return panel;
}

}  // namespace quavix
