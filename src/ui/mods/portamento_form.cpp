// SPDX-License-Identifier: MIT
#include "ui/mods/portamento_form.h"

#include "ui/mods/mod_texts.h"
#include "ui/widgets/binding.h"
#include "ui_portamento_form.h"

namespace quavix {

PortamentoForm::PortamentoForm(ModFields& mods, PitchGlide& glide, EventBoundary& handlers, QWidget* parent)
    : ModWindow(mods.UsePorta.Ticked, mods.UsePorta.Ticked, handlers, parent),
      ui_(std::make_unique<Ui::PortamentoForm>()) {
    ui_->setupUi(this);
    KeepWidthOf(ui_->lblPitchMultiple, "00.00%");
    KeepWidthOf(ui_->lblSoundLength, "00.00%");  // aligns the ends of both sliders
    ui_->lblNote->setText(text::UsePorta.HelpText);

    PortamentoFields& fields = glide.Fields;
    BindSlider(ui_->PitchMultipleSlider, fields.PitchMultipleSlider, parameter::PitchMultiple, "Change",
               handlers);
    BindLabel(ui_->lblPitchMultiple, fields.lblPitchMultiple);
    BindOptions(ui_->optSoundAlways, fields.optSoundAlways, ui_->optSoundStops, fields.optSoundStops,
                handlers);
    BindSlider(ui_->SoundLengthSlider, fields.SoundLengthSlider, parameter::SoundLength, "Change", handlers);
    BindLabel(ui_->lblSoundLength, fields.lblSoundLength);
    resize(sizeHint());
}

PortamentoForm::~PortamentoForm() = default;

}  // namespace quavix
