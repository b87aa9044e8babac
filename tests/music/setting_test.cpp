// SPDX-License-Identifier: MIT
#include "music/setting.h"

#include <random>

#include <gtest/gtest.h>

#include "shell/numbers.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

TEST(Setting, ATempoInRangeIsTaken) {
    Setting tempo(parameter::Bpm);
    tempo.Type("40");
    EXPECT_EQ(tempo, 40);
    tempo.Type("600");
    EXPECT_EQ(tempo, 600);
    tempo.Type(" 120.5 ");
    EXPECT_EQ(tempo, 120) << "halves go to the even number";
    EXPECT_EQ(tempo.BackColor(), colour::WindowBackground);
}

TEST(Setting, ATempoOutOfRangeTurnsTheFieldOrangeAndIsIgnored) {
    Setting tempo(parameter::Bpm);
    for (const char* text : {"39", "39.9", "600.1", "601", "-5", "1e300"}) {
        tempo.Type(text);
        EXPECT_EQ(tempo.BackColor(), 33023) << text;
        EXPECT_EQ(tempo, 140);
        EXPECT_EQ(tempo.Text(), text) << "what was typed stays";
    }
    tempo.Type("150");
    EXPECT_EQ(tempo.BackColor(), colour::WindowBackground);
    EXPECT_EQ(tempo, 150);
}

TEST(Setting, OtherTextRevertsToTheCurrentTempoAndAnEmptyFieldIsLeftAlone) {
    Setting tempo(parameter::Bpm);
    tempo.Type("abc");
    EXPECT_EQ(tempo.Text(), "140");
    tempo.Type("");
    EXPECT_EQ(tempo.Text(), "");
    EXPECT_EQ(tempo, 140);
}

TEST(Setting, TheAlternateTimeTakesBothEndsOfItsRange) {
    Setting time(parameter::AlternateTime);
    time.Type("15");
    EXPECT_EQ(time, 15);
    time.Type("2000");
    EXPECT_EQ(time, 2000);
    for (const char* text : {"14", "2001", "99999"}) {
        time.Type(text);
        EXPECT_EQ(time.BackColor(), 33023) << text;
        EXPECT_EQ(time, 2000);
    }
    time.Type("x");
    EXPECT_EQ(time.Text(), "2000");
}

TEST(Setting, TheKeyboardOctaveHasALowestValueButNoHighest) {
    Setting octave(parameter::KeyboardOctave);
    octave.Type("1");
    EXPECT_EQ(octave.Text(), "2");
    EXPECT_EQ(octave, 2);
    octave.Type("12");
    EXPECT_EQ(octave, 12);
    octave.Type("abc");
    EXPECT_EQ(octave.Text(), "12");
    octave.Type("");
    EXPECT_EQ(octave, 12);
}

TEST(Setting, TypingAnImpossibleOctaveMarksTheFieldAndRaisesNoError) {
    Setting octave(parameter::KeyboardOctave);
    for (const char* text : {"300", "255.6", "1e300"}) {
        EXPECT_NO_THROW(octave.Type(text));
        EXPECT_EQ(octave, 4) << text;
        EXPECT_EQ(octave.Text(), text);
        EXPECT_EQ(octave.BackColor(), 33023) << text;
    }
    octave.Type("30x");
    EXPECT_EQ(octave.Text(), "4");
    EXPECT_EQ(octave.BackColor(), colour::WindowBackground);
    octave.Type("300");
    octave.Type("1");
    EXPECT_EQ(octave.BackColor(), colour::WindowBackground);
    octave.Type("255");
    EXPECT_EQ(octave, 255);
}

TEST(Setting, TheRatioLabelHasAtLeastTwoDigits) {
    Setting ratio(parameter::NoteSilenceRatio);
    EXPECT_EQ(ratio.Text(), "90%");
    ratio.Set(5);
    EXPECT_EQ(ratio.Text(), "05%");
    ratio.Set(100);
    EXPECT_EQ(ratio.Text(), "100%");
}

TEST(Setting, TheTimeSignatureSliderSetsTheBeatsPerBar) {
    Setting beats(parameter::TimeSig);
    for (const std::int32_t number : {3, 7}) {
        beats.Set(number);
        EXPECT_EQ(beats, number);
        EXPECT_EQ(beats.Text(), std::to_string(number));
    }
}

/// A text with one more letter, one fewer, or quite another one.
std::string TypeOn(std::string text, std::mt19937& random) {
    static const std::string keys = "0123456789012345.,-+eEd $%x\t";
    switch (random() % 6) {
        case 0:
            return {};
        case 1:
            if (!text.empty())
                text.pop_back();
            return text;
        default:
            text.insert(random() % (text.size() + 1), 1, keys[random() % keys.size()]);
            return text;
    }
}

TEST(Setting, ARangedFieldIsEmptyOrANumberAndItsValueIsInRange) {
    for (const Parameter& range : {parameter::Bpm, parameter::AlternateTime}) {
        Setting field(range);
        std::mt19937 random(11);
        for (int i = 0; i < 20000; ++i) {
            const std::string typed = TypeOn(field.Text(), random);
            const std::int32_t before = field;
            const std::int32_t colourBefore = field.BackColor();
            field.Type(typed);
            const std::int32_t value = field;
            const std::string text = field.Text();
            ASSERT_TRUE(range.Contains(value)) << typed;
            if (typed.empty()) {
                ASSERT_EQ(text, "");
                ASSERT_EQ(value, before);
                ASSERT_EQ(field.BackColor(), colourBefore);
            } else if (!IsNumeric(typed)) {
                ASSERT_EQ(text, std::to_string(before)) << typed;
                ASSERT_EQ(value, before) << typed;
            } else if (range.Contains(Val(typed))) {
                ASSERT_EQ(text, typed);
                ASSERT_EQ(value, ToInt32(Val(typed))) << typed;
                ASSERT_EQ(field.BackColor(), colour::WindowBackground) << typed;
            } else {
                ASSERT_EQ(text, typed);
                ASSERT_EQ(value, before) << typed;
                ASSERT_EQ(field.BackColor(), colour::Orange) << typed;
            }
        }
    }
}

TEST(Setting, TheOctaveFieldHasNoUpperCheckButItsLowestValue) {
    Setting field(parameter::KeyboardOctave);
    std::mt19937 random(12);
    for (int i = 0; i < 20000; ++i) {
        const std::string typed = TypeOn(field.Text(), random);
        const std::int32_t before = field;
        ASSERT_NO_THROW(field.Type(typed)) << typed;
        const std::int32_t octave = field;
        const std::string text = field.Text();
        ASSERT_GE(octave, 2);
        if (typed.empty()) {
            ASSERT_EQ(octave, before);
        } else if (!IsNumeric(typed)) {
            ASSERT_EQ(text, std::to_string(before)) << typed;
        } else if (Val(typed) < 2) {
            ASSERT_EQ(text, "2") << typed;
            ASSERT_EQ(octave, 2) << typed;
        } else if (Val(typed) > 255.5) {
            ASSERT_EQ(octave, before) << typed;
            ASSERT_EQ(field.BackColor(), colour::Orange) << typed;
            field.Type("");
        } else {
            ASSERT_EQ(field.BackColor(), colour::WindowBackground) << typed;
            ASSERT_EQ(octave, ToByte(Val(typed))) << typed;
        }
    }
}

TEST(Setting, WatchersFindTheWholeStateSet) {
    Setting tempo(parameter::Bpm);
    std::string seen;
    tempo.State().Watch([&](const SettingState& state) {
        EXPECT_EQ(state, tempo.State().Get());
        seen +=
            std::to_string(state.Value) + " " + state.Text + (state.BackColor == colour::Orange ? "! " : " ");
    });
    tempo.Type("150");
    tempo.Type("7");
    tempo.Type("x");
    tempo.Type("150");
    tempo.Step(1);
    tempo.Set(601);
    tempo.Reset();
    EXPECT_EQ(seen, "150 150 150 7! 150 150 155 155 601 601! 140 140 ");
}

TEST(Setting, StepsGoToTheEndOfTheRangeAtMost) {
    Setting tempo(parameter::Bpm);
    tempo.Type("598");
    tempo.Step(1);
    EXPECT_EQ(tempo, 600);
    tempo.Load("-7");
    tempo.Step(-1);
    EXPECT_EQ(tempo, 40);
    EXPECT_EQ(tempo.Text(), "40");
}

TEST(Setting, ANumberSetForNowIsNotTheSongsUntilItIsKept) {
    Setting time(parameter::AlternateTime);
    time.SetForNow(10);
    EXPECT_EQ(time, 10);
    EXPECT_EQ(time.Text(), "10");
    EXPECT_EQ(time.BackColor(), colour::Orange);
    EXPECT_EQ(time.OfSong(), 20);
    time.SetForNow(15);
    EXPECT_EQ(time.OfSong(), 20);
    time.Keep();
    EXPECT_EQ(time.OfSong(), 15);
    time.SetForNow(10);
    time.Type("99999");
    EXPECT_EQ(time.OfSong(), 10) << "ignored, but by other means";
}

TEST(Setting, ASliderTakesTheNearestNumberAndIgnoresOtherText) {
    Setting ratio(parameter::NoteSilenceRatio);
    for (const char* text : {"abc", "", "90%"})
        ratio.Type(text);
    EXPECT_EQ(ratio, 90);
    EXPECT_EQ(ratio.Text(), "90%");
    ratio.Type("1e300");
    EXPECT_EQ(ratio, 100);
    ratio.Type("-5");
    EXPECT_EQ(ratio.Text(), "00%");
    ratio.Step(-1);
    EXPECT_EQ(ratio, 0);
}

TEST(Setting, ANumberThatItsTypeDoesNotHoldChangesNothing) {
    Setting time(parameter::AlternateTime);
    const SettingState before = time.State();
    for (const char* text : {"32768", "-32769", "1e300"})
        EXPECT_THROW(time.Load(text), RuntimeError) << text;
    EXPECT_EQ(time.State().Get(), before);
}

TEST(Setting, ATimeOfDayHasTwoDigitsAndNoValueWhileItIsMarkedOrEmpty) {
    Setting minute(parameter::Minute);
    for (const char* text : {"07", "a", "123", " 1", "-1"})
        minute.Type(text);
    EXPECT_EQ(minute.Text(), "07") << "other text leaves what stands there";
    EXPECT_EQ(minute.Typed(), 7);
    minute.Type("60");
    EXPECT_EQ(minute.BackColor(), colour::Orange);
    EXPECT_EQ(minute.Typed(), std::nullopt);
    minute.Type("");
    EXPECT_EQ(minute.BackColor(), colour::WindowBackground);
    EXPECT_EQ(minute.Typed(), std::nullopt);
}

}  // namespace
}  // namespace quavix
