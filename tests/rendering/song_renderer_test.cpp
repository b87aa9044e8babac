// SPDX-License-Identifier: MIT
#include "rendering/song_renderer.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include <gtest/gtest.h>

#include "rendering/rendered_sound.h"
#include "rendering/rendering_test.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_midi.h"
#include "support/measure.h"

namespace quavix {
namespace {

class SongRendererTest : public test::RenderingTest {
  protected:
    SongRendererTest() { Options.Song = "song"; }

    /// A song at 120 beats per minute whose notes sound for half their length; `lines` are separated by "|".
    void PutSong(const std::string& lines, const std::string& settings = "") {
        std::string song = "Quavix by Dastrel-204 file format\nBPM 120\nNoteSilenceRatio 50\n" + settings +
                           "MUSICLISTSTART\n";
        for (const char c : lines)
            song += c == '|' ? '\n' : c;
        Disk.Put("song", song);
    }

    test::WavSound Render() { return RenderWith(Library, MidiFiles, "/program"); }

    RecordedSoundLibrary Library{Time, Events};
    SimulatedMidiFileReader MidiFiles;
};

TEST_F(SongRendererTest, AToneThatStartsAt2500MsStartsAtFrame120000) {
    PutSong("Half - - -|Half - - -|Quarter - - -|Quarter A4 - -");
    const test::WavSound sound = Render();
    EXPECT_EQ(sound.SampleRate, 48000);
    EXPECT_EQ(sound.Channels, 1);
    // The waits go in slices of 15 ms: 1005, 2010, 2505.
    constexpr std::size_t Start = 2505 * 48;
    for (std::size_t i = 0; i < Start; ++i)
        ASSERT_EQ(sound.Samples[i], 0) << i;
    EXPECT_LT(std::abs(sound.Samples[Start]), 0.01);
    EXPECT_GT(test::Peak(std::span(sound.Samples).subspan(Start, 96)), 0.1);
}

TEST_F(SongRendererTest, ATonesLengthIsExactToTheSample) {
    PutSong("Quarter A4 - -|Quarter - - -");
    const test::WavSound sound = Render();
    constexpr std::size_t End = 250 * 48;
    EXPECT_NE(sound.Samples[End - 2], 0);
    for (std::size_t i = End; i < sound.Samples.size(); ++i)
        ASSERT_EQ(sound.Samples[i], 0) << i;
    EXPECT_EQ(sound.Samples.size(), 1000 * 48U);
}

TEST_F(SongRendererTest, TonesAreInTuneWithTheWholeHertz) {
    // At 40 beats a minute a dotted whole sounds for 4.5 s at half the ratio.
    for (const auto& [note, hertz] : {std::pair("C4", 262), std::pair("A4", 440), std::pair("B7", 3951)}) {
        PutSong(std::string("Whole ") + note + " - -", "BPM 40\n");
        const test::WavSound sound = Render();
        const auto tone = std::span(sound.Samples).subspan(48, 48000 * 2);
        EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(tone, 48000), hertz)), 0.1) << note;
    }
}

TEST_F(SongRendererTest, TonesStartAndEndWithoutClicks) {
    PutSong("1/16 C2 - -|1/16 C2 - -");
    const test::WavSound sound = Render();
    // Inside the fades of 1.5 ms nothing jumps by more than the wave's edge scaled down.
    EXPECT_LT(std::abs(sound.Samples[0]), 0.001);
    EXPECT_LT(test::BiggestStep(std::span(sound.Samples).first(20)).Height, 0.1);
    constexpr std::size_t End = 62 * 48;
    EXPECT_LT(test::BiggestStep(std::span(sound.Samples).subspan(End - 20, 40)).Height, 0.1);
}

TEST_F(SongRendererTest, TonesTheSpeakerCannotMakeAreSilenceOfTheSameLength) {
    PutSong("Quarter C0 - -|Quarter A4 - -");
    const test::WavSound sound = Render();
    const auto tones = test::FindTones(sound.Samples, 48000);
    ASSERT_EQ(tones.size(), 1U);
    EXPECT_NEAR(static_cast<double>(tones[0].Start), 505 * 48, 3);
}

TEST_F(SongRendererTest, PlaysAsOftenAsAsked) {
    PutSong("Quarter A4 - -|Quarter A5 - -");
    Options.Passes = 3;
    const auto tones = test::FindTones(Render().Samples, 48000);
    ASSERT_EQ(tones.size(), 6U);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_NEAR(tones[i].FrequencyHz, i % 2 == 0 ? 440 : 880, 0.5);
        EXPECT_LT(std::abs(static_cast<double>(tones[i].Start) - static_cast<double>(i) * 24000),
                  15 * 48 + 3);
    }
}

TEST_F(SongRendererTest, IsTheSameEveryTime) {
    PutSong("Quarter A4 C5 -|1/8 C4 - Tri");
    EXPECT_EQ(Render().Samples, Render().Samples);
}

TEST_F(SongRendererTest, OtherRatesHaveTheSameTimesAndPitches) {
    PutSong("Quarter A4 - -");
    for (const std::int32_t rate : {8000, 44100, 192000}) {
        Options.Rate = rate;
        const test::WavSound sound = Render();
        EXPECT_EQ(sound.SampleRate, rate);
        EXPECT_EQ(sound.Samples.size(), static_cast<std::size_t>(505 * rate / 1000.0 + 0.5));
        const auto tone = std::span(sound.Samples).first(static_cast<std::size_t>(rate / 4));
        EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(tone, rate), 440)), 0.5) << rate;
    }
}

TEST_F(SongRendererTest, ASongWithoutLinesIsNoSound) {
    PutSong("");
    EXPECT_TRUE(Render().Samples.empty());
}

TEST_F(SongRendererTest, WritesTheLogAndTheToneCodeOfWhatIsPlayed) {
    PutSong("1/16 A4 - -");
    Options.LogFile = "log";
    Options.ToneCodeFile = "code";
    Render();
    EXPECT_NE(Disk.Content("log").find("12:00:00 -     ActuallyLoadMusic(\"song\") - START\r\n"),
              std::string::npos);
    EXPECT_NE(Disk.Content("log").find("PC Speaker Beep 440, 62.5 - BEFORE\r\n"), std::string::npos);
    EXPECT_TRUE(
        Disk.Content("code").starts_with("Beep         440,   62.5     'A4\r\nMsgWaitObj            15\r\n"));
}

TEST_F(SongRendererTest, ASongThatCannotBeReadIsSaid) {
    EXPECT_THROW(Render(), SongError);
}

TEST_F(SongRendererTest, AFileWithoutTheHeaderIsPlayedOnlyIfTheAnswerIsYes) {
    Disk.Put("song", "MUSICLISTSTART\nQuarter A4 - -\n");
    Boxes.AnswerNext(BoxAnswer::No);
    EXPECT_THROW(Render(), SongError);
    Boxes.AnswerNext(BoxAnswer::Yes);
    EXPECT_FALSE(Render().Samples.empty());
}

TEST_F(SongRendererTest, ATempoOfZeroIsSaid) {
    PutSong("Quarter A4 - -", "BPM 0\n");
    EXPECT_THROW(Render(), SongError);
}

TEST_F(SongRendererTest, LinesAndAlternationsWithoutTimeComeToAnEnd) {
    PutSong("Long A4 - -|Quarter A4 C4 -|1/8 B4 - -", "AlternateTime 0\n");
    EXPECT_GT(Render().Samples.size(), 0U);
    PutSong("Quarter A4 C4 -", "AlternateTime -5\n");
    EXPECT_GT(Render().Samples.size(), 0U);
    PutSong("Quarter A4 - -", "BPM -120\n");
    EXPECT_EQ(Render().Samples.size(), 0U);
}

TEST_F(SongRendererTest, AResultTooLongForAWavFileIsSaid) {
    PutSong("Whole - - Dot|Whole - - Dot", "BPM 1\n");
    Options.Passes = 1'000'000;
    Options.Rate = 192000;
    class : public std::streambuf {
        int overflow(int c) override { return c; }
        std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
    } nothing;
    std::ostream out(&nothing);
    SongRenderer renderer{Disk, Boxes, Library, MidiFiles, "/program", [](double) { return true; }};
    EXPECT_THROW(renderer.Render(Options, out), RenderError);
}

/// Counts what is written, anywhere, and keeps the first bytes of it.
class CountedBytes : public std::streambuf {
  public:
    std::int64_t Size = 0;
    std::string Start = std::string(80, ' ');

  private:
    std::streamsize xsputn(const char* text, std::streamsize count) override {
        for (std::int64_t i = 0; i < count && at_ + i < std::ssize(Start); ++i)
            Start[static_cast<std::size_t>(at_ + i)] = text[i];
        at_ += count;
        Size = std::max(Size, at_);
        return count;
    }
    pos_type seekpos(pos_type to, std::ios::openmode) override { return at_ = to; }
    pos_type seekoff(off_type by, std::ios::seekdir, std::ios::openmode) override { return at_ += by; }

    std::int64_t at_ = 0;
};

TEST_F(SongRendererTest, OnlyAFileBeyond4GiBHas64BitSizes) {
    PutSong("Whole - - Dot|Whole - - Dot", "BPM 1\n");
    Options.Rate = 192000;
    for (const std::int32_t passes : {1, 16}) {
        CountedBytes bytes;
        std::ostream out(&bytes);
        Options.Passes = passes;
        SongRenderer renderer{Disk, Boxes, Library, MidiFiles, "/program", [](double) { return true; }};
        renderer.Render(Options, out);
        const std::int64_t soundBytes = 192000LL * 2 * 720 * passes;
        if (passes == 1) {
            EXPECT_EQ(bytes.Size, 44 + soundBytes);
            EXPECT_EQ(bytes.Start.substr(0, 4) + bytes.Start.substr(8, 8), "RIFFWAVEfmt ");
        } else {
            EXPECT_NEAR(static_cast<double>(bytes.Size), static_cast<double>(80 + soundBytes), 192000);
            EXPECT_EQ(bytes.Start.substr(0, 4) + bytes.Start.substr(8, 8), "RF64WAVEds64");
            EXPECT_EQ(bytes.Start.substr(72, 4), "data");
        }
    }
}

TEST_F(SongRendererTest, WithoutTheSoundEngineItsOutputsCannotBeRendered) {
    PutSong("Quarter A4 A4 -");
    for (const auto output : {RenderOptions::Output::Fmod, RenderOptions::Output::Voice}) {
        Options.Sounds = output;
        EXPECT_THROW(Render(), RenderError);
    }
    EXPECT_EQ(Events.Text(), "");
}

TEST_F(SongRendererTest, AnEngineThatDoesNotStartIsReported) {
    PutSong("Quarter A4 A4 -");
    Disk.Put("/program/FMODex.dll", "a library");
    Library.Fail("FMOD_System_Init", 61);
    Options.Sounds = RenderOptions::Output::Fmod;
    EXPECT_THROW(Render(), RenderError);
    EXPECT_EQ(Events.Text("box"),
              "0.0000 box \"Quavix\" FMOD error! (61) Error initializing output device. \n");
    EXPECT_EQ(Events.Text("fmod FMOD_System_SetOutput"), "0.0000 fmod FMOD_System_SetOutput(system1, 5)\n");
}

TEST_F(SongRendererTest, ReportsItsProgressAndCanBeInterrupted) {
    PutSong("Whole A4 - -|Whole A4 - -|Whole A4 - -|Whole A4 - -");
    Render();
    ASSERT_GT(Shares.size(), 3U);
    EXPECT_TRUE(std::is_sorted(Shares.begin(), Shares.end()));
    EXPECT_GT(Shares.back(), 0.8);
    EXPECT_LE(Shares.back(), 1);
    Shares.clear();
    StopAfter = 3;
    EXPECT_THROW(Render(), RenderInterrupted);
}

}  // namespace
}  // namespace quavix
