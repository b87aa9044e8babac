// SPDX-License-Identifier: MIT
#include "shell/waiting.h"

#include <gtest/gtest.h>

#include "shell/process_priority.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_processes.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

constexpr std::int32_t TimedOut = 258;

TEST(MsgWaitObj, AWaitOfZeroEndsAfterOnePass) {
    SimulatedTime time;
    bool handled = false;
    time.At(0, [&] { handled = true; });
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(0), TimedOut);
    EXPECT_TRUE(handled) << "what is pending runs all the same";
    EXPECT_EQ(time.Now(), 0);
}

TEST(MsgWaitObj, TakesItsTimeAlthoughInputIsHandledMeanwhile) {
    SimulatedTime time;
    double clickedAt = -1;
    time.At(400, [&] { clickedAt = static_cast<double>(time.Now()) / SimulatedTime::CountsPerMs; });
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(1000), TimedOut);
    EXPECT_EQ(clickedAt, 400);
    EXPECT_EQ(time.Now(), 1000 * SimulatedTime::CountsPerMs);
}

TEST(MsgWaitObj, ALongHandlerDelaysTheEndButAddsNoTime) {
    SimulatedTime time;
    time.At(90, [&] { time.Block(50); });
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(100), TimedOut);
    EXPECT_EQ(time.Now(), 140 * SimulatedTime::CountsPerMs);
}

TEST(MsgWaitObj, MayBeEnteredAgainFromAHandler) {
    SimulatedTime time;
    Waiting waiting(time, time);
    std::int64_t innerEnd = 0;
    time.At(10, [&] {
        EXPECT_EQ(waiting.MsgWaitObj(20), TimedOut);
        innerEnd = time.Now();
    });
    EXPECT_EQ(waiting.MsgWaitObj(100), TimedOut);
    EXPECT_EQ(innerEnd, 30 * SimulatedTime::CountsPerMs);
    EXPECT_EQ(time.Now(), 100 * SimulatedTime::CountsPerMs);
}

/// A wait that starts shortly before the tick count passes a boundary.
class MsgWaitObjAcross : public testing::TestWithParam<std::uint32_t> {};

TEST_P(MsgWaitObjAcross, AWaitAcrossTheWrapTakesItsTime) {
    for (const std::uint32_t before : {0U, 1U, 15U, 999U, 1000U, 1001U}) {
        SimulatedTime time({.TickCount = GetParam() - before});
        bool handled = false;
        time.At(700, [&] { handled = true; });
        EXPECT_EQ(Waiting(time, time).MsgWaitObj(1000), TimedOut);
        EXPECT_EQ(time.Now(), 1000 * SimulatedTime::CountsPerMs) << before;
        EXPECT_TRUE(handled);
    }
}

INSTANTIATE_TEST_SUITE_P(BothWraps, MsgWaitObjAcross, testing::Values(0x80000000U, 0U));

TEST(MsgWaitObj, AWaitAcrossTheWrapEndsEvenIfAHandlerOverrunsIt) {
    for (const std::uint32_t boundary : {0x80000000U, 0U}) {
        SimulatedTime time({.TickCount = boundary - 50});
        time.At(10, [&] { time.Block(5000); });
        EXPECT_EQ(Waiting(time, time).MsgWaitObj(100), TimedOut);
        EXPECT_EQ(time.Now(), 5010 * SimulatedTime::CountsPerMs);
    }
}

TEST(MsgWaitObj, TheLongestIntervalDoesNotOverflow) {
    SimulatedTime time({.TickCount = 0x7FFFFFFF});
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(0x7FFFFFFF), TimedOut);
    EXPECT_EQ(time.Now(), 0x7FFFFFFF * SimulatedTime::CountsPerMs);
}

TEST(MsgWaitObj, ForEverEndsWhenItsHandleIsSignalled) {
    SimulatedTime time;
    bool handled = false;
    time.At(50, [&] { handled = true; });
    time.SignalAt(200, 7);
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(-1, 7, 1), 0);
    EXPECT_TRUE(handled);
    EXPECT_EQ(time.Now(), 200 * SimulatedTime::CountsPerMs);
}

TEST(MsgWaitObj, WithAHandleStillTimesOut) {
    SimulatedTime time;
    EXPECT_EQ(Waiting(time, time).MsgWaitObj(30, 7, 1), TimedOut);
    EXPECT_EQ(time.Now(), 30 * SimulatedTime::CountsPerMs);
}

TEST(TickFreq, IsLoggedInTheScaleOfTheCurrency) {
    class HardwareClock : public SimulatedTime {
        std::int64_t PerformanceFrequency() override { return 3579545; }
    };
    HardwareClock time;
    SimulatedFiles disk;
    DebugLog log(disk, time, "log");
    log.Enable();
    EXPECT_EQ(ReadTickFreq(time, log).Units(), 3579545);
    EXPECT_EQ(disk.Content("log"),
              "12:00:00 - QueryPerformanceFrequency returned 357.9545 (TickFreq set to this)\r\n");
}

TEST(ProcessPriority, ProcessZeroWithoutAWindowIsThisOne) {
    SimulatedProcesses processes;
    EXPECT_EQ(SetProcessPriority(processes, 0, 0, 32), 32);
    EXPECT_EQ(processes.Calls(), "open 4711 rights 1536\nset 32\nget\nclose\n");
}

TEST(ProcessPriority, ProcessZeroWithAWindowIsItsOwner) {
    SimulatedProcesses processes;
    processes.PriorityClass = 128;
    EXPECT_EQ(SetProcessPriority(processes, 0, 99, 64), 64);
    EXPECT_EQ(processes.Calls(), "open 815 rights 1536\nset 64\nget\nclose\n");
}

TEST(ProcessPriority, AProcessThatMayNotBeChangedIsOnlyAsked) {
    SimulatedProcesses processes;
    processes.RefuseRights = Processes::SetInformation;
    processes.PriorityClass = 128;
    EXPECT_EQ(SetProcessPriority(processes, 1, 0, 32), 128);
    EXPECT_EQ(processes.Calls(), "open 1 rights 1536\nopen 1 rights 1024\nget\nclose\n");
}

TEST(ProcessPriority, AProcessThatCannotBeOpenedHasClassZero) {
    SimulatedProcesses processes;
    processes.RefuseRights = Processes::SetInformation | Processes::QueryInformation;
    EXPECT_EQ(SetProcessPriority(processes, 1, 0, 32), 0);
}

}  // namespace
}  // namespace quavix
