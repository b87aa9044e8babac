// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fmod/fmod_tone_generator.h"
#include "midi/control_installer.h"
#include "midi/cycle_timer.h"
#include "midi/held_note_cycler.h"
#include "midi/using_form.h"
#include "music/main_fields.h"
#include "ports/message_boxes.h"
#include "ports/midi_devices.h"
#include "ports/timers.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"

namespace quavix {

/// Dependencies of MidiInput. All must outlive it.
struct MidiInputParts {
    const SongFields& Song;
    ModFields& Mods;
    ProgramState& State;
    MidiInPort& Device;
    ControlInstaller& Controls;
    HeldNoteCycler& Cycler;
    FmodToneGenerator& Generator;
    Timers& Ticks;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
};

/// Live MIDI input: while its check box is ticked, the held keys of a device sound through the cycler.
/// Messages only change the table of held notes; the timer plays them. The box excludes that of MIDI files.
class MidiInput : public UsingForm {
  public:
    explicit MidiInput(const MidiInputParts& parts);
    ~MidiInput();

    /// Searches for devices and opens the first one, unless a device is open.
    void SetUpComboBox();

    /// Opens the chosen device, unless one is open. If there is no device, shows a message and disables the
    /// box; if the device can't be opened, shows a message and stops the music.
    void OpenInputDevice();

    /// Closes the device and releases its notes, because their note-offs would be missed.
    void CloseInputDevice();

    /// Searches again, for a list that is about to open; the open device stays the chosen one.
    void FindDevices();

    /// Handles a click on an entry of the list, even the one already chosen.
    void cmbMIDIInDevice_Click(std::int32_t entry);

    /// Takes the arrived messages. If some were lost, or the device is gone, releases all notes. A missing
    /// device is reported once, and can be chosen again when it is back.
    void MIDIIn_Message();

    /// True once opening was tried, even if it failed.
    bool MIDIInIsOpen = false;

    // The window's own controls.
    Watched<bool> MIDIInFormVisible;
    Watched<std::vector<std::string>> MIDIInDevices;
    /// Index from 0; -1 is none.
    Watched<std::int32_t> cmbMIDIInDevice{-1};
    /// The MIDI system of the device, or the reason of a failure.
    Watched<std::string> lblInfoText;

  private:
    void UseMIDIInCheck_Click(bool ticked);
    void TellNoDevice();
    void DeviceIsGone();
    std::string ChosenName() const;

    MidiInputParts p_;
    CycleTimer cTmr_;
    bool loaded_ = false;
    bool toldGone_ = false;
};

}  // namespace quavix
