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

/// Live MIDI input: what is held on the keys of a device sounds, through the cycler, while its check box is
/// ticked. Messages change the table of held notes only; the timer plays them. The box excludes that of MIDI
/// files.
class MidiInput : public UsingForm {
  public:
    explicit MidiInput(const MidiInputParts& parts);
    ~MidiInput();

    /// Searches for devices, where none is open, and opens the first one.
    void SetUpComboBox();

    /// Opens the chosen device, where none is open. No device shows a message and disables the box; one that
    /// refuses shows one and stops the music.
    void OpenInputDevice();

    /// Closes the device. Its notes are released, as nobody would hear of their end.
    void CloseInputDevice();

    /// Searches again, for the list that is about to be opened; the open device stays the chosen one.
    void FindDevices();

    /// The click on an entry of the list, be it the one that is chosen already.
    void cmbMIDIInDevice_Click(std::int32_t entry);

    /// Takes the messages that have arrived. Where some were lost, or the device is gone, all notes are
    /// released; a device that is gone is told of once, and can be chosen again when it is back.
    void MIDIIn_Message();

    /// True once opening was tried, even if it failed.
    bool MIDIInIsOpen = false;

    // The window's own controls.
    Watched<bool> MIDIInFormVisible;
    Watched<std::vector<std::string>> MIDIInDevices;
    /// Counts from 0; -1 is none.
    Watched<std::int32_t> cmbMIDIInDevice{-1};
    /// The MIDI system that the device belongs to, or what is wrong with it.
    Watched<std::string> lblInfoText;

  private:
    void UseMIDIInCheck_Click(bool ticked);
    void Form_Load();
    void TellNoDevice();
    void DeviceIsGone();
    std::string ChosenName() const;

    MidiInputParts p_;
    CycleTimer cTmr_;
    bool loaded_ = false;
    bool toldGone_ = false;
};

}  // namespace quavix
