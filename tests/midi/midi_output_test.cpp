// SPDX-License-Identifier: MIT
#include "midi/midi_output.h"

#include <set>

#include <gtest/gtest.h>

#include "app/desktop_program.h"
#include "simulation/simulated_processes.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

class MidiOutputTest : public testing::Test {
  protected:
    MidiOutputTest() { P.AttachMidiOutputs(); }

    void SwitchOn() {
        Fields.Mods.UseMIDIOut.Ticked = true;
        P.Timeline.Clear();
    }
    void Beep(std::string note, double duration) { P.App.Outputs.ToneDispatcher.UniBeep(note, duration); }
    std::string Sent() const { return P.Timeline.Text("midi out"); }

    test::SimulatedProgram P;
    MidiOutput& Midi = P.App.Outputs.MidiOutput;
    MainFields& Fields = P.App.Fields;
};

TEST_F(MidiOutputTest, TickingTheBoxShowsTheWindowListsTheDevicesAndOpensTheVirtualPort) {
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Midi.Fields.MIDIOutFormVisible);
    EXPECT_EQ(Midi.Fields.MIDIOutDevices.Get(),
              (std::vector<std::string>{"Quavix", "Keyboard", "Synthesizer"}));
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, 0);
    EXPECT_EQ(Midi.Fields.cmbChannel, 0);
    EXPECT_EQ(Midi.Fields.cmbInstrument, 0);
    EXPECT_TRUE(P.App.Outputs.MidiOutput.MIDIOutIsOpen);
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.InUse);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi out opens -1 \"Quavix\"\n0.0000 midi out C0 00 00\n");
}

TEST_F(MidiOutputTest, LogsTheFirstTickFromTheInstallerToTheOpenDevice) {
    P.App.Log.Enable();
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_EQ(P.LogText(),
              "    CopyFileToSystem32(midiio32.ocx) - START\n"
              "    SourceFile = /program/midiio32.ocx\n"
              "    DestFile = /windows/system32/midiio32.ocx\n"
              "    FileExists(\"/windows/system32/midiio32.ocx\") = TRUE\n"
              "    CopyFileToSystem32() - END\n"
              "\n"
              "    MIDIOutForm.SetUpComboBox() - START\n"
              "    Scanning output devices - -1 to 1\n"
              "    DEVICEID:-1, PRODUCTNAME:Quavix\n"
              "    DEVICEID:0, PRODUCTNAME:Keyboard\n"
              "    DEVICEID:1, PRODUCTNAME:Synthesizer\n"
              "    MIDIOutForm.OpenOutputDevice() - START\n"
              "    Selected device is \"Quavix\"\n"
              "    MIDIOutForm.OpenOutputDevice() - END\n"
              "    MIDIOutForm.SetUpComboBox() - END\n"
              "\n"
              "MIDIOutForm.OpenOutputDevice() - START\n"
              "Shutting down, or MIDI Out already open - exiting sub\n");
}

TEST_F(MidiOutputTest, TheFirstUsePutsTheControlInPlaceFirst) {
    P.Disk.Delete("/windows/system32/midiio32.ocx");
    P.Disk.Put("/program/midiio32.ocx", "module");
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(P.Disk.Has("/windows/system32/midiio32.ocx"));
    EXPECT_EQ(Sent(), "0.3000 midi out opens -1 \"Quavix\"\n0.3000 midi out C0 00 00\n");
}

TEST_F(MidiOutputTest, WithoutTheControlTheBoxIsUntickedAndNoWindowShown) {
    P.Disk.Delete("/windows/system32/midiio32.ocx");
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.InUse);
    EXPECT_FALSE(Midi.Fields.MIDIOutFormVisible);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Can't see a needed file!");
}

TEST_F(MidiOutputTest, AControlThatCannotBeCopiedIsARunTimeErrorAndCanBeTriedAgain) {
    P.Disk.Delete("/windows/system32/midiio32.ocx");
    P.Disk.Put("/program/midiio32.ocx", "module");
    P.Disk.SetSpaceLeft(3);
    Fields.Mods.UseMIDIOut.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Text.find("Run-time error '61'"), 0u) << P.Boxes.Shown()[0].Text;
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_FALSE(Midi.Fields.MIDIOutFormVisible);
    P.Disk.SetSpaceLeft(1'000'000);
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.InUse);
}

TEST_F(MidiOutputTest, AControlThatCannotBeLoadedIsReportedAndCanBeTriedAgain) {
    P.MidiOut.LoadProblem =
        "The file \"/windows/system32/midiio32.ocx\" lacks the function QuavixMidiIoSend.";
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.Enabled);
    EXPECT_FALSE(Midi.Fields.MIDIOutFormVisible);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_NE(P.Boxes.Shown()[0].Text.find(P.MidiOut.LoadProblem), std::string::npos);
    P.MidiOut.LoadProblem.clear();
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.InUse);
}

TEST_F(MidiOutputTest, WithNoOutputDevicesTheListStaysEmptyAndOpeningSaysSoOnce) {
    P.MidiOut.Devices.clear();
    P.App.Log.Enable();
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Midi.Fields.MIDIOutDevices.Get().empty());
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, -1);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Can't use MIDI output!");
    EXPECT_EQ(P.Boxes.Shown()[0].Text, "No MIDI output device can be found - can't use MIDI output.");
    EXPECT_EQ(P.Boxes.Shown()[0].Icon, BoxIcon::Warning);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Enabled);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.InUse);
    EXPECT_FALSE(Midi.Fields.MIDIOutFormVisible);
    const std::string log = P.LogText();
    EXPECT_NE(log.find("    MIDIOutForm.SetUpComboBox() - START\n"
                       "    No MIDI output devices - exiting sub\n"
                       "    MIDIOutForm.SetUpComboBox() - END\n\n"
                       "MIDIOutForm.OpenOutputDevice() - START\n"
                       "Selected device is \"\"\n"
                       "Can't open non-existing device - showing 'No MIDI output' message.\n"),
              std::string::npos)
        << log;
    EXPECT_EQ(P.App.Log.LogIndent(), 0);
}

TEST_F(MidiOutputTest, ADeviceThatRefusesIsReportedAndStopsTheMusicButLeavesTheBoxTicked) {
    SwitchOn();
    P.App.Log.Enable();
    Fields.State.MusicIsPlaying = true;
    P.MidiOut.OpenProblem = "It is in use.";
    Midi.cmbMIDIOutDevice_Click(2);
    ASSERT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_EQ(P.Boxes.Shown()[0].Title, "Can't use MIDI out");
    EXPECT_EQ(P.Boxes.Shown()[0].Text, "Couldn't initialize the MIDI output device which you chose to use.");
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_TRUE(P.App.Outputs.MidiOutput.MIDIOutIsOpen) << "only closing clears it";
    EXPECT_EQ(Midi.Fields.lblInfoText.Get(), "It is in use.");
    EXPECT_EQ(P.LogText(),
              "MIDIOutForm.CloseOutputDevice()\n"
              "MIDIOutForm.OpenOutputDevice() - START\n"
              "Selected device is \"Synthesizer\"\n"
              "Couldn't open device\n"
              "MainForm.MusicIsPlaying -> FALSE\n"
              "MIDIOutForm.OpenOutputDevice() - END\n");
    Beep("A4", 10);
    EXPECT_EQ(P.Timeline.Text("midi out 9"), "");

    P.MidiOut.OpenProblem.clear();
    Midi.cmbMIDIOutDevice_Click(2);
    Beep("A4", 10);
    EXPECT_EQ(P.Timeline.Text("midi out 9"), "0.0100 midi out 90 39 60\n");
}

TEST_F(MidiOutputTest, EntryKOfTheListIsDeviceKMinusOne) {
    SwitchOn();
    Midi.cmbMIDIOutDevice_Click(1);
    Midi.cmbMIDIOutDevice_Click(2);
    Midi.cmbMIDIOutDevice_Click(0);
    EXPECT_EQ(Sent(),
              "0.0000 midi out closes\n0.0000 midi out opens 0 \"Keyboard\"\n0.0000 midi out C0 00 00\n"
              "0.0000 midi out closes\n0.0000 midi out opens 1 \"Synthesizer\"\n0.0000 midi out C0 00 00\n"
              "0.0000 midi out closes\n0.0000 midi out opens -1 \"Quavix\"\n0.0000 midi out C0 00 00\n");
}

TEST_F(MidiOutputTest, TheChosenInstrumentIsSentAtOnceAndAgainToEveryDeviceThatOpens) {
    SwitchOn();
    Midi.cmbInstrument_Click(40);
    Midi.cmbMIDIOutDevice_Click(1);
    EXPECT_EQ(Sent(),
              "0.0000 midi out C0 28 00\n0.0000 midi out closes\n0.0000 midi out opens 0 \"Keyboard\"\n"
              "0.0000 midi out C0 28 00\n");
}

TEST_F(MidiOutputTest, UntickingClosesTheDeviceAndHidesTheWindowAndTickingOpensTheChosenOneAgain) {
    SwitchOn();
    Midi.cmbMIDIOutDevice_Click(1);
    P.App.Log.Enable();
    P.Timeline.Clear();
    Fields.Mods.UseMIDIOut.Ticked = false;
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.InUse);
    EXPECT_FALSE(P.App.Outputs.MidiOutput.MIDIOutIsOpen);
    EXPECT_FALSE(Midi.Fields.MIDIOutFormVisible);
    EXPECT_EQ(P.LogText(), "MIDIOutForm.CloseOutputDevice()\n");
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Midi.Fields.MIDIOutFormVisible);
    EXPECT_EQ(Sent(),
              "0.0000 midi out closes\n0.0000 midi out opens 0 \"Keyboard\"\n0.0000 midi out C0 00 00\n");
}

TEST_F(MidiOutputTest, ANoteOffForNoChannelGoesToTheCurrentOneAndIsLogged) {
    SwitchOn();
    Midi.cmbChannel_Click(2);
    P.App.Log.Enable();
    P.Timeline.Clear();
    Midi.MIDINoteOff(60, 16);
    Midi.MIDINoteOff(61, -1);
    Midi.MIDINoteOff(62, 15);
    Midi.MIDINoteOff(63, 0);
    EXPECT_EQ(Sent(),
              "0.0000 midi out 82 3C 00\n0.0000 midi out 82 3D 00\n0.0000 midi out 8F 3E 00\n"
              "0.0000 midi out 80 3F 00\n");
    EXPECT_EQ(P.LogText(),
              "MIDINoteOff(MIDINOTENUM:60, MIDISENDCHANNEL:2) (MIDISendChannel = MIDIChannel)\n"
              "MIDINoteOff(MIDINOTENUM:61, MIDISENDCHANNEL:2) (MIDISendChannel = MIDIChannel)\n");
}

TEST_F(MidiOutputTest, ANoteOnHasTheFixedVelocityAndTheCurrentChannelAndIsLogged) {
    SwitchOn();
    Midi.cmbChannel_Click(15);
    P.Timeline.Clear();
    P.App.Log.Enable();
    Midi.MIDINoteOn(127);
    EXPECT_EQ(Sent(), "0.0000 midi out 9F 7F 60\n");
    EXPECT_EQ(P.LogText(), "MIDINoteOn(127)\n");
}

TEST_F(MidiOutputTest, NotesOutsideTheMidiRangeAreLoggedAndNotSent) {
    SwitchOn();
    P.App.Log.Enable();
    for (const std::int32_t note : {-1, 128, 131, INT32_MAX, INT32_MIN}) {
        Midi.MIDINoteOn(note);
        Midi.MIDINoteOff(note, 0);
    }
    EXPECT_EQ(Sent(), "");
    EXPECT_NE(P.LogText().find("MIDINoteOn(131)\n"), std::string::npos);
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(MidiOutputTest, ChangingTheChannelSendsTheInstrumentAndANoteOffForEveryNoteOfEveryChannel) {
    SwitchOn();
    std::vector<std::string> texts;
    Midi.Fields.lblInfoText.Watch([&](const std::string& text) { texts.push_back(text); });
    Midi.cmbChannel_Click(4);
    const std::vector<std::string>& lines = P.Timeline.Lines();
    ASSERT_EQ(lines.size(), 2049u);
    EXPECT_EQ(lines[0], "0.0000 midi out C4 00 00");
    for (std::size_t i = 0; i < 2048; ++i)
        EXPECT_EQ(lines[i + 1], fmt::format("0.0000 midi out {:02X} {:02X} 00", 0x80 + i / 128, i % 128));
    ASSERT_EQ(texts.size(), 17u);
    for (std::size_t channel = 0; channel < 16; ++channel)
        EXPECT_EQ(texts[channel], fmt::format("Silencing channel {}/16, just a sec...", channel + 1));
    EXPECT_EQ(texts[16], "The device is open (simulated).");
}

TEST_F(MidiOutputTest, ASlowDeviceLosesNoNoteOffAndTheWindowStaysUsable) {
    SwitchOn();
    P.MidiOut.BeSlow(3, 5);
    int clicks = 0;
    for (int ms = 100; ms <= 3000; ms += 100)
        P.Time.At(ms, [&] { ++clicks; });
    Midi.cmbChannel_Click(1);
    std::set<std::string> sent;
    for (const std::string& line : P.Timeline.Lines())
        sent.insert(line.substr(line.find("midi out")));
    EXPECT_EQ(sent.size(), 2049u) << "each once";
    EXPECT_EQ(P.Timeline.Lines().size(), 2049u);
    EXPECT_EQ(clicks, 30);
    EXPECT_LE(P.Time.Now(), 2049 / 3 * 5 * SimulatedTime::CountsPerMs) << "no longer than it takes";
}

TEST_F(MidiOutputTest, AChannelChosenDuringSilencingGetsTheRemainingNoteOffs) {
    SwitchOn();
    P.MidiOut.BeSlow(1, 1);
    P.Time.At(500, [&] { Midi.cmbChannel_Click(9); });
    Midi.cmbChannel_Click(1);
    const std::vector<std::string>& lines = P.Timeline.Lines();
    EXPECT_EQ(Midi.Fields.cmbChannel, 9);
    EXPECT_LT(lines.size(), 2049u + 510u) << "once, and what there was of the first";
    std::set<std::string> sent;
    for (const std::string& line : lines) {
        const std::string message = line.substr(line.find("midi out"));
        if (message == "midi out C9 00 00")
            sent.clear();
        else
            sent.insert(message);
    }
    EXPECT_EQ(sent.size(), 2048u) << "after the later one";
    EXPECT_EQ(Midi.Fields.lblInfoText.Get(), "The device is open (simulated).");
}

TEST_F(MidiOutputTest, ClosingTheProgramEndsTheWaitForASlowDevice) {
    SwitchOn();
    P.MidiOut.BeSlow(1, 60'000);
    P.Time.At(1000, [&] { Fields.State.ShuttingDown = true; });
    Midi.cmbChannel_Click(1);
    EXPECT_LT(P.Time.Now(), 2000 * SimulatedTime::CountsPerMs);
    EXPECT_LT(P.Timeline.Lines().size(), 5u);
}

TEST_F(MidiOutputTest, UntickingTheBoxEndsTheWaitForASlowDevice) {
    SwitchOn();
    P.MidiOut.BeSlow(100, 100);
    P.Time.At(150, [&] { Fields.Mods.UseMIDIOut.Ticked = false; });
    Midi.cmbChannel_Click(1);
    EXPECT_LT(P.Time.Now(), 200 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(P.Timeline.Lines().back(), "0.1500 midi out closes");
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(MidiOutputTest, AVanishedDeviceIsReportedOnceAndTheMusicGoesOn) {
    P.SetSong({"Quarter A4 - -", "Quarter C5 - -", "Quarter E5 - -"});
    SwitchOn();
    P.MidiOut.VanishAt(600);
    P.App.Playing.PlaybackEngine.OnRangeEnd = [&] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_EQ(P.Boxes.Shown().size(), 1u);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.Enabled);
    EXPECT_FALSE(Fields.Mods.UseMIDIOut.InUse);
    EXPECT_FALSE(P.App.Outputs.MidiOutput.MIDIOutIsOpen);
    const std::string speaker = P.Timeline.Text("speaker");
    EXPECT_EQ(std::count(speaker.begin(), speaker.end(), '\n'), 3) << speaker;
    Fields.Mods.UseMIDIOut.Ticked = true;
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.InUse) << "it can be opened again";
}

TEST_F(MidiOutputTest, AVanishedDeviceIsLeftForAnotherWithoutAMessage) {
    SwitchOn();
    P.MidiOut.VanishAt(10);
    P.Time.RunUntil(20);
    P.MidiOut.Devices = {"Synthesizer"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.Fields.MIDIOutDevices.Get(), (std::vector<std::string>{"Quavix", "Synthesizer"}));
    Midi.cmbMIDIOutDevice_Click(1);
    EXPECT_TRUE(P.Boxes.Shown().empty());
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.Ticked);
    EXPECT_EQ(P.MidiOut.State(), MidiDeviceState::Open);
}

TEST_F(MidiOutputTest, TheListFindsDevicesThatHaveComeAndKeepsTheChosenOne) {
    SwitchOn();
    Midi.cmbMIDIOutDevice_Click(2);
    P.Timeline.Clear();
    P.MidiOut.Devices = {"Drums", "Keyboard", "Synthesizer"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.Fields.MIDIOutDevices.Get(),
              (std::vector<std::string>{"Quavix", "Drums", "Keyboard", "Synthesizer"}));
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, 3);
    EXPECT_EQ(P.Timeline.Text(), "") << "what is open stays open";
    P.MidiOut.Devices = {"Drums"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, -1);
}

TEST_F(MidiOutputTest, TickedAgainItOpensTheDeviceThatWasChosenOrElseTheFirst) {
    SwitchOn();
    Midi.cmbMIDIOutDevice_Click(2);
    Fields.Mods.UseMIDIOut.Ticked = false;
    P.MidiOut.Devices = {"Drums", "Keyboard", "Synthesizer"};
    SwitchOn();
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, 3);
    Fields.Mods.UseMIDIOut.Ticked = false;
    P.MidiOut.Devices = {"Drums"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, -1);
    SwitchOn();
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, 0);
    EXPECT_TRUE(P.App.Outputs.MidiOutput.MIDIOutIsOpen);
    EXPECT_TRUE(Fields.Mods.UseMIDIOut.Enabled);
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(MidiOutputTest, AmongDevicesOfOneNameTheOneAtTheSamePositionStaysChosen) {
    P.MidiOut.Devices = {"Synthesizer", "Synthesizer"};
    SwitchOn();
    Midi.cmbMIDIOutDevice_Click(2);
    Midi.FindDevices();
    EXPECT_EQ(Midi.Fields.cmbMIDIOutDevice, 2);
}

TEST_F(MidiOutputTest, SoundingNotesEndBeforeTheDeviceIsClosed) {
    SwitchOn();
    Midi.MIDINoteOn(60);
    Midi.MIDINoteOn(64);
    Midi.MIDINoteOff(60, -1);
    P.Timeline.Clear();
    Midi.cmbMIDIOutDevice_Click(1);
    EXPECT_EQ(Sent(),
              "0.0000 midi out 80 40 00\n0.0000 midi out closes\n0.0000 midi out opens 0 \"Keyboard\"\n"
              "0.0000 midi out C0 00 00\n");
    P.Timeline.Clear();
    Midi.CloseOutputDevice();
    EXPECT_EQ(Sent(), "0.0000 midi out closes\n") << "nothing sounds there";
}

TEST_F(MidiOutputTest, UntickingInTheMiddleOfANoteEndsTheNote) {
    SwitchOn();
    Fields.Output.MutePCSpeaker = true;
    P.Time.At(50, [&] { Fields.Mods.UseMIDIOut.Ticked = false; });
    Beep("A4", 100);
    EXPECT_EQ(Sent(), "0.0000 midi out 90 39 60\n0.0500 midi out 80 39 00\n0.0500 midi out closes\n");
}

TEST_F(MidiOutputTest, ANoteThatBeginsOnOneChannelAndEndsOnAnotherIsEndedOnBoth) {
    SwitchOn();
    Fields.Output.MutePCSpeaker = true;
    P.Time.At(50, [&] { Midi.cmbChannel_Click(3); });
    Beep("A4", 100);
    EXPECT_NE(Sent().find("0.0500 midi out 80 39 00\n"), std::string::npos);
    EXPECT_NE(Sent().find("0.1000 midi out 83 39 00\n"), std::string::npos);
}

TEST_F(MidiOutputTest, TheProgramsEndEndsTheNotesAndClosesTheDevice) {
    SwitchOn();
    Fields.Output.MutePCSpeaker = true;
    SimulatedProcesses system;
    DesktopProgram desktop(
        P.App, {.System = system, .EndProcess = [] {}, .StateFolder = "/state", .CommandLine = {}});
    P.App.Log.Enable();
    P.Time.At(50, [&] { desktop.CloseProgram(); });
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text("midi out 80") + P.Timeline.Text("midi out c"),
              "0.0500 midi out 80 39 00\n0.0500 midi out closes\n");
    EXPECT_NE(P.LogText().find("        DoShutDownStuff() - START\n"
                               "        MIDIOutForm.CloseOutputDevice()\n"
                               "        DoShutDownStuff() - END\n"),
              std::string::npos)
        << P.LogText();
}

TEST_F(MidiOutputTest, ClosingTheProgramWaitsForABusyDeviceOnlyAMoment) {
    SwitchOn();
    P.MidiOut.BeSlow(1, 60'000);
    Midi.MIDINoteOn(60);
    Fields.State.ShuttingDown = true;
    P.App.ReleaseMidi();
    EXPECT_LT(P.Time.Now(), 1000 * SimulatedTime::CountsPerMs);
    EXPECT_FALSE(P.App.Outputs.MidiOutput.MIDIOutIsOpen);
}

TEST_F(MidiOutputTest, DuringTheProgramsEndNoDeviceIsScannedOrOpened) {
    Fields.State.ShuttingDown = true;
    P.App.Log.Enable();
    Midi.SetUpComboBox();
    Midi.OpenOutputDevice();
    EXPECT_EQ(P.LogText(),
              "    MIDIOutForm.SetUpComboBox() - START\n"
              "    Shutting down, or MIDI Out already open - exiting sub\n"
              "    MIDIOutForm.SetUpComboBox() - END\n\n"
              "MIDIOutForm.OpenOutputDevice() - START\n"
              "Shutting down, or MIDI Out already open - exiting sub\n");
    EXPECT_EQ(Sent(), "");
}

TEST_F(MidiOutputTest, ANoteSoundsOnThePortamentoToo) {
    SwitchOn();
    Fields.Mods.UsePorta.Ticked = true;
    Beep("A4", 100);
    P.Time.RunUntil(200);
    EXPECT_EQ(Sent(), "0.0000 midi out 90 39 60\n0.0000 midi out 80 39 00\n")
        << "the glide returns at once, and so the note ends";
}

TEST_F(MidiOutputTest, ANoteSoundsOnTheSoundCardTooAndTheMotorComesFirst) {
    SwitchOn();
    Fields.Mods.UseFMOD.InUse = true;
    Beep("A4", 100);
    EXPECT_EQ(Sent(), "0.0000 midi out 90 39 60\n0.1000 midi out 80 39 00\n");
    P.Timeline.Clear();
    Fields.Mods.UseMotor.Ticked = true;
    Beep("A4", 100);
    EXPECT_EQ(P.Timeline.Text("midi out"), "0.1000 midi out 90 39 60\n0.2150 midi out 80 39 00\n");
    EXPECT_NE(P.Timeline.Text().find("0.1000 serial #0P1294"), std::string::npos);
}

TEST_F(MidiOutputTest, ANoteInsideANoteHasItsOwnNoteOnAndNoteOff) {
    SwitchOn();
    Fields.Output.MutePCSpeaker = true;
    P.Time.At(40, [&] { Beep("C5", 20); });
    Beep("A4", 100);
    EXPECT_EQ(Sent(),
              "0.0000 midi out 90 39 60\n0.0400 midi out 90 3C 60\n0.0600 midi out 80 3C 00\n"
              "0.1000 midi out 80 39 00\n");
}

}  // namespace
}  // namespace quavix
