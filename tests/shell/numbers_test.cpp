// SPDX-License-Identifier: MIT
#include "shell/numbers.h"

#include <cmath>
#include <functional>
#include <limits>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "shell/currency.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

int ErrorNumberOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST(WholeNumbers, HalvesGoToTheEvenNeighbour) {
    EXPECT_EQ(ToInt32(0.5), 0);
    EXPECT_EQ(ToInt32(1.5), 2);
    EXPECT_EQ(ToInt32(2.5), 2);
    EXPECT_EQ(ToInt32(-0.5), 0);
    EXPECT_EQ(ToInt32(-1.5), -2);
    EXPECT_EQ(ToInt32(2.5000001), 3);
    EXPECT_EQ(ToInt32(162.5), 162);
}

TEST(WholeNumbers, OutOfRangeIsAnOverflow) {
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(ErrorNumberOf([] { ToInt32(2147483647.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt32(-2147483649.0); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt16(32767.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt16(-32769); }), 6);
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_EQ(ToByte(255.4), 255);
    EXPECT_EQ(ErrorNumberOf([] { ToByte(255.5); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToByte(-0.6); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt64(std::ldexp(1.0, 63)); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt32(std::numeric_limits<double>::quiet_NaN()); }), 6);
    EXPECT_EQ(ErrorNumberOf([] { ToInt32(std::numeric_limits<double>::infinity()); }), 6);
}

TEST(Val, ReadsTheLeadingNumberOrZero) {
    EXPECT_EQ(Val("140"), 140);
    EXPECT_EQ(Val("140 bpm"), 140);
    EXPECT_EQ(Val("  1 2\t3"), 123);
    EXPECT_EQ(Val("-2.5e2x"), -250);
    EXPECT_EQ(Val("1d2"), 100);
    EXPECT_EQ(Val("+7"), 7);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("5."), 5);
    EXPECT_EQ(Val("3e"), 3);
    EXPECT_EQ(Val("3e+"), 3);
    for (const char* text : {"abc", "", "-", ".", "+-1", "inf"})
        EXPECT_EQ(Val(text), 0) << text;
    EXPECT_EQ(Val("1e999"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val("-1e999"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val("1e-999"), 0);
    EXPECT_EQ(Val(fmt::format("0.{:0400}1", 0)), 0);
    EXPECT_EQ(Val(fmt::format("{:9>800}e-10", 9)), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val(fmt::format("0.{:0400}1e999", 0)), std::numeric_limits<double>::infinity());
}

TEST(IsNumeric, TakesOneWholeNumberAndNothingElse) {
    for (const char* text : {"14", " 14 ", "-3", "+3", "1.5", ".5", "2e3"})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", " ", "abc", "14a", "1 4", "--1", ".", "e5", "1e", "nan", "inf"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(NumberText, IsTheOrdinaryDecimalForm) {
    EXPECT_EQ(NumberText(500), "500");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(499.9), "499.9");
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
    EXPECT_EQ(NumberText(2147483648.0), "2147483648");
}

TEST(FormatNumber, PadsTheWholePartAndRoundsHalvesAway) {
    EXPECT_EQ(FormatNumber(1, 3), "001");
    EXPECT_EQ(FormatNumber(1234, 3), "1234");
    EXPECT_EQ(FormatNumber(3.5, 2, 2), "03.50");
    EXPECT_EQ(FormatNumber(0.285, 2, 2), "00.29");
    EXPECT_EQ(FormatNumber(2.5, 1), "3");
    EXPECT_EQ(FormatNumber(-1.5, 2, 2), "-01.50");
    EXPECT_EQ(FormatNumber(-0.001, 2, 2), "00.00");
}

TEST(NumPad, PadsOnTheLeftAndNeverCuts) {
    EXPECT_EQ(NumPad(262, " ", 5), "  262");
    EXPECT_EQ(NumPad(12000, " ", 5), "12000");
    EXPECT_EQ(NumPad(100000, " ", 5), "100000");
    EXPECT_EQ(NumPad(5, "0x", 3), "005");
    EXPECT_EQ(NumPad(5, "", 3), "5");
}

TEST(Currency, HoldsFourDecimalsRoundedHalfToEven) {
    EXPECT_EQ(Currency::FromDouble(0.25).Units(), 2500);
    EXPECT_EQ(Currency::FromDouble(0.33333).Units(), 3333);
    EXPECT_EQ(Currency::FromDouble(-1.00006).Units(), -10001);
}

TEST(Currency, WritesEveryDigitAndNoTrailingZero) {
    EXPECT_EQ(Currency::FromUnits(3579545).ToText(), "357.9545");
    EXPECT_EQ(Currency::FromUnits(10000000).ToText(), "1000");
    EXPECT_EQ(Currency::FromUnits(-5).ToText(), "-0.0005");
    EXPECT_EQ(Currency::FromUnits(0).ToText(), "0");
    EXPECT_EQ(Currency::FromUnits(std::numeric_limits<std::int64_t>::max()).ToText(), "922337203685477.5807");
    EXPECT_EQ(Currency::FromUnits(std::numeric_limits<std::int64_t>::min()).ToText(),
              "-922337203685477.5808");
}

TEST(Currency, SumsAndDifferencesAreExactOrAnOverflow) {
    const Currency highest = Currency::FromUnits(std::numeric_limits<std::int64_t>::max());
    const Currency lowest = Currency::FromUnits(std::numeric_limits<std::int64_t>::min());
    const Currency unit = Currency::FromUnits(1);
    EXPECT_EQ((highest - unit) + unit, highest);
    EXPECT_EQ(ErrorNumberOf([&] { highest + unit; }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { lowest - unit; }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { unit - lowest; }), 6);
    EXPECT_EQ(ErrorNumberOf([&] { Currency::FromDouble(1e15); }), 6);
}

TEST(Currency, DividingByZeroIsAnError) {
    EXPECT_EQ(Currency::FromUnits(1) / Currency::FromUnits(4), 0.25);
    EXPECT_EQ(ErrorNumberOf([] { Quotient(1, 0); }), 11);
    EXPECT_EQ(ErrorNumberOf([] { Quotient(0, 0); }), 6);
}

}  // namespace
}  // namespace quavix
