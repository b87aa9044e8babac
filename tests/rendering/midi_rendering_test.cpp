// SPDX-License-Identifier: MIT
// MIDI files as quavix-render plays them: through the cycler, on simulated time.
#include <algorithm>
#include <cmath>
#include <sstream>

#include <gmock/gmock.h>

#include "platform/common/module_midi_file_reader.h"
#include "platform/common/notnormal_fmodex.h"
#include "rendering/rendering_test.h"
#include "support/measure.h"
#include "support/midi_song.h"

namespace quavix {
namespace {

using test::MidiSong;
using test::NoteOffOf;
using test::NoteOnOf;
using test::operator+;

class MidiRendering : public test::RenderingTest {
  protected:
    MidiRendering() {
        Options.Song = "tune.mid";
        Disk.Put(QUAVIX_SOUND_ENGINE_FOLDER "/FMODex.dll", "where the real one lies");
    }

    test::WavSound Render() { return RenderWith(Library, MidiFiles, QUAVIX_SOUND_ENGINE_FOLDER); }

    NOTNORMALfmodex Library;
    ModuleMidiFileReader MidiFiles{QUAVIX_MIDI_FILE_MODULE};
};

/// A4 for half a second, silence, then A5: the program's octaves are one higher than a synthesizer's.
const std::string AAndItsOctave =
    MidiSong({{0, NoteOnOf(57)}, {500, NoteOffOf(57)}, {1000, NoteOnOf(69)}, {1500, NoteOffOf(69)}});

/// The share of a stretch that sounds, and the pitch there is most of.
double PitchOf(const test::WavSound& sound, double from, double to) {
    const auto at = [&](double seconds) { return static_cast<std::size_t>(seconds * sound.SampleRate); };
    return test::FrequencyHz(std::span(sound.Samples).subspan(at(from), at(to) - at(from)), sound.SampleRate);
}

TEST_F(MidiRendering, NotesAreTonesOfTheirPitchesAtTheirTimes) {
    Disk.Put("tune.mid", AAndItsOctave);
    const auto sound = Render();
    const auto tones = test::FindTones(sound.Samples, sound.SampleRate);
    ASSERT_FALSE(tones.empty());
    constexpr double StepFrames = 0.017 * 48000;
    for (const test::Tone& tone : tones) {
        const bool isFirst = tone.Start < 36000;
        EXPECT_LT(std::abs(test::Cents(tone.FrequencyHz, isFirst ? 440 : 880)), 5) << tone.Start;
        EXPECT_LT(static_cast<double>(tone.End), (isFirst ? 24000 : 72000) + StepFrames);
    }
    EXPECT_LT(static_cast<double>(tones.front().Start), StepFrames);
    EXPECT_GT(static_cast<double>(sound.Frames()), 72000);
    EXPECT_LT(static_cast<double>(sound.Frames()), 72000 + 2 * StepFrames);
}

TEST_F(MidiRendering, AChordIsAllItsPitchesInTurn) {
    Disk.Put("tune.mid", MidiSong({{0, NoteOnOf(60)},
                                   {0, NoteOnOf(64)},
                                   {0, NoteOnOf(67)},
                                   {600, NoteOffOf(60)},
                                   {600, NoteOffOf(64)},
                                   {600, NoteOffOf(67)}}));
    Options.ToneCodeFile = "code";
    Render();
    EXPECT_THAT(Disk.Content("code"), testing::StartsWith("Beep         523,     10     'C5\r\n"
                                                          "Beep         659,     10     'E5\r\n"
                                                          "Beep         784,     10     'G5\r\n"
                                                          "Beep         523,     10     'C5\r\n"));
}

TEST_F(MidiRendering, SoundsThroughTheSoundEngineToo) {
    Disk.Put("tune.mid", AAndItsOctave);
    Options.Sounds = RenderOptions::Output::Fmod;
    const auto sound = Render();
    EXPECT_NEAR(PitchOf(sound, 0.1, 0.4), 440, 1);
    EXPECT_NEAR(PitchOf(sound, 1.1, 1.4), 880, 2);
    EXPECT_LT(test::Rms(std::span(sound.Samples).subspan(0.7 * 48000, 4800)), 0.001) << "silence between";
}

TEST_F(MidiRendering, PlaysAsOftenAsAsked) {
    Disk.Put("tune.mid", MidiSong({{0, NoteOnOf(57)}, {100, NoteOffOf(57)}, {200, NoteOffOf(57)}}));
    const auto once = Render().Frames();
    Options.Passes = 3;
    const auto thrice = Render().Frames();
    EXPECT_NEAR(static_cast<double>(thrice), 3.0 * static_cast<double>(once), 0.05 * 48000);
}

TEST_F(MidiRendering, IsTheSameEveryTime) {
    Disk.Put("tune.mid", AAndItsOctave);
    EXPECT_EQ(Render().Samples, Render().Samples);
}

TEST_F(MidiRendering, ProgressRisesAndCanStopIt) {
    Disk.Put("tune.mid", MidiSong({{0, NoteOnOf(57)}, {20'000, NoteOffOf(57)}}));
    Render();
    EXPECT_TRUE(std::ranges::is_sorted(Shares));
    EXPECT_GT(Shares.back(), 0.9);
    StopAfter = Shares.size() / 2;
    Shares.clear();
    EXPECT_THROW(Render(), RenderInterrupted);
}

TEST_F(MidiRendering, AFileThatCannotBePlayedIsSaid) {
    Disk.Put("tune.mid", "no MIDI file");
    EXPECT_THROW(Render(), SongError);
    ASSERT_EQ(Boxes.Shown().size(), 1U);
    EXPECT_EQ(Boxes.Shown()[0].Title, "Failed to open MIDI file!");
}

TEST_F(MidiRendering, AFileWithoutEventsIsNoSound) {
    const test::Bytes file = test::Header(0, 1, 96) + test::TrackSaying(0, {});
    Disk.Put("tune.mid", {file.begin(), file.end()});
    EXPECT_EQ(Render().Frames(), 0U);
}

TEST_F(MidiRendering, TheVoiceSingsNoMidiFiles) {
    EXPECT_THROW(ParseRenderOptions(std::vector<const char*>{"--output", "voice", "tune.mid", "out.wav"}),
                 std::invalid_argument);
    EXPECT_NO_THROW(ParseRenderOptions(std::vector<const char*>{"--output", "fmod", "tune.mid", "out.wav"}));
}

}  // namespace
}  // namespace quavix
