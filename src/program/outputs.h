// SPDX-License-Identifier: MIT
#pragma once

#include "fmod/sound_mods.h"
#include "midi/control_installer.h"
#include "midi/midi_output.h"
#include "playback/motor_mod_module.h"
#include "playback/pitch_glide.h"
#include "playback/tone_code.h"
#include "playback/tone_dispatcher.h"

namespace quavix {

struct CommonParts;

/// The parts of a program that sound tones.
struct Outputs {
    explicit Outputs(CommonParts& common);

    quavix::ToneCode ToneCode;
    quavix::PitchGlide PitchGlide;
    quavix::MotorModModule MotorModModule;
    quavix::SoundMods SoundMods;
    quavix::ControlInstaller ControlInstaller;
    quavix::MidiOutput MidiOutput;
    quavix::ToneDispatcher ToneDispatcher;
};

}  // namespace quavix
