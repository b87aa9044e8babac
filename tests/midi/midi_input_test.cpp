// SPDX-License-Identifier: MIT
#include "midi/midi_input.h"

#include <gtest/gtest.h>

#include "midi/cycling_form.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

constexpr MidiMessage On(std::uint8_t note) {
    return {0x90, note, 64};
}

constexpr MidiMessage Off(std::uint8_t note) {
    return {0x80, note, 0};
}

class MidiInputTest : public testing::Test {
  protected:
    MidiInputTest() { P.AttachMidiInputs(); }

    void SwitchOn() {
        Fields.Mods.UseMIDIIn.Ticked = true;
        P.Timeline.Clear();
    }

    std::string Held() const { return test::NotesHeldIn(Midi); }
    std::string Speaker() const { return P.Timeline.Text("speaker"); }

    test::SimulatedProgram P;
    MainFields& Fields = P.App.Fields;
    MidiInput& Midi = P.App.Playing.MidiInput;
};

TEST_F(MidiInputTest, TickingTheBoxShowsTheWindowListsTheDevicesAndOpensTheFirst) {
    Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_TRUE(Midi.MIDIInFormVisible);
    EXPECT_EQ(Midi.MIDIInDevices.Get(), (std::vector<std::string>{"Keyboard", "Drum pad"}));
    EXPECT_EQ(Midi.cmbMIDIInDevice, 0);
    EXPECT_TRUE(P.App.Playing.MidiInput.MIDIInIsOpen);
    EXPECT_TRUE(Midi.AutoTimeCheck);
    EXPECT_EQ(Midi.lblInfoText.Get(), "The device is open (simulated).");
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in opens 0 \"Keyboard\"\n") << "once";
}

TEST_F(MidiInputTest, LogsTheFirstTickAndTheUntick) {
    P.App.Log.Enable();
    Fields.Mods.UseMIDIIn.Ticked = true;
    const std::string log = P.LogText();
    EXPECT_EQ(log.substr(log.find("    MIDIInForm")),
              "    MIDIInForm.SetUpComboBox() - START\n"
              "    Scanning input devices - -1 to 1\n"
              "    DEVICEID:0, PRODUCTNAME:Keyboard\n"
              "    DEVICEID:1, PRODUCTNAME:Drum pad\n"
              "        MIDIInForm.OpenInputDevice() - START\n"
              "        Selected device is \"Keyboard\"\n"
              "        MIDIInForm.OpenInputDevice() - END\n"
              "\n"
              "    MIDIInForm.SetUpComboBox() - END\n"
              "\n"
              "    MIDIInForm.OpenInputDevice() - START\n"
              "    Shutting down, or MIDI In already open - exiting sub\n"
              "    MIDIInForm.OpenInputDevice() - END\n"
              "\n");
    Fields.Mods.UseMIDIIn.Ticked = false;
    EXPECT_EQ(P.LogText().substr(log.size()), "MIDIInForm.CloseInputDevice()\n");
}

TEST_F(MidiInputTest, UntickingTheBoxClosesTheDeviceAndHidesTheWindow) {
    SwitchOn();
    Fields.Mods.UseMIDIIn.Ticked = false;
    EXPECT_FALSE(Midi.MIDIInFormVisible);
    EXPECT_FALSE(P.App.Playing.MidiInput.MIDIInIsOpen);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in closes\n");
}

TEST_F(MidiInputTest, TheMidiFileBoxIsGreyWhileItIsTicked) {
    Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_FALSE(Fields.Mods.UseMIDIFile.Enabled);
    Fields.Mods.UseMIDIIn.Ticked = false;
    EXPECT_TRUE(Fields.Mods.UseMIDIFile.Enabled);
}

TEST_F(MidiInputTest, WithoutItsControlTheBoxDoesNotStayTicked) {
    P.Disk.Delete("/windows/system32/midiio32.ocx");
    Fields.Mods.UseMIDIIn.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown().back().Title, "Can't see a needed file!");
    EXPECT_FALSE(Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(Midi.MIDIInFormVisible);
    EXPECT_TRUE(Fields.Mods.UseMIDIFile.Enabled);
    P.Time.RunUntil(100);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "20") << "no cycle runs";
}

TEST_F(MidiInputTest, AControlThatCannotBeLoadedIsReported) {
    P.MidiIn.LoadProblem = "It is not a library.";
    Fields.Mods.UseMIDIIn.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_NE(P.Boxes.Shown().back().Text.find("It is not a library."), std::string::npos);
    EXPECT_FALSE(Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(Midi.MIDIInFormVisible);
}

TEST_F(MidiInputTest, WithoutDevicesAMessageIsShownOnceAndTheBoxGreyedOut) {
    P.MidiIn.Devices = {};
    P.App.Log.Enable();
    Fields.Mods.UseMIDIIn.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown().back().Title, "Can't use MIDI input!");
    EXPECT_EQ(P.Boxes.Shown().back().Text,
              "No MIDI input device can be found - can't use MIDI input.\r\n\r\n"
              "If you're simply trying to play a MIDI file through this program, please use the "
              "'Play a MIDI file' checkbox instead.");
    EXPECT_EQ(P.Boxes.Shown().back().Icon, BoxIcon::Warning);
    EXPECT_FALSE(Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(Fields.Mods.UseMIDIIn.Enabled);
    EXPECT_TRUE(Fields.Mods.UseMIDIFile.Enabled);
    EXPECT_FALSE(Midi.MIDIInFormVisible);
    EXPECT_FALSE(P.App.Playing.MidiInput.MIDIInIsOpen);
    const std::string log = P.LogText();
    EXPECT_NE(log.find("No MIDI input devices - exiting sub\n"), std::string::npos);
    EXPECT_NE(log.find("Selected device is \"\"\n"
                       "    Can't open non-existing device - showing 'No MIDI input' message.\n"),
              std::string::npos);
    P.Time.RunUntil(100);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "20") << "the timer is disabled";
}

TEST_F(MidiInputTest, ADeviceThatDoesNotOpenIsReportedAndStopsTheMusic) {
    P.MidiIn.OpenProblem = "It is in use.";
    Fields.State.MusicIsPlaying = true;
    P.App.Log.Enable();
    Fields.Mods.UseMIDIIn.Ticked = true;
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown().back().Title, "Can't use MIDI in");
    EXPECT_EQ(P.Boxes.Shown().back().Text,
              "Couldn't initialize the MIDI input device which you chose to use.");
    EXPECT_FALSE(Fields.State.MusicIsPlaying);
    EXPECT_TRUE(P.App.Playing.MidiInput.MIDIInIsOpen) << "until it is closed";
    EXPECT_EQ(Midi.lblInfoText.Get(), "It is in use.");
    EXPECT_NE(P.LogText().find("Couldn't open device\n"), std::string::npos);
    EXPECT_NE(P.LogText().find("MainForm.MusicIsPlaying -> FALSE\n"), std::string::npos);
    P.MidiIn.OpenProblem = "";
    Midi.cmbMIDIInDevice_Click(1);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.MidiIn.State(), MidiDeviceState::Open);
}

TEST_F(MidiInputTest, ChoosingADeviceClosesTheOtherAndOpensIt) {
    SwitchOn();
    Midi.cmbMIDIInDevice_Click(1);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in closes\n0.0000 midi in opens 1 \"Drum pad\"\n");
    EXPECT_TRUE(P.App.Playing.MidiInput.MIDIInIsOpen);
}

TEST_F(MidiInputTest, AnotherDeviceDoesNotInheritHeldNotes) {
    SwitchOn();
    P.MidiIn.ArriveAt(10, {On(60)});
    P.Time.RunUntil(20);
    EXPECT_EQ(Held(), "60 ");
    Midi.cmbMIDIInDevice_Click(1);
    EXPECT_EQ(Held(), "");
}

TEST_F(MidiInputTest, DevicesThatAppearLaterAreFoundWhenTheListIsOpened) {
    SwitchOn();
    Midi.cmbMIDIInDevice_Click(1);
    P.Timeline.Clear();
    P.MidiIn.Devices = {"Organ", "Keyboard", "Drum pad"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.MIDIInDevices.Get(), (std::vector<std::string>{"Organ", "Keyboard", "Drum pad"}));
    EXPECT_EQ(Midi.cmbMIDIInDevice, 2) << "the chosen one stays so";
    EXPECT_EQ(P.Timeline.Text(), "") << "and open";
    P.MidiIn.Devices = {"Organ"};
    Midi.FindDevices();
    EXPECT_EQ(Midi.cmbMIDIInDevice, -1);
    Midi.cmbMIDIInDevice_Click(0);
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in closes\n0.0000 midi in opens 0 \"Organ\"\n");
}

TEST_F(MidiInputTest, DevicesOfOneNameKeepTheirPlaces) {
    P.MidiIn.Devices = {"Keyboard", "Keyboard"};
    SwitchOn();
    Midi.cmbMIDIInDevice_Click(1);
    Midi.FindDevices();
    EXPECT_EQ(Midi.cmbMIDIInDevice, 1);
}

TEST_F(MidiInputTest, TickingAgainOpensTheChosenDeviceAtItsNewPlace) {
    SwitchOn();
    Midi.cmbMIDIInDevice_Click(1);
    Fields.Mods.UseMIDIIn.Ticked = false;
    P.MidiIn.Devices = {"Organ", "Keyboard", "Drum pad"};
    P.Timeline.Clear();
    Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in opens 2 \"Drum pad\"\n");
    Fields.Mods.UseMIDIIn.Ticked = false;
    P.MidiIn.Devices = {"Organ"};
    P.Timeline.Clear();
    Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in opens 0 \"Organ\"\n") << "or else the first";
}

TEST_F(MidiInputTest, HeldNotesSoundInTurnUntilTheyAreReleased) {
    SwitchOn();
    P.MidiIn.ArriveAt(20, {On(60), On(64), On(67)});
    P.MidiIn.ArriveAt(75, {Off(60), Off(64)});
    P.MidiIn.ArriveAt(95, {Off(67)});
    P.Time.RunUntil(150);
    // An idle cycle ticks every 15 ms; three notes get 10 ms each.
    EXPECT_EQ(Speaker(),
              "0.0320 speaker 523 Hz 10 ms\n"
              "0.0420 speaker 659 Hz 10 ms\n"
              "0.0520 speaker 784 Hz 10 ms\n"
              "0.0620 speaker 523 Hz 10 ms\n"
              "0.0720 speaker 659 Hz 10 ms\n"
              "0.0820 speaker 784 Hz 15 ms\n");
}

TEST_F(MidiInputTest, TheTimerTicksAsLongAsTheBoxIsTicked) {
    Fields.Mods.UseMIDIIn.Ticked = true;
    P.Time.RunUntil(10);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "15") << "with the automatic time";
    Fields.Mods.UseMIDIIn.Ticked = false;
    Fields.Song.AlternateTime.Type("40");
    P.Time.RunUntil(200);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "40");
    Fields.Mods.UseMIDIIn.Ticked = true;
    P.Time.RunUntil(220);
    EXPECT_EQ(Fields.Song.AlternateTime.Text(), "15") << "and again";
}

TEST_F(MidiInputTest, MessagesChangeTheTableOnlyAndTheTimerSounds) {
    SwitchOn();
    P.MidiIn.ArriveAt(1, {On(60)});
    P.Time.RunUntil(1.5);
    EXPECT_EQ(Held(), "60 ");
    EXPECT_EQ(Speaker(), "");
    P.Time.RunUntil(2);
    EXPECT_EQ(Speaker(), "0.0020 speaker 523 Hz 15 ms\n");
}

TEST_F(MidiInputTest, TheProgramSoundsForAsLongAsNotesAreHeld) {
    SwitchOn();
    EXPECT_FALSE(P.App.IsSounding());
    P.MidiIn.ArriveAt(1, {On(60)});
    P.MidiIn.ArriveAt(100, {Off(60)});
    P.Time.RunUntil(50);
    EXPECT_TRUE(P.App.IsSounding()) << "also between two pulses";
    P.Time.RunUntil(200);
    EXPECT_FALSE(P.App.IsSounding());
}

TEST_F(MidiInputTest, ANoteOnOfVelocityZeroReleasesTheNote) {
    SwitchOn();
    P.MidiIn.ArriveAt(1, {On(60), On(62), {0x90, 60, 0}});
    P.Time.RunUntil(1);
    EXPECT_EQ(Held(), "62 ");
}

TEST_F(MidiInputTest, OtherMessagesAreIgnored) {
    SwitchOn();
    P.MidiIn.ArriveAt(1,
                      {On(60), {0xC0, 60, 0}, {0xB0, 60, 0}, {0xE0, 60, 0}, {0xA0, 61, 64}, {0xD0, 61, 0}});
    P.Time.RunUntil(1);
    EXPECT_EQ(Held(), "60 ");
}

TEST_F(MidiInputTest, UntickedChannelsAreNotListenedTo) {
    SwitchOn();
    Midi.ListenChannelCheck[9] = false;
    P.MidiIn.ArriveAt(1, {{0x99, 36, 64}, {0x98, 40, 64}});
    P.Time.RunUntil(1);
    EXPECT_EQ(Held(), "40 ");
}

TEST_F(MidiInputTest, WithPlayOnlyOnceANoteSoundsOnce) {
    SwitchOn();
    Midi.OnlyOnceCheck = true;
    P.MidiIn.ArriveAt(1, {On(60)});
    P.MidiIn.ArriveAt(50, {On(60)});
    P.MidiIn.ArriveAt(100, {Off(60), On(60)});
    P.Time.RunUntil(200);
    EXPECT_EQ(Speaker(), "0.0020 speaker 523 Hz 15 ms\n0.1070 speaker 523 Hz 15 ms\n");
}

TEST_F(MidiInputTest, LostMessagesReleaseAllNotes) {
    SwitchOn();
    P.MidiIn.ArriveAt(1, {On(60), On(64)});
    P.MidiIn.LoseAt(10);
    P.MidiIn.ArriveAt(20, {On(67)});
    P.Time.RunUntil(5);
    EXPECT_EQ(Held(), "60 64 ");
    P.Time.RunUntil(15);
    EXPECT_EQ(Held(), "");
    P.Time.RunUntil(25);
    EXPECT_EQ(Held(), "67 ") << "what came later is heard";
    EXPECT_TRUE(P.Boxes.Shown().empty());
}

TEST_F(MidiInputTest, ADeviceThatIsUnpluggedReleasesItsNotesIsReportedOnceAndCanBeOpenedAgain) {
    SwitchOn();
    P.MidiIn.ArriveAt(1, {On(60), On(64)});
    P.MidiIn.VanishAt(40);
    P.Time.RunUntil(300);
    EXPECT_EQ(Held(), "");
    EXPECT_EQ(Midi.lblHeldCount.Get(), " (0)");
    ASSERT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_EQ(P.Boxes.Shown().back().Text,
              "The MIDI input device \"Keyboard\" is gone.\r\n\r\n"
              "(Once it is there again, choose it in the list of devices.)");
    EXPECT_TRUE(Fields.Mods.UseMIDIIn.Ticked) << "the window with the list stays";
    P.Timeline.Clear();
    Midi.FindDevices();
    Midi.cmbMIDIInDevice_Click(0);
    P.MidiIn.ArriveAt(310, {On(67)});
    P.Time.RunUntil(330);
    EXPECT_EQ(Held(), "67 ");
    EXPECT_FALSE(Speaker().empty());
    P.MidiIn.VanishAt(340);
    P.Time.RunUntil(400);
    EXPECT_EQ(P.Boxes.Shown().size(), 2U) << "once each time";
}

TEST_F(MidiInputTest, NotesSentBeforeTheDeviceVanishedAreReleased) {
    SwitchOn();
    P.MidiIn.VanishAt(5);
    P.MidiIn.ArriveAt(5, {On(60)});
    P.Time.RunUntil(10);
    EXPECT_EQ(Held(), "");
}

TEST_F(MidiInputTest, AfterUntickingWithAVanishedDeviceItCanBeTickedAgain) {
    SwitchOn();
    P.MidiIn.VanishAt(5);
    P.Time.RunUntil(10);
    Fields.Mods.UseMIDIIn.Ticked = false;
    P.MidiIn.Devices = {"Drum pad"};
    P.Timeline.Clear();
    Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_EQ(P.Timeline.Text(), "0.0100 midi in opens 0 \"Drum pad\"\n");
}

TEST_F(MidiInputTest, ClosingTheProgramClosesTheDevice) {
    SwitchOn();
    P.App.ReleaseMidi();
    EXPECT_EQ(P.Timeline.Text(), "0.0000 midi in closes\n");
    P.App.ReleaseMidi();
    EXPECT_EQ(P.Timeline.Lines().size(), 1U);
}

TEST_F(MidiInputTest, WhileTheProgramClosesNothingIsOpened) {
    Fields.State.ShuttingDown = true;
    P.App.Log.Enable();
    Midi.SetUpComboBox();
    const std::string log = P.LogText();
    EXPECT_EQ(log,
              "    MIDIInForm.SetUpComboBox() - START\n"
              "    Shutting down, or MIDI In already open - exiting sub\n"
              "    MIDIInForm.SetUpComboBox() - END\n"
              "\n");
    Midi.OpenInputDevice();
    EXPECT_NE(P.LogText().find("    Shutting down, or MIDI In already open - exiting sub\n", log.size()),
              std::string::npos);
    EXPECT_EQ(P.Timeline.Text(), "");
}

TEST_F(MidiInputTest, AStartAskedForInTheMiddleOfAPulseComesWhileNotesAreHeld) {
    P.SetSong({"Quarter A4 - -"});
    Fields.Output.MuteTweebleCheck = true;
    P.App.Outputs.ToneDispatcher.MuteTweebleCheck_Click();
    P.App.Playing.SynchroPlay.txtHour.Type("12");
    P.App.Playing.SynchroPlay.txtMinute.Type("0");
    P.App.Playing.SynchroPlay.txtSecond.Type("2");
    double startMs = 0;
    Fields.State.MusicIsPlaying.Watch([&](bool playing) {
        if (playing)
            startMs = static_cast<double>(P.Time.Now()) / SimulatedTime::CountsPerMs;
    });
    P.App.Playing.PlaybackEngine.OnRangeEnd = [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); };
    SwitchOn();
    P.MidiIn.ArriveAt(1, {On(60), On(64)});
    P.Time.At(100, [this] {
        EXPECT_TRUE(P.App.Outputs.ToneDispatcher.IsSounding());
        P.App.Playing.SynchroPlay.btnWait_Click();
    });
    P.Time.RunUntil(5000);
    EXPECT_NEAR(startMs, 2000, 15);
}

// The same chord through every output.

TEST_F(MidiInputTest, ThroughTheSoundCardAChordGoesOnWithoutAGapAndStopsWhenItIsReleased) {
    P.StartSound();
    Fields.Mods.UseFMOD.Ticked = true;
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(69), On(57)});
    P.MidiIn.ArriveAt(40, {Off(69), Off(57)});
    P.Time.RunUntil(50);
    EXPECT_EQ(P.Timeline.Text("fmod"),
              "0.0020 fmod FMOD_Channel_SetFrequency(channel1, 5277.888)\n"
              "0.0020 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0170 fmod FMOD_Channel_SetFrequency(channel1, 10555.776)\n"
              "0.0170 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0320 fmod FMOD_Channel_SetFrequency(channel1, 5277.888)\n"
              "0.0320 fmod FMOD_Channel_SetPaused(channel1, 0)\n"
              "0.0470 fmod FMOD_Channel_SetPaused(channel1, 1)\n");
}

TEST_F(MidiInputTest, UntickingTheBoxSilencesTheSoundCardAtOnce) {
    P.StartSound();
    Fields.Mods.UseFMOD.Ticked = true;
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(57)});
    P.Time.RunUntil(5);
    P.Timeline.Clear();
    Fields.Mods.UseMIDIIn.Ticked = false;
    P.Time.RunUntil(100);
    EXPECT_EQ(P.Timeline.Text(), "0.0050 fmod FMOD_Channel_SetPaused(channel1, 1)\n0.0050 midi in closes\n");
}

TEST_F(MidiInputTest, ThroughMidiOutputEachPulseIsANote) {
    P.OpenMidiOut();
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(60), On(64)});
    P.MidiIn.ArriveAt(20, {Off(60), Off(64)});
    P.Time.RunUntil(50);
    EXPECT_EQ(P.Timeline.Text("midi out"),
              "0.0020 midi out 90 3C 60\n0.0170 midi out 80 3C 00\n"
              "0.0170 midi out 90 40 60\n0.0320 midi out 80 40 00\n");
}

TEST_F(MidiInputTest, WithAMutedSpeakerPulsesFollowOneAnotherWithoutAGapToo) {
    P.OpenMidiOut();
    Fields.Output.MuteTweebleCheck = true;
    P.App.Outputs.ToneDispatcher.MuteTweebleCheck_Click();
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(60), On(64)});
    P.MidiIn.ArriveAt(40, {Off(60), Off(64)});
    P.Time.RunUntil(60);
    EXPECT_EQ(P.Timeline.Text("midi out 9"),
              "0.0020 midi out 90 3C 60\n0.0170 midi out 90 40 60\n0.0320 midi out 90 3C 60\n");
}

TEST_F(MidiInputTest, ThroughTheMotorAChordIsAChangeOfSpeeds) {
    Fields.Mods.UseMotor.Ticked = true;
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(60), On(64)});
    P.MidiIn.ArriveAt(40, {Off(60), Off(64)});
    P.Time.RunUntil(100);
    EXPECT_NE(P.Timeline.Text("serial").find("#0P1260"), std::string::npos) << P.Timeline.Text("serial");
    EXPECT_NE(P.Timeline.Text("serial").find("#0P1217"), std::string::npos);
    EXPECT_NE(P.Timeline.Text("serial").find("#0p1470"), std::string::npos) << "stopped in the end";
}

TEST_F(MidiInputTest, ThroughThePortamentoTheSpeakerGlidesFromPulseToPulse) {
    Fields.Mods.UsePorta.Ticked = true;
    SwitchOn();
    P.MidiIn.ArriveAt(0.5, {On(57), On(69)});
    P.Time.RunUntil(100);
    const std::string speaker = Speaker();
    EXPECT_NE(speaker.find("440 Hz 30 ms"), std::string::npos) << speaker;
    EXPECT_NE(speaker.find("550 Hz 30 ms"), std::string::npos) << speaker;
}

TEST_F(MidiInputTest, AFailingStepSwitchesTheModOff) {
    P.Disk.Put("/program/tonecode.txt", "");
    P.App.Outputs.ToneCode.UseWriteCode = true;
    SwitchOn();
    P.Disk.FailWriting("/program/tonecode.txt", std::errc::no_space_on_device);
    P.MidiIn.ArriveAt(0.5, {On(60)});
    P.Time.RunUntil(300);
    EXPECT_EQ(P.Boxes.Shown().size(), 1U);
    EXPECT_FALSE(Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(P.App.Playing.MidiInput.MIDIInIsOpen);
}

TEST_F(MidiInputTest, NotesSoundInTheMiddleOfMusicToo) {
    P.SetSong({"Quarter A4 - -"});
    SwitchOn();
    P.MidiIn.ArriveAt(100, {On(81)});
    P.MidiIn.ArriveAt(1000, {Off(81)});
    P.Time.At(1200, [this] { P.App.Playing.PlaybackEngine.StopPlayButton_Click(); });
    P.App.Playing.PlaybackEngine.PlayAllButton_Click();
    EXPECT_NE(Speaker().find("440 Hz"), std::string::npos);
    EXPECT_NE(Speaker().find("1760 Hz"), std::string::npos);
}

}  // namespace
}  // namespace quavix
