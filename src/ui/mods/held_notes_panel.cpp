// SPDX-License-Identifier: MIT
#include <memory>

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "midi/using_form.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"

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
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setRetainSizeWhenHidden(true);
    label->setSizePolicy(policy);
    return label;
}

QGroupBox* MakeChannels(UsingForm& form, EventBoundary& handlers, QWidget* parent) {
    auto* channels = new QGroupBox(QObject::tr("Channels"), parent);
    channels->setObjectName("fraChannels");
    auto* grid = new QGridLayout(channels);
    for (int channel = 0; channel < UsingForm::Channels; ++channel) {
        auto* check = new QCheckBox(QString::number(channel + 1), channels);
        check->setObjectName(QString("ListenChannelCheck%1").arg(channel));
        check->setAccessibleName(QObject::tr("Channel %1").arg(channel + 1));
        check->setToolTip(QObject::tr("Play what comes on channel %1").arg(channel + 1));
        BindCheck(check, form.ListenChannelCheck[static_cast<std::size_t>(channel)], handlers);
        grid->addWidget(check, channel / Columns, channel % Columns);
    }
    return channels;
}

QWidget* MakeHeading(UsingForm& form, QWidget* parent) {
    auto* heading = new QWidget(parent);
    auto* row = new QHBoxLayout(heading);
    row->setContentsMargins({});
    row->setSpacing(0);
    auto* caption = new QLabel(QObject::tr("Notes which are currently being held on:"), heading);
    caption->setObjectName("lblOnNotesCaption");
    row->addWidget(caption);
    auto* count = new QLabel(heading);
    count->setObjectName("lblHeldCount");
    count->setAccessibleName(QObject::tr("Number of held notes"));
    count->setToolTip(QObject::tr("How many notes are held and still to be played"));
    BindLabel(count, form.lblHeldCount);
    row->addWidget(count);
    row->addStretch(1);
    auto* more = new QLabel(heading);
    more->setObjectName("lblMoreOnNotes");
    more->setAccessibleName(QObject::tr("Held notes that aren't shown"));
    more->setToolTip(QObject::tr("Held notes for which there is no room; they are played too"));
    BindLabel(more, form.lblMoreOnNotes);
    ShowIn(more, form.lblMoreOnNotesVisible, [more](bool visible) { more->setVisible(visible); });
    row->addWidget(more);
    return heading;
}

QWidget* MakeGrid(UsingForm& form, QWidget* parent) {
    auto* area = new QWidget(parent);
    area->setObjectName("fraOnNotes");
    area->setToolTip(QObject::tr("Dark red: held; bright red: being played right now"));
    auto* grid = new QGridLayout(area);
    grid->setContentsMargins({});
    constexpr int Gap = 2;
    grid->setSpacing(Gap);
    std::array<QLabel*, UsingForm::Labels> labels{};
    for (int index = 0; index < UsingForm::Labels; ++index) {
        QLabel* label = MakeLabel(QString("lblOnNotes%1").arg(index), area);
        PaintLabel(label, OnNoteLabel::Listed);
        label->hide();
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
    return area;
}

void AddCheck(QWidget* panel, const char* name, const QString& caption, const char* toolTip,
              Watched<bool>& value, EventBoundary& handlers) {
    auto* check = new QCheckBox(caption, panel);
    check->setObjectName(name);
    check->setAccessibleName(caption);
    check->setToolTip(QObject::tr(toolTip));
    BindCheck(check, value, handlers);
    panel->layout()->addWidget(check);
}

}  // namespace

QWidget* MakeHeldNotesPanel(UsingForm& form, int cycleMs, EventBoundary& handlers, QWidget* parent) {
    auto* panel = new QWidget(parent);
    panel->setObjectName("HeldNotesPanel");
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins({});
    auto* instruction =
        new QLabel(QObject::tr("Please choose the specific channel(s) which should be listened to. "
                               "Unselected channels will be ignored."),
                   panel);
    instruction->setObjectName("lblChannelInstruction");
    instruction->setWordWrap(true);
    column->addWidget(instruction);
    column->addWidget(MakeChannels(form, handlers, panel));
    column->addWidget(MakeHeading(form, panel));
    column->addWidget(MakeGrid(form, panel));
    AddCheck(panel, "SaveCPUCheck", QObject::tr("Don't update grid above (saves CPU time)"),
             "The number of held notes is shown all the same", form.SaveCPUCheck, handlers);
    const QString autoTime =
        QObject::tr("Try to make each cycle last %1 mS (with max alternating time capped to %2mS per note)");
    AddCheck(panel, "AutoTimeCheck", autoTime.arg(cycleMs).arg(cycleMs / 2),
             "Set the alternate time on the main window by the number of held notes", form.AutoTimeCheck,
             handlers);
    AddCheck(panel, "OnlyOnceCheck", QObject::tr("Only play each note once (don't keep alternating)"),
             "Play each note once when it is struck, however long it is held", form.OnlyOnceCheck, handlers);
    return panel;
}

}  // namespace quavix
