// SPDX-License-Identifier: MIT
#include "midi/midi_input.h"

#include <utility>

#include <fmt/format.h>

#include "midi/device_names.h"

namespace quavix {

MidiInput::MidiInput(const MidiInputParts& parts)
    : UsingForm(parts.Handlers),
      p_(parts),
      cTmr_({parts.Song, parts.State, parts.Ticks, parts.Handlers,
             [this] { p_.Cycler.PlayLiveMIDIInput(*this); }, [this] { p_.Mods.UseMIDIIn.Ticked = false; }}) {
    p_.Mods.UseMIDIIn.Ticked.Watch(
        p_.Handlers.Wrap("UseMIDIInCheck_Click", [this](bool ticked) { UseMIDIInCheck_Click(ticked); }));
    p_.Device.SetHandler(p_.Handlers.Wrap("MIDIIn_Message", [this] { MIDIIn_Message(); }));
}

MidiInput::~MidiInput() {
    p_.Device.SetHandler({});
}

void MidiInput::UseMIDIInCheck_Click(bool ticked) {
    if (!ticked) {
        cTmr_.SetEnabled(false);
        p_.Generator.FMODBeepStop();
        CloseInputDevice();
        MIDIInFormVisible = false;
        p_.Mods.UseMIDIFile.Enabled = true;
        return;
    }
    if (!p_.Controls.MakeReady(ControlInstaller::MidiDevicesControl, p_.Mods.UseMIDIIn.Ticked,
                               [this] { return p_.Device.Prepare(); }))
        return;
    // MIDI file playback, which excludes this mod, may have been ticked meanwhile.
    if (!p_.Mods.UseMIDIIn.Enabled) {
        p_.Mods.UseMIDIIn.Ticked = false;
        return;
    }
    p_.Mods.UseMIDIFile.Enabled = false;
    MIDIInFormVisible = true;
    cTmr_.SetEnabled(true);
    if (!std::exchange(loaded_, true)) {
        AutoTimeCheck = true;
        SetUpComboBox();
    } else {
        FindDevices();
    }
    if (cmbMIDIInDevice < 0 && !MIDIInDevices.Get().empty())
        cmbMIDIInDevice = 0;
    OpenInputDevice();
}

void MidiInput::SetUpComboBox() {
    const LogBlock block(p_.Log, "MIDIInForm.SetUpComboBox()");
    if (p_.State.ShuttingDown || MIDIInIsOpen) {
        p_.Log.LogText("Shutting down, or MIDI In already open - exiting sub");
    } else if (FindFirstDevices(p_.Device, 0, "input", MIDIInDevices, cmbMIDIInDevice, p_.Log)) {
        OpenInputDevice();
    }
}

void MidiInput::OpenInputDevice() {
    const LogBlock block(p_.Log, "MIDIInForm.OpenInputDevice()");
    if (p_.State.ShuttingDown || MIDIInIsOpen) {
        p_.Log.LogText("Shutting down, or MIDI In already open - exiting sub");
        return;
    }
    const std::string name = ChosenName();
    p_.Log.Text("Selected device is \"{}\"", name);
    if (MIDIInDevices.Get().empty()) {
        TellNoDevice();
    } else {
        toldGone_ = false;
        MIDIInIsOpen = true;
        const bool isOpen = p_.Device.Open(cmbMIDIInDevice);
        lblInfoText =
            isOpen ? fmt::format("The device is open ({}).", p_.Device.SystemName()) : p_.Device.Problem();
        if (!isOpen) {
            p_.Log.LogText("Couldn't open device");
            p_.Boxes.Show({.Title = "Can't use MIDI in",
                           .Text = "Couldn't initialize the MIDI input device which you chose to use.",
                           .Icon = BoxIcon::Warning});
            p_.Log.LogText("MainForm.MusicIsPlaying -> FALSE");
            p_.State.MusicIsPlaying = false;
        }
    }
}

void MidiInput::TellNoDevice() {
    p_.Log.LogText("Can't open non-existing device - showing 'No MIDI input' message.");
    p_.Boxes.Show({.Title = "Can't use MIDI input!",
                   .Text = "No MIDI input device can be found - can't use MIDI input.\r\n\r\n"
                           "If you're simply trying to play a MIDI file through this program, please use the "
                           "'Play a MIDI file' checkbox instead.",
                   .Icon = BoxIcon::Warning});
    p_.Mods.UseMIDIIn.Enabled = false;
    p_.Mods.UseMIDIIn.Ticked = false;
    p_.Mods.UseMIDIFile.Enabled = true;
    cTmr_.SetEnabled(false);
}

void MidiInput::CloseInputDevice() {
    p_.Log.LogText("MIDIInForm.CloseInputDevice()");
    p_.Device.Close();
    MIDIInIsOpen = false;
    ReleaseAllNotes();
    lblInfoText = "";
}

std::string MidiInput::ChosenName() const {
    const std::vector<std::string>& names = MIDIInDevices;
    const auto entry = static_cast<std::size_t>(cmbMIDIInDevice.Get());
    return entry < names.size() ? names[entry] : "";
}

void MidiInput::FindDevices() {
    FindDevicesAgain(p_.Device, 0, MIDIInDevices, cmbMIDIInDevice);
}

void MidiInput::cmbMIDIInDevice_Click(std::int32_t entry) {
    cmbMIDIInDevice = entry;
    CloseInputDevice();
    OpenInputDevice();
}

void MidiInput::MIDIIn_Message() {
    MidiMessage message;
    for (auto received = p_.Device.Receive(message); received != MidiInPort::Received::None;
         received = p_.Device.Receive(message)) {
        if (received == MidiInPort::Received::Lost) {
            p_.Log.LogText("MIDI input messages were lost - releasing all notes");
            ReleaseAllNotes();
        } else {
            TakeMessage(message.Status, message.Data1, message.Data2);
        }
    }
    if (p_.Device.State() == MidiDeviceState::Gone && !toldGone_)
        DeviceIsGone();
}

void MidiInput::DeviceIsGone() {
    toldGone_ = true;
    ReleaseAllNotes();
    lblInfoText = p_.Device.Problem();
    p_.Log.LogText("The MIDI input device is gone");
    p_.Boxes.Tell({.Title = "Can't use MIDI in",
                   .Text = fmt::format("The MIDI input device \"{}\" is gone.\r\n\r\n"
                                       "(Once it is there again, choose it in the list of devices.)",
                                       ChosenName()),
                   .Icon = BoxIcon::Warning});
}

}  // namespace quavix
