// SPDX-License-Identifier: MIT
#include "app/desktop_program.h"

#include <gtest/gtest.h>

#include "shell/runtime_error.h"
#include "songfile/song_format.h"
#include "support/simulated_desktop.h"

namespace quavix {
namespace {

/// A program whose system lets nobody open a process.
struct Started : test::SimulatedDesktop {
    explicit Started(const std::string& commandLine) : SimulatedDesktop(commandLine) {
        System.RefuseRights = UINT32_MAX;
    }

    /// An earlier process has left a song behind, which the user keeps for the next start when asked.
    void LeaveSongBehind() {
        Disk.Put("/state/unsaved-001.QVX", std::string(SongHeader));
        Boxes.AnswerNext(BoxAnswer::Cancel);
    }
    bool TellsOfSongLeftBehind() const {
        return Boxes.Shown().back().Text.starts_with("Quavix once ended before these songs were saved:");
    }
    bool OffersSongLeftBehind() const {
        return Boxes.Shown().back().Text.starts_with("Quavix ended before this song was saved:");
    }
    std::string LoadedSong() const { return App.Storage.SongDocument.FileName(); }
    bool PriorityIsAskedFor() const { return System.Calls().starts_with("open 1 rights "); }
};

TEST(DesktopProgram, ShowsNoMessageByDefault) {
    Started p("");
    p.Start();
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_FALSE(p.App.Log.Enabled());
    EXPECT_FALSE(p.App.Outputs.ToneCode.UseWriteCode);
    EXPECT_EQ(p.App.Fields.State.TickFreq.Units(), SimulatedTime::CountsPerSecond);
    EXPECT_EQ(p.LoadedSong(), "");
}

TEST(DesktopProgram, AMidiFileIsOpenedAsAMidiFileAndNotAsASong) {
    Started p("/music/tune.mid");
    p.Disk.Put("/music/tune.mid", "anything");
    p.Disk.Put("/windows/system32/midifl32.ocx", "a control");
    p.LeaveSongBehind();
    p.Start();
    EXPECT_EQ(p.App.Playing.MidiFilePlayback.txtFile.Get(), "/music/tune.mid");
    EXPECT_EQ(p.LoadedSong(), "");
    EXPECT_TRUE(p.OffersSongLeftBehind());
}

TEST(DesktopProgram, LogsItsStepsInOrder) {
    Started p("\"/music/my song.QVX\"");
    p.Disk.Put("/program/logenable", "");
    p.Start();
    const std::string version = std::to_string(1) + ".0.0";
    EXPECT_EQ(p.LogText(),
              "[PROGRAM STARTED]\n"
              "App.Path = /program\n"
              "Version info: " +
                  version +
                  "\n"
                  "WinFolder is \"/windows\"\n"
                  "Speaker in use: PC speaker\n"
                  "FileExists(\"/program/tonecode.txt\") = FALSE\n"
                  "UseWriteCode is FALSE\n"
                  "QueryPerformanceFrequency returned 1000 (TickFreq set to this)\n"
                  "Command string given - Command = \"\"/music/my song.QVX\"\"\n"
                  "FileExists(\"/music/my song.QVX\") = FALSE\n"
                  "FileExists(\"/program/FMODex.dll\") = FALSE\n"
                  "FMOD can NOT be used ('fmodex.dll' not seen)\n"
                  "A com port exists\n");
    EXPECT_TRUE(p.PriorityIsAskedFor());
}

TEST(DesktopProgram, AToneCodeFileSwitchesToneCodeOnWithAMessage) {
    Started p("");
    p.Disk.Put("/program/tonecode.txt", "");
    p.Start();
    EXPECT_TRUE(p.App.Outputs.ToneCode.UseWriteCode);
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Writing of tone/silence code is enabled");
    EXPECT_EQ(p.Boxes.Shown()[0].Icon, BoxIcon::Information);
}

TEST(DesktopProgram, LoadsTheSongOnTheCommandLine) {
    Started p("\"/music/my song.QVX\"");
    p.Disk.Put("/music/my song.QVX", std::string(SongHeader));
    p.LeaveSongBehind();
    p.Start();
    EXPECT_EQ(p.LoadedSong(), "/music/my song.QVX");
    EXPECT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_TRUE(p.TellsOfSongLeftBehind());
}

TEST(DesktopProgram, StartUpGoesOnAfterASongThatCannotBeRead) {
    Started p("/music/song.QVX");
    p.Disk.Put("/music/song.QVX", "");
    p.Disk.FailReading("/music/song.QVX", std::errc::permission_denied);
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.LeaveSongBehind();
    p.Start();
    ASSERT_EQ(p.Boxes.Shown().size(), 2u);
    EXPECT_TRUE(p.Boxes.Shown()[0].Text.starts_with("Run-time error '70':"));
    EXPECT_TRUE(p.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_TRUE(p.App.Fields.Mods.UseVoice.Enabled);
    EXPECT_TRUE(p.PriorityIsAskedFor());
    EXPECT_TRUE(p.TellsOfSongLeftBehind());
}

TEST(DesktopProgram, ACommandLineThatNamesNoFileIsShownInAMessage) {
    Started p("\"no such\" file");
    p.LeaveSongBehind();
    p.Start();
    EXPECT_EQ(p.LoadedSong(), "");
    EXPECT_TRUE(p.OffersSongLeftBehind());
    ASSERT_EQ(p.Boxes.Shown().size(), 2u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Can't load the file");
    EXPECT_EQ(p.Boxes.Shown()[0].Icon, BoxIcon::Warning);
    EXPECT_EQ(p.Boxes.Shown()[0].Text,
              "You gave this text to this program as you were starting it:\n"
              "\"no such\" file\n"
              "This program can only try to load text given to it as a file.\n"
              "In other words, it expects that text to be a file name.\n"
              "But that file can't be seen, so it can't load it.");
}

TEST(DesktopProgram, StartsTheSoundLibraryThatLiesBesideTheProgram) {
    Started p("");
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Start();
    EXPECT_TRUE(p.App.Fields.Mods.UseFMOD.Enabled);
    EXPECT_TRUE(p.App.Fields.Mods.UseVoice.Enabled);
    EXPECT_NE(p.Timeline.Text("fmod FMOD_System_PlayDSP"), "");
    EXPECT_EQ(p.App.Outputs.SoundMods.Generator.DSPType, 1);
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_FALSE(p.App.Outputs.SoundMods.Singer.IsLoaded()) << "only when it is wanted";
}

TEST(DesktopProgram, AMachineWithoutSoundIsReportedInOneMessage) {
    Started p("");
    p.Disk.Put("/program/logenable", "");
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Library.Fail("FMOD_System_Init", 61);
    p.Library.Fail("FMOD_System_PlayDSP", 78);
    p.Start();
    EXPECT_EQ(
        p.Boxes.Shown().back().Text,
        "FMOD error! (61) Error initializing output device. \n"
        "FMOD error! (78) This command failed because System::init or System::setDriver was not called. ");
    EXPECT_EQ(p.Boxes.Shown().size(), 2u) << "that, and the notice of the log";
    EXPECT_NE(p.LogText().find("ERRCHECK() found FMOD error 61 (Error initializing output device. )\n"),
              std::string::npos);
    EXPECT_NE(p.LogText().find("ERRCHECK() found FMOD error 78 ("), std::string::npos);
}

TEST(DesktopProgram, StartUpGoesOnAfterAnErrorOfTheSoundLibrary) {
    Started p("");
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Library.Fail("FMOD_System_SetDSPBufferSize", 37);
    p.Library.BufferLength = 65536;
    p.Library.BufferCount = 32768;
    p.LeaveSongBehind();
    p.Start();
    ASSERT_EQ(p.Boxes.Shown().size(), 3u);
    EXPECT_EQ(p.Boxes.Shown()[1].Text, "Run-time error '6':\n\nOverflow");
    EXPECT_TRUE(p.PriorityIsAskedFor());
    EXPECT_TRUE(p.OffersSongLeftBehind());
}

TEST(DesktopProgram, ASongThatIsGivenUpLeavesNoCopyWhenTheUserEndsTheProgram) {
    Started p("");
    p.App.List.Append("Quarter", "C4", "", "");
    p.Time.RunUntil(Recovery::DelayMs);
    EXPECT_TRUE(p.Disk.Has("/state/unsaved-001.QVX"));
    p.Boxes.AnswerNext(BoxAnswer::Cancel);
    p.Desktop.QueryUnload();
    EXPECT_EQ(p.Timeline.Text("process ends"), "");
    p.Boxes.AnswerNext(BoxAnswer::No);
    p.Desktop.QueryUnload();
    EXPECT_NE(p.Timeline.Text("process ends"), "");
    EXPECT_FALSE(p.Disk.Has("/state/unsaved-001.QVX"));
}

TEST(DesktopProgram, ItsEndReleasesTheVoiceThenTheEngineThenMidi) {
    Started p("");
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Start();
    p.App.Fields.Mods.UseVoice.Ticked = true;
    p.OpenMidiOut();
    p.App.Outputs.MidiOutput.MIDIOutIsOpen = true;
    p.App.Log.Enable();
    p.Desktop.CloseProgram();
    EXPECT_EQ(p.Timeline.Text(),
              "0.0000 fmod FMOD_System_Close(system3)\n"
              "0.0000 fmod FMOD_System_Release(system3)\n"
              "0.0000 fmod FMOD_System_Close(system1)\n"
              "0.0000 fmod FMOD_System_Release(system1)\n"
              "0.0000 midi out closes\n"
              "0.0000 process ends\n");
    EXPECT_EQ(p.LogText(),
              "[REQUEST TO CLOSE PROGRAM]\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - START\n"
              "    Closing and releasing FMOD system 'VoiceSystem'\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - END\n"
              "\n"
              "    DoShutDownStuff() - START\n"
              "    Closing and releasing FMOD system 'System'\n"
              "    MIDIOutForm.CloseOutputDevice()\n"
              "    DoShutDownStuff() - END\n"
              "\n"
              "KILLING PROCESS (should be last line in log)\n");
}

TEST(DesktopProgram, EndsTheProcessEvenIfNothingCanBeLogged) {
    Started p("");
    p.App.Log.Enable();
    p.App.List.Append("Quarter", "C4", "", "");
    p.OpenMidiOut();
    p.App.Outputs.MidiOutput.MIDIOutIsOpen = true;
    p.Disk.FailWriting("/program/debuglog.txt", std::errc::no_space_on_device);
    EXPECT_THROW(p.App.ReleaseMidi(), RuntimeError);
    p.Desktop.CloseProgram();
    EXPECT_TRUE(p.Disk.Has("/state/unsaved-001.QVX"));
    EXPECT_NE(p.Timeline.Text("process ends"), "");
}

TEST(DesktopProgram, ASecondRequestDuringTheFirstDoesNothing) {
    SimulatedProcesses system;
    test::SimulatedProgram p;
    int ends = 0;
    std::function<void()> closeAgain;
    DesktopProgram desktop(p.App, {.System = system,
                                   .EndProcess =
                                       [&] {
                                           ++ends;
                                           closeAgain();
                                       },
                                   .StateFolder = "/state",
                                   .CommandLine = {}});
    closeAgain = [&] { desktop.CloseProgram(); };
    desktop.CloseProgram();
    EXPECT_EQ(ends, 1);
    EXPECT_TRUE(p.App.Fields.State.ShuttingDown);
}

}  // namespace
}  // namespace quavix
