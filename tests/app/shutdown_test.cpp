// SPDX-License-Identifier: MIT
#include "app/shutdown.h"

#include <gtest/gtest.h>

#include "support/simulated_program.h"

namespace quavix {
namespace {

struct CountedEnd : ProcessEnd {
    void EndProcess() override { ++Ends; }
    int Ends = 0;
};

TEST(Shutdown, LogsTheRequestThenTheReleasesThenTheEnd) {
    test::SimulatedProgram p;
    p.App.Log.Enable();
    CountedEnd end;
    Shutdown shutdown(p.App.Fields.State, p.App.Log, end);
    shutdown.BeforeShutDown([&] { p.App.Outputs.SoundMods.Singer.VoiceDoShutDownStuff(); });
    shutdown.OnShutDown([&] { p.App.Log.LogText("first output"); });
    shutdown.OnShutDown([&] { p.App.Log.LogText("second output"); });
    shutdown.CloseProgram();
    EXPECT_EQ(p.LogText(),
              "[REQUEST TO CLOSE PROGRAM]\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - START\n"
              "    VoiceMainForm.VoiceDoShutDownStuff() - END\n"
              "\n"
              "    DoShutDownStuff() - START\n"
              "    first output\n"
              "    second output\n"
              "    DoShutDownStuff() - END\n"
              "\n"
              "KILLING PROCESS (should be last line in log)\n");
    EXPECT_EQ(end.Ends, 1);
    EXPECT_TRUE(p.App.Fields.State.ShuttingDown);
}

TEST(Shutdown, EndsTheProcessEvenIfNothingCanBeLoggedOrReleased) {
    test::SimulatedProgram p;
    p.App.Log.Enable();
    p.Disk.FailWriting("/program/debuglog.txt", std::errc::no_space_on_device);
    CountedEnd end;
    Shutdown shutdown(p.App.Fields.State, p.App.Log, end);
    bool secondReleased = false;
    shutdown.OnShutDown([] { throw std::runtime_error("stuck"); });
    shutdown.OnShutDown([&] { secondReleased = true; });
    shutdown.CloseProgram();
    EXPECT_TRUE(secondReleased);
    EXPECT_EQ(end.Ends, 1);
}

TEST(Shutdown, ASecondRequestDuringTheFirstDoesNothing) {
    test::SimulatedProgram p;
    CountedEnd end;
    Shutdown shutdown(p.App.Fields.State, p.App.Log, end);
    shutdown.OnShutDown([&] { shutdown.CloseProgram(); });
    shutdown.CloseProgram();
    EXPECT_EQ(end.Ends, 1);
}

}  // namespace
}  // namespace quavix
