// SPDX-License-Identifier: MIT
// Whatever is typed into a numeric field, letter by letter, the field keeps its rules.
#include <random>

#include <gtest/gtest.h>

#include "shell/numbers.h"
#include "support/simulated_program.h"

namespace quavix::test {
namespace {

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

struct RangedField {
    Watched<std::string> MainFields::*Text;
    Watched<std::int32_t> MainFields::*Colour;
    Parameter Range;
    std::int32_t (*Value)(const MainFields&);
};

const RangedField RangedFields[] = {
    {&MainFields::BPMText, &MainFields::BPMTextBackColor, parameter::Bpm,
     [](const MainFields& fields) { return fields.BPM.Get(); }},
    {&MainFields::AlternateTimeText, &MainFields::AlternateTimeTextBackColor, parameter::AlternateTime,
     [](const MainFields& fields) { return std::int32_t{fields.AlternateTime}; }},
};

TEST(TypedFields, ARangedFieldIsEmptyOrANumberAndItsValueIsInRange) {
    for (const RangedField& field : RangedFields) {
        SimulatedProgram program;
        MainFields& fields = program.App.Fields;
        std::mt19937 random(11);
        for (int i = 0; i < 20000; ++i) {
            const std::string typed = TypeOn((fields.*field.Text).Get(), random);
            const std::int32_t before = field.Value(fields);
            const std::int32_t colourBefore = fields.*field.Colour;
            fields.*field.Text = typed;
            const std::int32_t value = field.Value(fields);
            const std::string text = fields.*field.Text;
            ASSERT_TRUE(field.Range.Contains(value)) << typed;
            if (typed.empty()) {
                ASSERT_EQ(text, "");
                ASSERT_EQ(value, before);
                ASSERT_EQ(fields.*field.Colour, colourBefore);
            } else if (!IsNumeric(typed)) {
                ASSERT_EQ(text, std::to_string(before)) << typed;
                ASSERT_EQ(value, before) << typed;
            } else if (field.Range.Contains(Val(typed))) {
                ASSERT_EQ(text, typed);
                ASSERT_EQ(value, ToInt32(Val(typed))) << typed;
                ASSERT_EQ(fields.*field.Colour, colour::WindowBackground) << typed;
            } else {
                ASSERT_EQ(text, typed);
                ASSERT_EQ(value, before) << typed;
                ASSERT_EQ(fields.*field.Colour, colour::Orange) << typed;
            }
        }
    }
}

TEST(TypedFields, TheOctaveFieldHasNoUpperCheckButItsLowestValue) {
    SimulatedProgram program;
    MainFields& fields = program.App.Fields;
    std::mt19937 random(12);
    for (int i = 0; i < 20000; ++i) {
        const std::string typed = TypeOn(fields.KeyboardOctaveText.Get(), random);
        const std::uint8_t before = fields.KeyboardOctave;
        ASSERT_NO_THROW(fields.KeyboardOctaveText = typed) << typed;
        const std::uint8_t octave = fields.KeyboardOctave;
        const std::string text = fields.KeyboardOctaveText;
        ASSERT_GE(octave, 2);
        ASSERT_EQ(fields.OctLabel[1].Get(), std::to_string(octave));
        ASSERT_EQ(fields.OctLabel[0].Get(), std::to_string(octave - 1));
        ASSERT_EQ(fields.OctLabel[2].Get(), std::to_string(octave + 1));
        if (typed.empty()) {
            ASSERT_EQ(octave, before);
        } else if (!IsNumeric(typed)) {
            ASSERT_EQ(text, std::to_string(before)) << typed;
        } else if (Val(typed) < 2) {
            ASSERT_EQ(text, "2") << typed;
            ASSERT_EQ(octave, 2) << typed;
        } else if (Val(typed) > 255.5) {
            ASSERT_EQ(octave, before) << typed;
            ASSERT_EQ(fields.KeyboardOctaveTextBackColor, colour::Orange) << typed;
            fields.KeyboardOctaveText = "";
        } else {
            ASSERT_EQ(fields.KeyboardOctaveTextBackColor, colour::WindowBackground) << typed;
            ASSERT_EQ(octave, ToByte(Val(typed))) << typed;
        }
    }
}

}  // namespace
}  // namespace quavix::test
