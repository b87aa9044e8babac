// SPDX-License-Identifier: MIT
#include "ui/mods/synchro_form.h"

#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_synchro_form.h"

namespace quavix {

SynchroForm::SynchroForm(ModFields& mods, SynchroPlay& synchro, EventBoundary& handlers, QWidget* owner)
    : ModWindow(mods.UseSynchro.Ticked, mods.UseSynchro.Ticked, handlers, owner),
      ui_(std::make_unique<Ui::SynchroForm>()) {
    ui_->setupUi(this);
    for (const auto& [edit, box] :
         {std::pair{ui_->txtHour, &synchro.txtHour}, std::pair{ui_->txtMinute, &synchro.txtMinute},
          std::pair{ui_->txtSecond, &synchro.txtSecond}}) {
        BindText(edit, *box, handlers);
        BindEnabled(edit, synchro.TimeBoxesEnabled);
    }
    BindLabel(ui_->lblCurrentTime, synchro.lblCurrentTime);
    BindOptions(ui_->optStart, synchro.optStart, ui_->optCurrent, synchro.optCurrent, handlers);
    BindCheck(ui_->chkStartInDelay, synchro.chkStartInDelay, handlers);
    BindEnabled(ui_->chkStartInDelay, synchro.chkStartInDelayEnabled);
    BindEnabled(ui_->btnWait, synchro.btnWaitEnabled);
    ShowIn(ui_->btnWait, synchro.btnWaitCaption, [button = ui_->btnWait](const std::string& caption) {
        button->setText(QString::fromStdString(caption));
        button->setAccessibleName(button->text());
    });
    BindButton(ui_->btnWait, handlers, [&synchro] { synchro.btnWait_Click(); });
    BindLabel(ui_->lblWaiting, synchro.lblWaiting);
    ShowIn(ui_->lblWaiting, synchro.lblWaitingBackColor,
           [label = ui_->lblWaiting](std::int32_t colour) { PaintLabel(label, colour); });
}

SynchroForm::~SynchroForm() = default;

}  // namespace quavix
