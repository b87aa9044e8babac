// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "fmod/sound_mods.h"
#include "music/main_fields.h"
#include "ports/clock.h"
#include "ports/files.h"
#include "ports/message_boxes.h"
#include "ports/processes.h"
#include "ports/speaker.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"

namespace quavix {

/// Where and how the program was started.
struct StartUpFacts {
    /// The folder of the executable, where the marker files lie.
    std::string ProgramFolder;
    /// The folder for what is installed on first use.
    std::string WinFolder;
    /// The command line behind the program's name.
    std::string CommandLine;
};

/// What start-up works with.
struct StartUpParts {
    MainFields& Fields;
    Clock& Time;
    Files& Disk;
    MessageBoxes& Boxes;
    Processes& System;
    Speaker& PcSpeaker;
    SoundMods& Fmod;
    EventBoundary& Handlers;
    DebugLog& Log;
    /// Loads a song file that exists.
    std::function<void(const std::string& fileName)> LoadSong;
    /// Offers the songs that an earlier process left unsaved, or only tells of them where a song is loaded.
    std::function<void(bool songIsLoaded)> OfferUnsavedSongs;
    /// Looks for a serial port.
    std::function<void()> CheckForPort;
    /// Opens a MIDI file that exists.
    std::function<void(const std::string& fileName)> OpenMidiFile{};
};

/// What happens in the program before the user can work: notices, switches and the song named on the command
/// line, in a fixed order that the log shows.
class StartUp {
  public:
    StartUp(StartUpParts parts, StartUpFacts facts) : p_(std::move(parts)), facts_(std::move(facts)) {}

    /// Everything that the main window needs.
    void BeforeMainForm();

    /// Everything that needs the main window. A command line that names no file shows a message.
    void AfterMainForm();

    /// Unsaved songs of earlier processes; comes after the command line's song, which they must not replace.
    void OfferUnsavedSongs() { p_.OfferUnsavedSongs(songIsLoaded_); }

  private:
    void StartLog();
    void SwitchToneCode();
    void LoadCommandLineSong();
    void StartFmod();

    StartUpParts p_;
    StartUpFacts facts_;
    bool songIsLoaded_ = false;
};

}  // namespace quavix
