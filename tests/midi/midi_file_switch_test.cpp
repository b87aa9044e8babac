// SPDX-License-Identifier: MIT
// The check box that switches the playback of MIDI files on and off.
#include <gmock/gmock.h>

#include "midi/midi_file_program.h"

namespace quavix::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* ControlFile = "/windows/system32/midifl32.ocx";

/// The program with the control for MIDI files installed.
struct InstalledProgram : SimulatedProgram {
    InstalledProgram() { Disk.Put(ControlFile, "the control"); }
};

/// Without the blanks in front of the lines and without empty lines.
std::string Unindented(const std::string& log) {
    std::string text;
    bool begins = true;
    for (const char c : log) {
        if (begins && (c == ' ' || c == '\n'))
            continue;
        begins = c == '\n';
        text += c;
    }
    return text;
}

TEST(MidiFileSwitch, TickingShowsTheWindowAndDisablesMidiInput) {
    InstalledProgram p;
    p.App.Log.Enable();
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_TRUE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.InUse);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIIn.Enabled);
    EXPECT_TRUE(p.App.Playing.MidiFilePlayback.AutoTimeCheck);
    const std::string log = Unindented(p.LogText());
    EXPECT_THAT(log, testing::StartsWith("UseMIDIFileCheck has been clicked - START\n"
                                         "Value is 1\n"
                                         "Checking 'midifl32.ocx' exists in system32\n"
                                         "CopyFileToSystem32(midifl32.ocx) - START\n"));
    EXPECT_THAT(log, testing::EndsWith("CopyFileToSystem32() - END\n"
                                       "Showing MIDIFileForm\n"
                                       "MIDIFileForm.Form_Load() - START\n"
                                       "MIDIFileForm.Form_Load() - END\n"
                                       "Disabling UseMIDIInCheck\n"
                                       "UseMIDIFileCheck has been clicked - END\n"));
    EXPECT_EQ(p.App.Log.LogIndent(), 0);
}

TEST(MidiFileSwitch, UntickingHidesTheWindowAndEnablesMidiInput) {
    MidiFileProgram p;
    p.App.Log.Enable();
    p.App.Fields.Mods.UseMIDIFile.Ticked = false;
    EXPECT_FALSE(p.Form.MIDIFileFormVisible);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIFile.InUse);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIIn.Enabled);
    EXPECT_EQ(Unindented(p.LogText()),
              "UseMIDIFileCheck has been clicked - START\n"
              "Value is 0\n"
              "UseMIDIFileCheck has been clicked - END\n");
}

TEST(MidiFileSwitch, TheWindowIsLoadedOnce) {
    MidiFileProgram p;
    p.App.Fields.Mods.UseMIDIFile.Ticked = false;
    p.App.Log.Enable();
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_THAT(p.LogText(), testing::Not(HasSubstr("Form_Load")));
}

TEST(MidiFileSwitch, UntickingStopsPlaybackAndTickingLetsItResume) {
    MidiFileProgram p;
    p.Open(MidiSong({{0, NoteOnOf(60)}, {40, NoteOffOf(60)}, {300, NoteOnOf(64)}, {330, NoteOffOf(64)}}));
    p.PlayAt(0);
    p.Time.At(60, [&] { p.App.Fields.Mods.UseMIDIFile.Ticked = false; });
    p.TonesUntil(100);
    EXPECT_FALSE(p.Form.IsPlaying());
    EXPECT_EQ(p.TonesUntil(500), "");
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_EQ(p.Position(), "40.00% 00:00.30");
    p.PlayAt(1000);
    EXPECT_EQ(p.TonesUntil(1030), "1.0150 speaker 659 Hz 15 ms\n");
}

TEST(MidiFileSwitch, UntickingBeforePlayingKeepsTheAlternateTime) {
    MidiFileProgram p;
    p.App.Fields.Mods.UseMIDIFile.Ticked = false;
    EXPECT_EQ(p.App.Fields.Song.AlternateTime.Text(), "20");
}

TEST(MidiFileSwitch, WithoutTheControlNothingIsSwitchedOn) {
    SimulatedProgram p;
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Can't see a needed file!");
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIFile.Ticked);
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIIn.Enabled);
}

TEST(MidiFileSwitch, TheFirstUseInstallsTheControl) {
    SimulatedProgram p;
    p.Disk.Put("/program/midifl32.ocx", "the control");
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_EQ(p.Disk.Content(ControlFile), "the control");
    EXPECT_TRUE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
    EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
}

TEST(MidiFileSwitch, TheProgramClosedWhileTheControlRegistersShowsNothing) {
    SimulatedProgram p;
    p.Disk.Put("/program/midifl32.ocx", "the control");
    p.Time.At(50, [&] { p.App.Fields.State.ShuttingDown = true; });
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
    EXPECT_THAT(p.Boxes.Shown(), IsEmpty());
}

TEST(MidiFileSwitch, UntickingWhileTheControlRegistersKeepsItOff) {
    SimulatedProgram p;
    p.Disk.Put("/program/midifl32.ocx", "the control");
    p.Time.At(50, [&] { p.App.Fields.Mods.UseMIDIFile.Ticked = false; });
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIIn.Enabled);
}

TEST(MidiFileSwitch, TickingItWhileMidiInputIsInstalledSwitchesMidiInputOff) {
    InstalledProgram p;
    p.Disk.Put("/program/midiio32.ocx", "the other control");
    p.MidiIn.Devices = {"Keyboard"};
    p.Time.At(50, [&] { p.App.Fields.Mods.UseMIDIFile.Ticked = true; });
    p.App.Fields.Mods.UseMIDIIn.Ticked = true;
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.InUse);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.Enabled);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIIn.Enabled);
    EXPECT_FALSE(p.App.Playing.MidiInput.MIDIInIsOpen);
    EXPECT_FALSE(p.App.Playing.MidiInput.MIDIInFormVisible);
}

TEST(MidiFileSwitch, TickingMidiInputWhileItIsInstalledSwitchesItOff) {
    SimulatedProgram p;
    p.Disk.Put("/program/midifl32.ocx", "the control");
    p.Disk.Put("/windows/system32/midiio32.ocx", "the other control");
    p.MidiIn.Devices = {"Keyboard"};
    p.Time.At(50, [&] { p.App.Fields.Mods.UseMIDIIn.Ticked = true; });
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    EXPECT_TRUE(p.App.Playing.MidiInput.MIDIInIsOpen);
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIIn.Enabled);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIFile.Ticked);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIFile.Enabled);
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
}

TEST(MidiFileSwitch, AFileOnTheCommandLineSwitchesMidiInputOff) {
    InstalledProgram p;
    p.Disk.Put("/windows/system32/midiio32.ocx", "the other control");
    p.MidiIn.Devices = {"Keyboard"};
    p.App.Fields.Mods.UseMIDIIn.Ticked = true;
    p.App.Playing.MidiFilePlayback.UseFile("song.mid");
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.InUse);
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIIn.Ticked);
    EXPECT_FALSE(p.App.Playing.MidiInput.MIDIInIsOpen);
}

TEST(MidiFileSwitch, ABrokenControlIsReported) {
    SimulatedProgram p;
    p.Disk.Put(ControlFile, "no library");
    p.MidiFiles.LoadProblem = "It is no library.";
    p.App.Fields.Mods.UseMIDIFile.Ticked = true;
    ASSERT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_THAT(p.Boxes.Shown()[0].Text, HasSubstr("It is no library."));
    EXPECT_FALSE(p.App.Fields.Mods.UseMIDIFile.Ticked);
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.MIDIFileFormVisible);
}

TEST(MidiFileSwitch, AFileOnTheCommandLineSwitchesItOnAndIsOpened) {
    SimulatedProgram p;
    ModuleMidiFileReader reader(QUAVIX_MIDI_FILE_MODULE);
    p.MidiFiles.Real = &reader;
    p.Disk.Put(ControlFile, "the control");
    p.Disk.Put("song.mid", test::TwoNotes);
    p.App.Playing.MidiFilePlayback.UseFile("song.mid");
    EXPECT_TRUE(p.App.Fields.Mods.UseMIDIFile.Ticked);
    EXPECT_EQ(p.App.Playing.MidiFilePlayback.txtFile.Get(), "song.mid");
    EXPECT_FALSE(p.App.Playing.MidiFilePlayback.IsPlaying());
}

TEST(MidiFileSwitch, AFileOnTheCommandLineIsNotOpenedIfTheModCannotBeSwitchedOn) {
    SimulatedProgram p;
    p.Disk.Put("song.mid", test::TwoNotes);
    p.App.Playing.MidiFilePlayback.UseFile("song.mid");
    EXPECT_EQ(p.Boxes.Shown().size(), 1U);
    EXPECT_EQ(p.App.Playing.MidiFilePlayback.txtFile.Get(), "");
}

}  // namespace
}  // namespace quavix::test
