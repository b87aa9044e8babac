// SPDX-License-Identifier: MIT
#include "rendering/render_options.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace quavix {
namespace {

RenderOptions Parse(std::vector<const char*> arguments) {
    return ParseRenderOptions(arguments);
}

TEST(RenderOptions, HaveDefaults) {
    const RenderOptions options = Parse({"a.QVX", "b.wav"});
    EXPECT_EQ(options.Song, "a.QVX");
    EXPECT_EQ(options.Out, "b.wav");
    EXPECT_EQ(options.Passes, 1);
    EXPECT_EQ(options.Rate, 48000);
    EXPECT_FALSE(options.Yes);
}

TEST(RenderOptions, AreTakenInAnyOrder) {
    const RenderOptions options = Parse({"--passes", "3", "a", "--rate", "44100", "--yes", "--log", "l", "-",
                                         "--tone-code", "t", "--output", "speaker", "--waveform", "square"});
    EXPECT_EQ(options.Song, "a");
    EXPECT_EQ(options.Out, "-");
    EXPECT_EQ(options.Passes, 3);
    EXPECT_EQ(options.Rate, 44100);
    EXPECT_EQ(options.LogFile, "l");
    EXPECT_EQ(options.ToneCodeFile, "t");
    EXPECT_TRUE(options.Yes);
}

TEST(RenderOptions, AllArgumentsAfterTwoHyphensAreNames) {
    EXPECT_EQ(Parse({"--", "--yes", "-x"}).Song, "--yes");
}

TEST(RenderOptions, HelpAndVersionNeedNoNames) {
    EXPECT_EQ(Parse({"--help"}).What, RenderOptions::Request::Help);
    EXPECT_EQ(Parse({"--version"}).What, RenderOptions::Request::Version);
}

TEST(RenderOptions, WrongArgumentsAreRefusedWithAMessage) {
    for (const auto& arguments :
         std::vector<std::vector<const char*>>{{},
                                               {"a"},
                                               {"a", "b", "c"},
                                               {"--wrong", "a", "b"},
                                               {"a", "b", "--passes"},
                                               {"a", "b", "--passes", "0"},
                                               {"a", "b", "--passes", "2x"},
                                               {"a", "b", "--passes", "99999999999"},
                                               {"a", "b", "--rate", "7999"},
                                               {"a", "b", "--rate", "192001"},
                                               {"a", "b", "--output", "x"},
                                               {"a", "b", "--waveform", "sine"},
                                               {"--output", "voice", "--waveform", "sine", "a", "b"},
                                               {"a", "b", "--waveform", "x"}})
        EXPECT_THROW(ParseRenderOptions(arguments), std::invalid_argument);
}

TEST(RenderOptions, ChooseTheOutputAndItsWaveform) {
    EXPECT_EQ(Parse({"a", "b"}).Sounds, RenderOptions::Output::Speaker);
    EXPECT_EQ(Parse({"a", "b", "--output", "voice"}).Sounds, RenderOptions::Output::Voice);
    EXPECT_EQ(Parse({"a", "b", "--output", "fmod"}).Waveform, 1);
    for (const auto& [name, number] : {std::pair("sine", 0), {"square", 1}, {"triangle", 3}, {"noise", 5}}) {
        const RenderOptions options = Parse({"--waveform", name, "--output", "fmod", "a", "b"});
        EXPECT_EQ(options.Sounds, RenderOptions::Output::Fmod);
        EXPECT_EQ(options.Waveform, number) << name;
    }
}

}  // namespace
}  // namespace quavix
