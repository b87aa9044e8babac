// SPDX-License-Identifier: MIT
// Songs through the sound engine that is shipped with the program, on simulated time.
#include <cmath>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/common/module_midi_file_reader.h"
#include "platform/common/notnormal_fmodex.h"
#include "rendering/song_renderer.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "support/measure.h"
#include "support/spectrum.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

constexpr double Rate = 48000;

/// Factor between a note's frequency and the frequency that the program sets: 1.088 × 11.025 × 4000 / 48000.
constexpr double Tuning = 0.9996;

class EngineRendering : public testing::Test {
  protected:
    EngineRendering() {
        Options.Song = "song";
        Disk.Put(QUAVIX_SOUND_ENGINE_FOLDER "/FMODex.dll", "where the real one lies");
    }

    /// A song at 120 beats per minute whose notes sound for half their length; `lines` are separated by "|".
    void PutSong(const std::string& lines) {
        std::string song =
            "Quavix by Dastrel-204 file format\nBPM 120\nNoteSilenceRatio 50\nMUSICLISTSTART\n";
        for (const char c : lines)
            song += c == '|' ? '\n' : c;
        Disk.Put("song", song);
    }
    std::string Bytes() {
        NOTNORMALfmodex library;
        ModuleMidiFileReader midiFiles(QUAVIX_MIDI_FILE_MODULE);
        std::stringstream out;
        const auto progress = [](double) { return true; };
        SongRenderer{Disk, Boxes, library, midiFiles, QUAVIX_SOUND_ENGINE_FOLDER, progress}.Render(Options,
                                                                                                   out);
        return out.str();
    }
    std::vector<float> Render(RenderOptions::Output output, std::int32_t waveform = 1) {
        Options.Sounds = output;
        Options.Waveform = waveform;
        const test::WavSound sound = test::ReadWav(Bytes()).value();
        EXPECT_EQ(sound.SampleRate, Options.Rate);
        EXPECT_EQ(sound.Channels, 1);
        EXPECT_EQ(Events.Text(), "");
        return sound.Samples;
    }

    SimulatedFiles Disk;
    Timeline Events;
    SimulatedTime Time;
    SimulatedMessageBoxes Boxes{Time, Events};
    RenderOptions Options;
};

std::span<const float> Part(const std::vector<float>& sound, double fromSeconds, double toSeconds) {
    const auto from = static_cast<std::size_t>(fromSeconds * Rate);
    return std::span(sound).subspan(from, static_cast<std::size_t>(toSeconds * Rate) - from);
}

TEST_F(EngineRendering, EveryWaveformOfTheSoundCardIsInTune) {
    PutSong("Whole C4 - -|Whole A5 - -|Whole B7 - -");
    for (const std::int32_t waveform : {0, 1, 3}) {
        const std::vector<float> sound = Render(RenderOptions::Output::Fmod, waveform);
        double start = 0;
        for (const double hertz : {262, 880, 3951}) {
            const double measured = test::FrequencyHz(Part(sound, start + 0.05, start + 0.95), Rate);
            EXPECT_LT(std::abs(test::Cents(measured, hertz * Tuning)), 0.1) << waveform << ": " << hertz;
            start += 2.01;  // the waits go in slices of 15 ms
        }
    }
}

TEST_F(EngineRendering, TonesOfTheSoundCardAreAsLoudAsTheirWaveformSays) {
    PutSong("Whole A4 - -");
    EXPECT_NEAR(test::Rms(Part(Render(RenderOptions::Output::Fmod, 0), 0.1, 0.9)), 0.18 / std::sqrt(2),
                0.002);
    EXPECT_NEAR(test::Rms(Part(Render(RenderOptions::Output::Fmod, 1), 0.1, 0.9)), 0.18, 0.005);
    EXPECT_NEAR(test::Rms(Part(Render(RenderOptions::Output::Fmod, 3), 0.1, 0.9)), 0.18 / std::sqrt(3),
                0.002);
}

TEST_F(EngineRendering, ToneAndSilenceBeginWithTheBlockOfTheirMoment) {
    PutSong("Quarter - - -|Quarter A4 - -");
    const std::vector<float> sound = Render(RenderOptions::Output::Fmod);
    // The rest takes 510 ms, the tone a quarter of a second from the beat on.
    constexpr std::size_t Start = 510 * 48;
    constexpr std::size_t End = 750 * 48;
    constexpr std::size_t Block = 16;
    constexpr std::size_t Ramp = 96;
    for (std::size_t i = 0; i < Start; ++i)
        ASSERT_EQ(sound[i], 0) << i;
    EXPECT_GT(test::Peak(std::span(sound).subspan(Start, 2 * Ramp)), 0.1);
    EXPECT_GT(test::Peak(std::span(sound).subspan(End - Ramp, Ramp)), 0.1);
    for (std::size_t i = End + Block + Ramp; i < sound.size(); ++i)
        ASSERT_EQ(sound[i], 0) << i;
}

TEST_F(EngineRendering, OtherSampleRatesChangeNeitherPitchNorLength) {
    PutSong("Whole A4 - -");
    const std::size_t frames = Render(RenderOptions::Output::Fmod, 0).size();
    Options.Rate = 44100;
    const std::vector<float> sound = Render(RenderOptions::Output::Fmod, 0);
    EXPECT_EQ(sound.size(), (frames * 44100 + 47999) / 48000);
    const auto tone = std::span(sound).subspan(4410, 35000);
    EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(tone, 44100), 440 * Tuning)), 0.1);
}

TEST_F(EngineRendering, ARenderingIsTheSameEveryTime) {
    PutSong("Quarter A4 C5 -|Quarter - E4 -");
    Options.Sounds = RenderOptions::Output::Voice;
    EXPECT_EQ(Bytes(), Bytes());
    Options.Sounds = RenderOptions::Output::Fmod;
    Options.Waveform = 5;
    EXPECT_EQ(Bytes(), Bytes());
}

TEST_F(EngineRendering, TheVoiceSingsTheSecondColumnAtItsPitch) {
    PutSong("Whole C5 A4 -|Whole C5 - -|Whole - A5 -");
    const std::vector<float> sound = Render(RenderOptions::Output::Voice);
    // Whole numbers of Hz on a channel of 44100.
    EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(Part(sound, 0.1, 1.9), Rate), 119 * 0.91875)), 0.1);
    EXPECT_EQ(test::Peak(Part(sound, 2.1, 3.9)), 0) << "it has nothing to sing";
    EXPECT_LT(std::abs(test::Cents(test::FrequencyHz(Part(sound, 4.15, 5.9), Rate), 238 * 0.91875)), 0.1);
}

TEST_F(EngineRendering, TheVoiceIsPleasantlyLoudAtFirst) {
    PutSong("Whole - A4 -");
    const std::vector<float> sound = Render(RenderOptions::Output::Voice);
    EXPECT_GT(test::Rms(Part(sound, 0.1, 1.9)), 0.05);
    EXPECT_LT(test::Peak(sound), 0.5);
}

}  // namespace
}  // namespace quavix
