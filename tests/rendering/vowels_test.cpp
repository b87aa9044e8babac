// SPDX-License-Identifier: MIT
// The five vowels, measured in what the voice sings through the sound engine.
#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>
#include <sstream>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "fmod/sound_mods.h"
#include "platform/common/notnormal_fmodex.h"
#include "rendering/rendered_engine.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "support/spectrum.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

constexpr double Rate = 48000;
/// Of the saw: 100 Hz on a channel of 44100.
constexpr double Fundamental = 100 * 44100 / Rate;
constexpr int Harmonics = 52;

/// A second of the voice singing a vowel, without breath and without moving.
std::vector<float> Sing(const Vowel& vowel) {
    NOTNORMALfmodex library;
    EXPECT_EQ(library.Load(QUAVIX_SOUND_ENGINE_FOLDER "/FMODex.dll"), "");
    Timeline events;
    SimulatedTime time;
    SimulatedMessageBoxes boxes(time, events);
    SimulatedFiles disk;
    SeededRandomNumbers random(1);
    MainFields fields;
    DebugLog log(disk, time, "log");
    EventBoundary handlers(boxes, log);
    Waiting wait(time, time);
    SoundMods mods({fields.Song,
                    fields.Mods,
                    fields.Output,
                    library,
                    random,
                    time,
                    disk,
                    boxes,
                    wait,
                    handlers,
                    log,
                    {}});
    std::stringstream out;
    SoundFile file(out, 48000);
    RenderedEngine engine(library, time, file);
    mods.Singer.Load(engine.Output());
    engine.Begin(mods.Singer.VoiceSystem());
    mods.UseVoice.NoiseVolSlider = 0;
    mods.UseVoice.FormantRandomFreqSlider = 0;
    fields.Mods.UseVoice.Ticked = true;
    mods.UseVoice.SpeechButton_Click(vowel);
    mods.Singer.ChangeVoiceVol(0.3);
    for (int ms = 10; ms <= 1300; ms += 10) {
        time.RunUntil(ms);
        engine.CatchUp();
    }
    engine.Finish();
    file.Finish();
    EXPECT_EQ(events.Text(), "");
    std::vector<float> sound = test::ReadWav(out.str()).value().Samples;
    sound.erase(sound.begin(), sound.begin() + 12000);  // until the formants are where they stay
    return sound;
}

/// Returns the common gain of the four filters at each harmonic, in dB: they are peaking equalisers of an
/// octave with the highest gain that they take (R. Bristow-Johnson, "Audio EQ Cookbook").
std::vector<double> Envelope(const std::array<double, FormantCount>& formants) {
    constexpr double Gain = 3;
    std::vector<double> envelope;
    for (int n = 1; n <= Harmonics; ++n) {
        const double angle = 2 * std::numbers::pi * n * Fundamental / Rate;
        const std::complex<double> delay = std::polar(1.0, -angle);
        std::complex<double> sum = 0;
        for (const double formant : formants) {
            const double centre = 2 * std::numbers::pi * formant / Rate;
            const double alpha =
                std::sin(centre) * std::sinh(std::numbers::ln2 / 2 * centre / std::sin(centre));
            const double a = std::sqrt(Gain);
            const double middle = -2 * std::cos(centre);
            sum += (1 + alpha * a + middle * delay + (1 - alpha * a) * delay * delay) /
                   (1 + alpha / a + middle * delay + (1 - alpha / a) * delay * delay);
        }
        envelope.push_back(20 * std::log10(std::abs(sum)));
    }
    return envelope;
}

/// The same as it was sung: a saw's harmonics fall as 1 / n.
std::vector<double> SungEnvelope(const std::vector<float>& sound) {
    std::vector<double> envelope;
    for (int n = 1; n <= Harmonics; ++n)
        envelope.push_back(test::LevelDb(sound, Rate, n * Fundamental) + 20 * std::log10(n));
    return envelope;
}

/// Mean square of the difference in dB, whatever the loudness.
double Difference(const std::vector<double>& a, const std::vector<double>& b) {
    double mean = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        mean += (a[i] - b[i]) / static_cast<double>(a.size());
    double sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += (a[i] - b[i] - mean) * (a[i] - b[i] - mean) / static_cast<double>(a.size());
    return sum;
}

/// The four formants that explain best what was sung, found without knowing the vowel. Formants close to each
/// other have one peak in common, so that looking for peaks alone would not find them.
std::array<double, FormantCount> FindFormants(const std::vector<double>& sung) {
    std::array<double, FormantCount> best{500, 1500, 2500, 3500};
    double least = Difference(Envelope(best), sung);
    for (double step = 0.4; step > 0.0005; step /= least > 0 ? 1.25 : 1) {
        for (int round = 0; round < 6; ++round) {
            for (std::size_t i = 0; i < FormantCount; ++i) {
                for (const double factor : {1 + step, 1 / (1 + step)}) {
                    auto tried = best;
                    tried[i] = std::clamp(tried[i] * factor, 200.0, 4800.0);
                    const double difference = Difference(Envelope(tried), sung);
                    if (difference < least) {
                        least = difference;
                        best = tried;
                    }
                }
            }
        }
    }
    std::sort(best.begin(), best.end());
    return best;
}

class SungVowel : public testing::TestWithParam<std::pair<char, Vowel>> {};

TEST_P(SungVowel, HasItsFormants) {
    const auto& [letter, vowel] = GetParam();
    const std::vector<double> sung = SungEnvelope(Sing(vowel));
    std::array<double, FormantCount> wanted{};
    for (std::size_t i = 0; i < FormantCount; ++i)
        wanted[i] = vowel[i].Frequency;
    EXPECT_LT(std::sqrt(Difference(Envelope(wanted), sung)), 0.1) << "the curve of its formants, in dB";
    const std::array<double, FormantCount> found = FindFormants(sung);
    for (std::size_t i = 0; i < FormantCount; ++i) {
        RecordProperty(fmt::format("formant{}", i), fmt::format("{:.0f}", found[i]));
        EXPECT_NEAR(found[i] / wanted[i], 1, 0.05) << letter << " " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Vowels, SungVowel,
                         testing::Values(std::pair('A', vowel::A), std::pair('E', vowel::E),
                                         std::pair('I', vowel::I), std::pair('O', vowel::O),
                                         std::pair('U', vowel::U)));

}  // namespace
}  // namespace quavix
