// SPDX-License-Identifier: MIT
// The songs that come with the program: each loads without a word and sounds as written.
#include <cmath>
#include <filesystem>
#include <memory>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/common/module_midi_file_reader.h"
#include "platform/common/system_ports.h"
#include "rendering/song_renderer.h"
#include "simulation/recorded_sound_library.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_time.h"
#include "support/measure.h"
#include "support/simulated_program.h"
#include "support/wav_sound.h"

namespace quavix {
namespace {

std::vector<std::string> Examples() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(QUAVIX_SOURCE_DIR "/examples")) {
        if (entry.path().extension() == ".QVX")
            names.push_back(entry.path());
    }
    return names;
}

/// A song or MIDI file as the speaker sounds it; nothing was said or asked meanwhile.
auto Rendered(const std::string& song) {
    const std::unique_ptr<Files> files = MakeFiles();
    Timeline events;
    SimulatedTime time;
    SimulatedMessageBoxes boxes(time, events);
    RecordedSoundLibrary library(time, events);
    ModuleMidiFileReader midiFiles(QUAVIX_MIDI_FILE_MODULE);
    RenderOptions options;
    options.Song = song;
    std::stringstream out;
    SongRenderer{*files, boxes, library, midiFiles, "", [](double) { return true; }}.Render(options, out);
    EXPECT_EQ(events.Text(), "");
    return test::ReadWav(out.str());
}

class Example : public testing::TestWithParam<std::string> {};

TEST_P(Example, LoadsWithoutAMessageAndRendersToItsLength) {
    const auto sound = Rendered(GetParam());
    ASSERT_TRUE(sound);
    const double seconds = static_cast<double>(sound->Frames()) / sound->SampleRate;
    EXPECT_GT(seconds, 20);
    EXPECT_LT(seconds, 180);
    EXPECT_GT(test::Rms(sound->Samples), 0.2) << "hardly a sound";
}

std::string NameOf(const testing::TestParamInfo<std::string>& info) {
    std::string name = std::filesystem::path(info.param).stem();
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Songs, Example, testing::ValuesIn(Examples()), NameOf);

/// The tune comes out of the cycler as pulses, so it is its highest notes.
TEST(Examples, TheMidiFileIsATuneOfThreeVoices) {
    const auto sound = Rendered(QUAVIX_SOURCE_DIR "/examples/Greensleeves.mid");
    ASSERT_TRUE(sound);
    EXPECT_NEAR(static_cast<double>(sound->Frames()) / sound->SampleRate, 48, 3);
    std::vector<int> tune;
    for (const test::Tone& tone : test::FindTones(sound->Samples, 48000)) {
        constexpr double A5 = 880;
        if (tone.FrequencyHz < A5 / 2)  // or a pulse too short for its pitch
            continue;
        const auto steps = static_cast<int>(std::lround(test::Cents(tone.FrequencyHz, A5) / 100));
        if (steps >= 0 && (tune.empty() || tune.back() != steps) && tune.size() < 8)
            tune.push_back(steps);
    }
    // la do re mi fa mi re si
    EXPECT_EQ(tune, (std::vector<int>{0, 3, 5, 7, 8, 7, 5, 2}));
}

TEST(Examples, AreAtLeastSix) {
    EXPECT_GE(Examples().size(), 6U);
}

TEST(Examples, TheOdeBeginsWithItsMelody) {
    const auto sound = Rendered(QUAVIX_SOURCE_DIR "/examples/Ode-to-Joy.QVX");
    ASSERT_TRUE(sound);
    const auto tones = test::FindTones(sound->Samples, 48000);
    // mi mi fa sol, sol fa mi re, do do re mi, mi re re
    const int steps[] = {4, 4, 5, 7, 7, 5, 4, 2, 0, 0, 2, 4, 4, 2, 2};
    ASSERT_GT(tones.size(), std::size(steps));
    const double tonic = tones[8].FrequencyHz;
    for (std::size_t i = 0; i < std::size(steps); ++i)
        EXPECT_NEAR(test::Cents(tones[i].FrequencyHz, tonic) / 100, steps[i], 0.05) << "note " << i;
}

}  // namespace
}  // namespace quavix
