// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "fmod/fmod_engine.h"
#include "fmod/fmod_errors.h"
#include "fmod/fmod_tone_generator.h"
#include "fmod/use_fmod.h"
#include "fmod/use_voice.h"
#include "fmod/voice_main_form.h"
#include "music/main_fields.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/random_numbers.h"
#include "ports/sound_library.h"
#include "ports/timers.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of SoundMods. All must outlive it.
struct SoundModsParts {
    SongFields& Song;
    ModFields& Mods;
    OutputOptions& Output;
    SoundLibrary& Library;
    RandomNumbers& Random;
    Timers& Ticks;
    Files& Disk;
    MessageBoxes& Boxes;
    Waiting& Wait;
    EventBoundary& Handlers;
    DebugLog& Log;
    /// Sends a command to the motor controller.
    std::function<void(const std::string& text)> SendString;
};

/// The mods that use the sound library: the tone generator on the sound card, and the voice.
class SoundMods {
  public:
    explicit SoundMods(const SoundModsParts& parts);

    /// Looks for the library in the program's folder and loads it. If that succeeds, enables the check boxes
    /// of the mods; if the library exists but can't be loaded, shows a message.
    void CheckAvailability(const std::string& programFolder);

    /// Starts the engine with a square wave if the library is loaded; otherwise logs the reason.
    void StartEngine(const FmodOutput& output = {});

    /// True if the sound library is available.
    bool FmodAvailable = false;
    FmodErrors Errors;
    FmodEngine Engine;
    FmodToneGenerator Generator;
    quavix::UseFmod UseFmod;
    VoiceMainForm Singer;
    quavix::UseVoice UseVoice;

  private:
    SoundModsParts p_;
    std::string whyNot_ = "'fmodex.dll' not seen";
};

}  // namespace quavix
