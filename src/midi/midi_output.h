// SPDX-License-Identifier: MIT
#pragma once

#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

#include "midi/control_installer.h"
#include "music/main_fields.h"
#include "music/tone.h"
#include "ports/message_boxes.h"
#include "ports/midi_devices.h"
#include "shell/debug_log.h"
#include "shell/event_boundary.h"
#include "shell/waiting.h"

namespace quavix {

/// Dependencies of MidiOutput. All must outlive it.
struct MidiOutputParts {
    ModFields& Mods;
    ProgramState& State;
    MidiOutPort& Device;
    ControlInstaller& Controls;
    Waiting& Wait;
    MessageBoxes& Boxes;
    EventBoundary& Handlers;
    DebugLog& Log;
};

/// Contents of the MIDI output window. Lists count from 0; -1 is no entry.
struct MidiOutputFields {
    Watched<bool> MIDIOutFormVisible;
    /// Entry k is device k - 1; the first is the virtual port.
    Watched<std::vector<std::string>> MIDIOutDevices;
    Watched<std::int32_t> cmbMIDIOutDevice{-1};
    Watched<std::int32_t> cmbChannel{-1};
    Watched<std::int32_t> cmbInstrument{-1};
    Watched<std::string> lblInfoText;
};

/// MIDI output: also sends every tone to the user's MIDI device. Its check box opens and closes the device,
/// after ending all sounding notes.
class MidiOutput {
  public:
    static constexpr std::int32_t Channels = 16;
    static constexpr std::int32_t Notes = 128;

    explicit MidiOutput(const MidiOutputParts& parts);

    /// Send the note-on before a tone and the note-off after it, on the selected channel. Both show a warning
    /// if the text names no note.
    void ToneStarts(const Tone& tone);
    void ToneEnds(const Tone& tone);

    /// Sends a note-on. A note outside 0..127 is logged, but not sent. While the device is busy, handlers
    /// run. Without a device nothing is sent; if the device has vanished, shows one message and unticks the
    /// box.
    void MIDINoteOn(std::int32_t midiNoteNum);
    /// Sends a note-off. A `channel` outside 0..15 means the selected one.
    void MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel);

    /// Searches for devices and opens the first one, unless a device is open.
    void SetUpComboBox();

    /// Opens the chosen device, unless one is open. If there is no device, shows a message and disables the
    /// box; if the device can't be opened, shows a message and stops the music.
    void OpenOutputDevice();

    /// Ends the sounding notes, and closes the device.
    void CloseOutputDevice();

    /// Searches again, for a list that is about to open; the open device stays the chosen one.
    void FindDevices();

    // Handle clicks on an entry of the lists, even the one already chosen.
    void cmbMIDIOutDevice_Click(std::int32_t entry);
    /// Also sends a note-off for every note on every channel. Handlers run meanwhile; a later click takes
    /// over the rest.
    void cmbChannel_Click(std::int32_t entry);
    void cmbInstrument_Click(std::int32_t entry);

    MidiOutputFields Fields;
    /// True once opening was tried, even if it failed.
    bool MIDIOutIsOpen = false;

  private:
    std::int32_t MidiNoteOf(const Tone& tone);
    void UseMIDIOutCheck_Click(bool ticked);
    void SendInstrument();
    bool SilenceChannel(std::int32_t channel, std::int32_t silencing);
    void EndSoundingNotes();
    std::string StatusText();
    bool Send(std::int32_t status, std::int32_t data1, std::int32_t data2);
    MidiSendResult Deliver(const MidiMessage& message);
    void DeviceGone();

    MidiOutputParts p_;
    std::int32_t midiChannel_ = 0;
    bool loaded_ = false;
    /// Number of silencing requests; a later one replaces the rest of an earlier one.
    std::int32_t silencings_ = 0;
    std::bitset<static_cast<std::size_t>(Channels) * Notes> sounding_;
};

}  // namespace quavix
