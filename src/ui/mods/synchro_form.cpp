// SPDX-License-Identifier: MIT
#include "playback/synchro_play.h"
#include "ui/mods/mod_forms.h"
#include "ui/widgets/binding.h"
#include "ui/widgets/colours.h"
#include "ui_synchro_form.h"

namespace quavix {

void SetUpSynchroForm(ModWindow& form, SynchroPlay& synchro, EventBoundary& handlers) {
    Ui::SynchroForm ui{};
    ui.setupUi(&form);
    for (const auto& [edit, box] :
         {std::pair{ui.txtHour, &synchro.txtHour}, std::pair{ui.txtMinute, &synchro.txtMinute},
          std::pair{ui.txtSecond, &synchro.txtSecond}}) {
        BindText(edit, *box, handlers);
        BindEnabled(edit, synchro.TimeBoxesEnabled);
    }
    BindLabel(ui.lblCurrentTime, synchro.lblCurrentTime);
    BindOptions(ui.optStart, synchro.optStart, ui.optCurrent, synchro.optCurrent, handlers);
    BindCheck(ui.chkStartInDelay, synchro.chkStartInDelay, handlers);
    BindEnabled(ui.chkStartInDelay, synchro.chkStartInDelayEnabled);
    BindEnabled(ui.btnWait, synchro.btnWaitEnabled);
    ShowIn(ui.btnWait, synchro.btnWaitCaption, [button = ui.btnWait](const std::string& caption) {
        button->setText(QString::fromStdString(caption));
        button->setAccessibleName(button->text());
    });
    BindButton(ui.btnWait, handlers, [&synchro] { synchro.btnWait_Click(); });
    BindLabel(ui.lblWaiting, synchro.lblWaiting);
    ShowIn(ui.lblWaiting, synchro.lblWaitingBackColor,
           [label = ui.lblWaiting](std::int32_t colour) { PaintLabel(label, colour); });
}

}  // namespace quavix
