// SPDX-License-Identifier: MIT
#include "midi/midi_output.h"

#include <utility>

#include "midi/device_names.h"
#include "midi/midi_notes.h"

namespace quavix {
namespace {

constexpr std::int32_t NoteOff = 0x80;
constexpr std::int32_t NoteOn = 0x90;
constexpr std::int32_t ProgramChange = 0xC0;
constexpr std::int32_t NoteOnVelocity = 96;
constexpr std::int32_t NoteOffVelocity = 0;

/// Interval for retrying a busy device: about the time that a MIDI line takes for a message.
constexpr std::int32_t BusyWaitMs = 1;

MidiMessage Message(std::int32_t status, std::int32_t data1, std::int32_t data2) {
    return {static_cast<std::uint8_t>(status), static_cast<std::uint8_t>(data1),
            static_cast<std::uint8_t>(data2)};
}

std::size_t Place(std::int32_t channel, std::int32_t note) {
    return static_cast<std::size_t>(channel) * MidiOutput::Notes + static_cast<std::size_t>(note);
}

}  // namespace

MidiOutput::MidiOutput(const MidiOutputParts& parts) : p_(parts) {
    p_.Mods.UseMIDIOut.Ticked.Watch(
        p_.Handlers.Wrap("UseMIDIOutCheck_Click", [this](bool ticked) { UseMIDIOutCheck_Click(ticked); }));
}

/// Returns the MIDI note of a tone. A bare frequency is one of the metronome's two clicks, else C3.
std::int32_t MidiOutput::MidiNoteOf(const Tone& tone) {
    constexpr std::int32_t B5 = 71;
    constexpr std::int32_t B4 = 59;
    constexpr std::int32_t C3 = 36;
    if (tone.Options.NoteIsFrequency)
        return tone.Frequency == 1000 ? B5 : tone.Frequency == 500 ? B4 : C3;
    tone.WarnIfUnknown(p_.Boxes);
    return NoteToMIDI(tone.NoteNum, tone.Octave);
}

void MidiOutput::ToneStarts(const Tone& tone) {
    MIDINoteOn(MidiNoteOf(tone));
}

void MidiOutput::ToneEnds(const Tone& tone) {
    constexpr std::int32_t SelectedChannel = -1;
    MIDINoteOff(MidiNoteOf(tone), SelectedChannel);
}

void MidiOutput::MIDINoteOn(std::int32_t midiNoteNum) {
    p_.Log.Text("MIDINoteOn({})", midiNoteNum);
    const std::int32_t channel = midiChannel_;
    if (Send(NoteOn + channel, midiNoteNum, NoteOnVelocity))
        sounding_.set(Place(channel, midiNoteNum));
}

void MidiOutput::MIDINoteOff(std::int32_t midiNoteNum, std::int32_t channel) {
    if (channel < 0 || channel >= Channels) {
        channel = midiChannel_;
        p_.Log.Text("MIDINoteOff(MIDINOTENUM:{}, MIDISENDCHANNEL:{}) (MIDISendChannel = MIDIChannel)",
                    midiNoteNum, channel);
    }
    if (Send(NoteOff + channel, midiNoteNum, NoteOffVelocity))
        sounding_.reset(Place(channel, midiNoteNum));
}

void MidiOutput::UseMIDIOutCheck_Click(bool ticked) {
    if (!ticked) {
        p_.Mods.UseMIDIOut.InUse = false;
        CloseOutputDevice();
        Fields.MIDIOutFormVisible = false;
        return;
    }
    if (!p_.Controls.MakeReady(ControlInstaller::MidiDevicesControl, p_.Mods.UseMIDIOut.Ticked,
                               [this] { return p_.Device.Prepare(); }))
        return;
    Fields.MIDIOutFormVisible = true;
    if (!std::exchange(loaded_, true)) {
        SetUpComboBox();
        Fields.cmbChannel = midiChannel_;
        cmbInstrument_Click(0);
    } else {
        FindDevices();
    }
    if (Fields.cmbMIDIOutDevice < 0 && !Fields.MIDIOutDevices.Get().empty())
        Fields.cmbMIDIOutDevice = 0;
    OpenOutputDevice();
    // If there is no device, the box has been unticked meanwhile.
    p_.Mods.UseMIDIOut.InUse = p_.Mods.UseMIDIOut.Ticked;
}

void MidiOutput::SetUpComboBox() {
    const LogBlock block(p_.Log, "MIDIOutForm.SetUpComboBox()");
    Fields.lblInfoText = "Scanning for output devices, just a sec...";
    if (p_.State.ShuttingDown || MIDIOutIsOpen) {
        p_.Log.LogText("Shutting down, or MIDI Out already open - exiting sub");
    } else if (FindFirstDevices(p_.Device, MidiOutPort::VirtualDevice, "output", Fields.MIDIOutDevices,
                                Fields.cmbMIDIOutDevice, p_.Log)) {
        OpenOutputDevice();
    }
    Fields.lblInfoText = StatusText();
}

void MidiOutput::OpenOutputDevice() {
    p_.Log.LogText("MIDIOutForm.OpenOutputDevice() - START");
    Fields.lblInfoText = "Opening output device, just a sec...";
    if (p_.State.ShuttingDown || MIDIOutIsOpen) {
        p_.Log.LogText("Shutting down, or MIDI Out already open - exiting sub");
        Fields.lblInfoText = StatusText();
        return;
    }
    const std::vector<std::string>& names = Fields.MIDIOutDevices;
    const std::int32_t entry = Fields.cmbMIDIOutDevice;
    const bool isChosen = entry >= 0 && static_cast<std::size_t>(entry) < names.size();
    p_.Log.Text("Selected device is \"{}\"", isChosen ? names[static_cast<std::size_t>(entry)] : "");
    if (!isChosen) {
        p_.Log.LogText("Can't open non-existing device - showing 'No MIDI output' message.");
        p_.Boxes.Show({.Title = "Can't use MIDI output!",
                       .Text = "No MIDI output device can be found - can't use MIDI output.",
                       .Icon = BoxIcon::Warning});
        p_.Mods.UseMIDIOut.Enabled = false;
        p_.Mods.UseMIDIOut.Ticked = false;
    } else {
        MIDIOutIsOpen = true;
        if (!p_.Device.Open(entry + MidiOutPort::VirtualDevice)) {
            p_.Log.LogText("Couldn't open device");
            p_.Boxes.Show({.Title = "Can't use MIDI out",
                           .Text = "Couldn't initialize the MIDI output device which you chose to use.",
                           .Icon = BoxIcon::Warning});
            p_.Log.LogText("MainForm.MusicIsPlaying -> FALSE");
            p_.State.MusicIsPlaying = false;
        }
        SendInstrument();
    }
    Fields.lblInfoText = StatusText();
    p_.Log.LogText("MIDIOutForm.OpenOutputDevice() - END");
}

void MidiOutput::CloseOutputDevice() {
    EndSoundingNotes();  // first, because the log may raise an error
    p_.Log.LogText("MIDIOutForm.CloseOutputDevice()");
    Fields.lblInfoText = "Closing output device, just a sec...";
    p_.Device.Close();
    MIDIOutIsOpen = false;
    Fields.lblInfoText = StatusText();
}

void MidiOutput::FindDevices() {
    FindDevicesAgain(p_.Device, MidiOutPort::VirtualDevice, Fields.MIDIOutDevices, Fields.cmbMIDIOutDevice);
}

void MidiOutput::cmbMIDIOutDevice_Click(std::int32_t entry) {
    Fields.cmbMIDIOutDevice = entry;
    CloseOutputDevice();
    OpenOutputDevice();
}

void MidiOutput::cmbInstrument_Click(std::int32_t entry) {
    Fields.cmbInstrument = entry;
    SendInstrument();
}

void MidiOutput::SendInstrument() {
    Send(ProgramChange + midiChannel_, Fields.cmbInstrument, 0);
}

void MidiOutput::cmbChannel_Click(std::int32_t entry) {
    if (entry < 0 || entry >= Channels)
        return;
    Fields.cmbChannel = entry;
    midiChannel_ = entry;
    SendInstrument();
    const std::int32_t silencing = ++silencings_;
    for (std::int32_t silent = 0; silent < Channels; ++silent) {
        if (!SilenceChannel(silent, silencing))
            return;
    }
    Fields.lblInfoText = StatusText();
}

/// Returns false if a later request takes over the rest, or the program ends.
bool MidiOutput::SilenceChannel(std::int32_t channel, std::int32_t silencing) {
    Fields.lblInfoText = fmt::format("Silencing channel {}/16, just a sec...", channel + 1);
    for (std::int32_t note = 0; note < Notes; ++note) {
        MIDINoteOff(note, channel);
        if (silencing != silencings_ || p_.State.ShuttingDown)
            return false;
    }
    p_.Wait.DoEvents();
    return silencing == silencings_ && !p_.State.ShuttingDown;
}

void MidiOutput::EndSoundingNotes() {
    for (std::int32_t channel = 0; channel < Channels; ++channel) {
        for (std::int32_t note = 0; note < Notes; ++note) {
            if (sounding_.test(Place(channel, note)))
                Deliver(Message(NoteOff + channel, note, NoteOffVelocity));
        }
    }
    sounding_.reset();
}

/// Returns the window's text for the idle state.
std::string MidiOutput::StatusText() {
    if (!MIDIOutIsOpen)
        return "";
    if (p_.Device.State() == MidiDeviceState::Open)
        return fmt::format("The device is open ({}).", p_.Device.SystemName());
    return p_.Device.Problem();
}

/// Sends a message with a data byte 1 of 0..127. Returns true if it was sent.
bool MidiOutput::Send(std::int32_t status, std::int32_t data1, std::int32_t data2) {
    if (data1 < 0 || data1 >= Notes)
        return false;
    const MidiSendResult result = Deliver(Message(status, data1, data2));
    if (result == MidiSendResult::NotOpen && p_.Device.State() == MidiDeviceState::Gone)
        DeviceGone();
    return result == MidiSendResult::Sent;
}

/// Retries until a busy device takes the message; when the program ends, at most 250 times. The device may
/// have changed or vanished during a wait.
MidiSendResult MidiOutput::Deliver(const MidiMessage& message) {
    constexpr int TriesAtTheEnd = 250;
    MidiSendResult result = p_.Device.Send(message);
    for (int tries = 0; result == MidiSendResult::Busy; result = p_.Device.Send(message)) {
        if (p_.State.ShuttingDown && ++tries > TriesAtTheEnd)
            return result;
        p_.Wait.MsgWaitObj(BusyWaitMs);
    }
    return result;
}

void MidiOutput::DeviceGone() {
    sounding_.reset();
    p_.Log.LogText("The MIDI output device is gone");
    p_.Device.Close();
    p_.Mods.UseMIDIOut.Ticked = false;
    p_.Boxes.Tell({.Title = "Can't use MIDI out",
                   .Text =
                       "The MIDI output device is gone.\r\n\r\n(MIDI output is switched off; the notes go "
                       "on without it. Once the device is there again, tick the box again.)",
                   .Icon = BoxIcon::Warning});
}

}  // namespace quavix
