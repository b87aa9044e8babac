// SPDX-License-Identifier: MIT
// quavix-render as it is called: what it exits with, and what it leaves.
#include <cmath>
#include <cstdlib>
#include <sys/wait.h>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "support/measure.h"
#include "support/temporary_folder.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

class RenderProgram : public testing::Test {
  protected:
    RenderProgram() {
        Folder.Put("song", "Quavix by Dastrel-204 file format\nBPM 120\nMUSICLISTSTART\nQuarter A4 - -\n");
        Folder.Put("other", "MUSICLISTSTART\nQuarter A4 - -\n");
    }

    /// Runs a shell line in the folder, `$render` being the program; returns its exit status, or 128 and the
    /// signal.
    int Run(const std::string& line) {
        const int status = std::system(fmt::format("cd '{}' && render='{}' && {{ {}; }} 2>errors",
                                                   Folder.Path().string(), QUAVIX_RENDER, line)
                                           .c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    std::string Errors() const { return Folder.Content("errors"); }
    bool HasNothingHalfWritten() { return Run("! ls *.part") == 0; }
    /// Runs a shell line that sends `$signal` to the program. Expects that the signal ends the program, and
    /// that no file is left half written.
    void ExpectInterruptible(const std::string& line) {
        for (const char* signal : {"INT", "TERM", "HUP"}) {
            EXPECT_GT(Run(fmt::format("signal={}; {}", signal, line)), 128) << signal;
            EXPECT_TRUE(HasNothingHalfWritten()) << signal;
        }
    }

    test::TemporaryFolder Folder;
};

TEST_F(RenderProgram, WritesASongAndExitsWith0) {
    EXPECT_EQ(Run("$render song out.wav"), 0);
    EXPECT_EQ(test::ReadWavFile(Folder.File("out.wav"))->Frames(), 510 * 48U);
    EXPECT_EQ(Errors(), "") << "no progress where nobody sees it";
}

TEST_F(RenderProgram, WritesTheOutputsOfTheSoundEngineThatLiesBesideIt) {
    for (const char* output : {"fmod", "fmod --waveform noise", "voice"}) {
        EXPECT_EQ(Run(fmt::format("TMPDIR=$PWD $render --output {} song out.wav", output)), 0) << Errors();
        EXPECT_EQ(test::ReadWavFile(Folder.File("out.wav"))->Frames(), 510 * 48U);
        EXPECT_EQ(Errors(), "");
    }
    EXPECT_EQ(Folder.EntryCount(), 4)
        << "two songs, the sound and the errors: nothing of the engine's is left";
}

TEST_F(RenderProgram, WritesMidiFilesWithTheModuleThatLiesBesideIt) {
    const unsigned char tune[] = {'M',  'T',  'h',  'd',  0,    0,    0, 6, 0,    0,    0, 1,
                                  1,    0xF4, 'M',  'T',  'r',  'k',  0, 0, 0,    13,   0, 0x90,
                                  0x45, 0x60, 0x9F, 0x20, 0x80, 0x45, 0, 0, 0xFF, 0x2F, 0};
    Folder.Put("tune.mid", {reinterpret_cast<const char*>(tune), sizeof tune});
    for (const char* output : {"speaker", "fmod"}) {
        EXPECT_EQ(Run(fmt::format("$render --output {} tune.mid out.wav", output)), 0) << Errors();
        const auto sound = test::ReadWavFile(Folder.File("out.wav"));
        ASSERT_TRUE(sound);
        EXPECT_NEAR(static_cast<double>(sound->Frames()) / sound->SampleRate, 4, 0.05);
        const auto tones = test::FindTones(sound->Samples, sound->SampleRate);
        ASSERT_FALSE(tones.empty());
        EXPECT_LT(std::abs(test::Cents(tones[tones.size() / 2].FrequencyHz, 880)), 10) << output;
    }
    Folder.Put("tune.mid", "no MIDI file");
    EXPECT_EQ(Run("$render tune.mid out.wav"), 2);
    EXPECT_NE(Errors().find("Failed to open MIDI file!: Either couldn't open"), std::string::npos);
    EXPECT_EQ(Run("$render --output voice tune.mid out.wav"), 1);
}

TEST_F(RenderProgram, WritesToStandardOutputWithTrueSizes) {
    EXPECT_EQ(Run("TMPDIR=$PWD $render song - | cat >out.wav"), 0);
    EXPECT_TRUE(HasNothingHalfWritten());
    EXPECT_EQ(Run("$render song file.wav && cmp out.wav file.wav"), 0);
}

TEST_F(RenderProgram, ExitsWith1ForBadUsage) {
    EXPECT_EQ(Run("$render song"), 1);
    EXPECT_NE(Errors().find("quavix-render [--passes N]"), std::string::npos);
    EXPECT_EQ(Run("$render --waveform sine song out.wav"), 1);
    EXPECT_NE(Errors().find("only the fmod output"), std::string::npos);
}

TEST_F(RenderProgram, ExitsWith2WhenTheSongCannotBeRead) {
    EXPECT_EQ(Run("$render none out.wav"), 2);
    EXPECT_EQ(Run("$render . out.wav"), 2);
    EXPECT_EQ(Run("$render other out.wav"), 2) << "the question is answered No";
    EXPECT_NE(Errors().find("Probably weird file format: This file doesn't contain"), std::string::npos);
    EXPECT_EQ(Run("test -e out.wav"), 1);
    EXPECT_EQ(Run("$render --yes other out.wav"), 0);
}

TEST_F(RenderProgram, ExitsWith3WhenTheResultCannotBeWritten) {
    for (const char* arguments : {"song none/out.wav", "song .", "song /dev/full", "song - >/dev/full",
                                  "--log none/log song out.wav", "--tone-code /dev/full song out.wav"})
        EXPECT_EQ(Run(std::string("$render ") + arguments), 3) << arguments;
    EXPECT_TRUE(HasNothingHalfWritten());
}

TEST_F(RenderProgram, NeverWritesOverTheSong) {
    const std::string song = Folder.Content("song");
    EXPECT_EQ(Run("$render song song"), 3);
    EXPECT_EQ(Run("$render --log song song out.wav"), 3);
    EXPECT_EQ(Run("ln -s song link && $render song link"), 3);
    EXPECT_EQ(Folder.Content("song"), song);
}

TEST_F(RenderProgram, WritesTheLogAndTheToneCodeAnew) {
    Folder.Put("log", "old\n");
    EXPECT_EQ(Run("$render --log log --tone-code code song out.wav"), 0);
    EXPECT_EQ(Folder.Content("log").find("old"), std::string::npos);
    EXPECT_NE(Folder.Content("log").find("PlayMusic() - END"), std::string::npos);
    EXPECT_TRUE(Folder.Content("code").starts_with("Beep         440,    450     'A4\r\n"));
}

TEST_F(RenderProgram, AnInterruptLeavesNoFile) {
    for (const char* signal : {"INT", "TERM", "HUP"}) {
        const int status =
            Run(fmt::format("$render --passes 1000000 song out.wav & child=$!; "
                            "until ls out.wav.*.part >/dev/null 2>&1; do :; done; "
                            "kill -{} $child; wait $child",
                            signal));
        EXPECT_GT(status, 128) << signal;
        EXPECT_TRUE(HasNothingHalfWritten()) << signal;
        EXPECT_EQ(Run("test -e out.wav"), 1) << signal;
    }
}

TEST_F(RenderProgram, InterruptedItLeavesNothingOfTheSoundEngine) {
    const int status =
        Run("TMPDIR=$PWD $render --passes 1000000 --output fmod song out.wav & child=$!; "
            "until ls quavix-engine.*.wav >/dev/null 2>&1; do :; done; "
            "kill -TERM $child; wait $child");
    EXPECT_GT(status, 128);
    EXPECT_EQ(Folder.EntryCount(), 3) << "two songs and the errors";
}

TEST_F(RenderProgram, AReaderThatGoesAwayIsAWriteError) {
    EXPECT_EQ(Run("{ $render --passes 200 song -; echo $? >status; } | head -c 10 >/dev/null; "
                  "exit $(cat status)"),
              3);
}

TEST_F(RenderProgram, RefusesNamedPipesWithoutWaitingForTheirOtherEnd) {
    EXPECT_EQ(Run("mkfifo pipe && mkfifo tune.mid && timeout 60 $render song pipe"), 3);
    EXPECT_NE(Errors().find("\"pipe\" is a pipe"), std::string::npos);
    EXPECT_EQ(Run("timeout 60 $render --log pipe song out.wav"), 3);
    EXPECT_EQ(Run("timeout 60 $render --tone-code pipe song out.wav"), 3);
    EXPECT_EQ(Run("timeout 60 $render pipe out.wav"), 2);
    EXPECT_NE(Errors(), "");
    EXPECT_EQ(Run("timeout 60 $render tune.mid out.wav"), 2);
    EXPECT_NE(Errors(), "");
    EXPECT_EQ(Run("timeout 60 $render /dev/zero out.wav"), 2);
    EXPECT_TRUE(HasNothingHalfWritten());
}

TEST_F(RenderProgram, WritesToDevicesAndToPipesThatAreOpen) {
    EXPECT_EQ(Run("$render song /dev/null"), 0) << Errors();
    EXPECT_EQ(Run("$render song /dev/stdout | cat >out.wav"), 0);
    EXPECT_EQ(test::ReadWavFile(Folder.File("out.wav"))->Frames(), 510 * 48U);
    EXPECT_EQ(Run("$render song /dev/fd/3 3>&1 | cat >out.wav"), 0);
    EXPECT_EQ(test::ReadWavFile(Folder.File("out.wav"))->Frames(), 510 * 48U);
}

TEST_F(RenderProgram, CanBeInterruptedWhileItsReaderDoesNotRead) {
    // The first byte says that the rest, more than a pipe holds, waits for its reader.
    ExpectInterruptible(
        "rm -f pipe; mkfifo pipe; exec 3<>pipe; "
        "$render --passes 200 song - >&3 & child=$!; "
        "head -c 1 <&3 >/dev/null; kill -$signal $child; wait $child");
}

}  // namespace
}  // namespace quavix
