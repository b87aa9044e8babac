// SPDX-License-Identifier: MIT
#include "app/start_up.h"

#include <gtest/gtest.h>

#include "songfile/song_text.h"
#include "support/simulated_program.h"

namespace quavix {
namespace {

/// A system whose processes can't be opened.
struct NoProcesses : Processes {
    std::int32_t CurrentProcessId() override { return 100; }
    std::int32_t WindowProcessId(std::intptr_t) override { return 0; }
    ProcessHandle Open(std::uint32_t, std::int32_t processId) override {
        Opened += std::to_string(processId) + " ";
        return 0;
    }
    bool SetPriorityClass(ProcessHandle, std::int32_t) override { return false; }
    std::int32_t GetPriorityClass(ProcessHandle) override { return 0; }
    void Close(ProcessHandle) override {}
    std::string Opened;
};

struct Started : test::SimulatedProgram {
    void Start(const std::string& commandLine) {
        StartUp startUp(
            {App.Fields, Time, Disk, Boxes, System, Speaker, App.Outputs.SoundMods, App.Handlers, App.Log,
             [this](const std::string& song) {
                 Loaded += song;
                 App.Storage.SongDocument.LoadFile(song);
             },
             [this](bool songIsLoaded) { Offered = songIsLoaded ? "told" : "offered"; },
             [this] { App.Outputs.MotorModModule.CheckForPort(); },
             [this](const std::string& file) { MidiFile += file; }},
            {"/program", "/windows", commandLine});
        startUp.BeforeMainForm();
        startUp.AfterMainForm();
        startUp.OfferUnsavedSongs();
    }
    NoProcesses System;
    std::string Loaded;
    std::string MidiFile;
    std::string Offered;
};

TEST(StartUp, OrdinarilyShowsNothing) {
    Started p;
    p.Start("");
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_FALSE(p.App.Log.Enabled());
    EXPECT_FALSE(p.App.Fields.UseWriteCode);
    EXPECT_EQ(p.App.Fields.TickFreq.Units(), SimulatedTime::CountsPerSecond);
    EXPECT_EQ(p.Loaded, "");
}

TEST(StartUp, AMidiFileIsOpenedAsSuchAndIsNoSong) {
    Started p;
    p.Disk.Put("/music/tune.mid", "anything");
    p.Start("/music/tune.mid");
    EXPECT_EQ(p.MidiFile, "/music/tune.mid");
    EXPECT_EQ(p.Loaded, "");
    EXPECT_EQ(p.Offered, "offered");
}

TEST(StartUp, LogsItsStepsInOrder) {
    Started p;
    p.Disk.Put("/program/logenable", "");
    p.Start("\"/music/my song.QVX\"");
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
    EXPECT_EQ(p.System.Opened, "1 1 ");
}

TEST(StartUp, AToneCodeFileSwitchesToneCodeOnAndSaysSo) {
    Started p;
    p.Disk.Put("/program/tonecode.txt", "");
    p.Start("");
    EXPECT_TRUE(p.App.Fields.UseWriteCode);
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Writing of tone/silence code is enabled");
    EXPECT_EQ(p.Boxes.Shown()[0].Icon, BoxIcon::Information);
}

TEST(StartUp, LoadsTheSongOnTheCommandLine) {
    Started p;
    p.Disk.Put("/music/my song.QVX", std::string(SongHeader));
    p.Start("\"/music/my song.QVX\"");
    EXPECT_EQ(p.Loaded, "/music/my song.QVX");
    EXPECT_EQ(p.Offered, "told");
    EXPECT_TRUE(p.Boxes.Shown().empty());
}

TEST(StartUp, ASongThatCannotBeReadDoesNotKeepTheRestFromStarting) {
    Started p;
    p.Disk.Put("/music/song.QVX", "");
    p.Disk.FailReading("/music/song.QVX", std::errc::permission_denied);
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Start("/music/song.QVX");
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_TRUE(p.Boxes.Shown()[0].Text.starts_with("Run-time error '70':"));
    EXPECT_TRUE(p.App.Fields.UseFMODCheckEnabled);
    EXPECT_TRUE(p.App.Fields.UseVoiceCheckEnabled);
    EXPECT_EQ(p.System.Opened, "1 1 ");
    EXPECT_EQ(p.Offered, "told");
}

TEST(StartUp, ACommandLineThatIsNoFileIsShownAsItWasGiven) {
    Started p;
    p.Start("\"no such\" file");
    EXPECT_EQ(p.Loaded, "");
    EXPECT_EQ(p.Offered, "offered");
    ASSERT_EQ(p.Boxes.Shown().size(), 1u);
    EXPECT_EQ(p.Boxes.Shown()[0].Title, "Can't load the file");
    EXPECT_EQ(p.Boxes.Shown()[0].Icon, BoxIcon::Warning);
    EXPECT_EQ(p.Boxes.Shown()[0].Text,
              "You gave this text to this program as you were starting it:\n"
              "\"no such\" file\n"
              "This program can only try to load text given to it as a file.\n"
              "In other words, it expects that text to be a file name.\n"
              "But that file can't be seen, so it can't load it.");
}

TEST(StartUp, StartsTheSoundLibraryThatLiesBesideTheProgram) {
    Started p;
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Start("");
    EXPECT_TRUE(p.App.Fields.UseFMODCheckEnabled);
    EXPECT_TRUE(p.App.Fields.UseVoiceCheckEnabled);
    EXPECT_NE(p.Timeline.Text("fmod FMOD_System_PlayDSP"), "");
    EXPECT_EQ(p.App.Outputs.SoundMods.Generator.DSPType, 1);
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_FALSE(p.App.Outputs.SoundMods.Singer.IsLoaded()) << "only when it is wanted";
}

TEST(StartUp, AMachineWithoutSoundIsToldOfInOneMessage) {
    Started p;
    p.Disk.Put("/program/logenable", "");
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Library.Fail("FMOD_System_Init", 61);
    p.Library.Fail("FMOD_System_PlayDSP", 78);
    p.Start("");
    EXPECT_EQ(
        p.Boxes.Shown().back().Text,
        "FMOD error! (61) Error initializing output device. \n"
        "FMOD error! (78) This command failed because System::init or System::setDriver was not called. ");
    EXPECT_EQ(p.Boxes.Shown().size(), 2u) << "that, and the notice of the log";
    EXPECT_NE(p.LogText().find("ERRCHECK() found FMOD error 61 (Error initializing output device. )\n"),
              std::string::npos);
    EXPECT_NE(p.LogText().find("ERRCHECK() found FMOD error 78 ("), std::string::npos);
}

TEST(StartUp, ASoundLibraryThatMakesAnErrorDoesNotKeepTheRestFromStarting) {
    Started p;
    p.Disk.Put("/program/FMODex.dll", "a library");
    p.Library.Fail("FMOD_System_SetDSPBufferSize", 37);
    p.Library.BufferLength = 65536;
    p.Library.BufferCount = 32768;
    p.Start("");
    EXPECT_EQ(p.Boxes.Shown().back().Text, "Run-time error '6':\n\nOverflow");
    EXPECT_EQ(p.System.Opened, "1 1 ");
    EXPECT_EQ(p.Offered, "offered");
}

}  // namespace
}  // namespace quavix
