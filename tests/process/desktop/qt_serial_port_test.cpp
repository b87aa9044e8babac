// SPDX-License-Identifier: MIT
#include "platform/qt/qt_serial_port.h"

#include <csignal>
#include <sys/wait.h>

#include <QCoreApplication>
#include <gtest/gtest.h>

#include "desktop_process.h"
#include "playback/motor_mod_module.h"
#include "pseudo_terminal.h"
#include "simulation/simulated_dialogs.h"
#include "simulation/simulated_files.h"
#include "simulation/simulated_time.h"

namespace quavix {
namespace {

TEST(QtSerialPort, SendsItsBytesAsTheyAreAtOnce) {
    PseudoTerminal terminal;
    QtSerialPort port(terminal.PortName());
    EXPECT_EQ(port.Names(), std::vector{terminal.PortName()});
    EXPECT_EQ(port.Open(terminal.PortName(), {}), "");
    const std::string bytes("#0P1350\r\n\x03\x04\x11\x13\x7F\xFF\0x", 17);
    port.Write(bytes);
    EXPECT_EQ(terminal.WaitFor(bytes), bytes) << "without the event loop";
}

TEST(QtSerialPort, IsSetTo115200BaudEightBitsNoParityOneStopBit) {
    PseudoTerminal terminal;
    QtSerialPort port;
    EXPECT_EQ(port.Open(terminal.PortName(), {}), "");
    const termios settings = terminal.Settings();
    EXPECT_EQ(cfgetospeed(&settings), static_cast<speed_t>(B115200));
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0u);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF), 0u);
}

TEST(QtSerialPort, IgnoresInputFromTheDevice) {
    PseudoTerminal terminal;
    QtSerialPort port;
    bool lost = false;
    port.WhenLost([&](const std::string&) { lost = true; });
    EXPECT_EQ(port.Open(terminal.PortName(), {}), "");
    terminal.Send("+\r");
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    port.Write("Q\r");
    EXPECT_EQ(terminal.WaitFor("Q\r"), "Q\r");
    EXPECT_FALSE(lost);
}

TEST(QtSerialPort, APortThatIsNotThereIsRefusedWithAReason) {
    QtSerialPort port;
    EXPECT_NE(port.Open("/dev/no-such-port", "words"), "");
    port.Write("lost");
    port.Close();
}

TEST(QtSerialPort, ABusyPortIsRefusedUntilItIsFree) {
    PseudoTerminal terminal;
    QtSerialPort first;
    QtSerialPort second;
    EXPECT_EQ(first.Open(terminal.PortName(), {}), "");
    EXPECT_NE(second.Open(terminal.PortName(), {}), "");
    first.Close();
    EXPECT_EQ(second.Open(terminal.PortName(), {}), "");
}

TEST(QtSerialPort, APulledPortIsNoticedByTheEventLoopOnce) {
    PseudoTerminal terminal;
    QtSerialPort port;
    int lost = 0;
    port.WhenLost([&](const std::string& reason) {
        EXPECT_NE(reason, "");
        ++lost;
    });
    EXPECT_EQ(port.Open(terminal.PortName(), "words"), "");
    terminal.Pull();
    while (lost == 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    port.Write("to nobody");
    QCoreApplication::processEvents();
    EXPECT_EQ(lost, 1);
}

TEST(QtSerialPort, APulledPortIsNoticedByAWrite) {
    PseudoTerminal terminal;
    QtSerialPort port;
    int lost = 0;
    port.WhenLost([&](const std::string&) { ++lost; });
    EXPECT_EQ(port.Open(terminal.PortName(), {}), "");
    terminal.Pull();
    port.Write("to nobody");
    EXPECT_EQ(lost, 1);
}

/// The motor on a real port, in simulated time.
struct MotorOnAPort {
    MotorOnAPort() { Fields.Mods.UseMotor.Ticked = true; }

    SimulatedTime Time;
    quavix::Timeline Timeline;
    SimulatedFiles Disk;
    SimulatedMessageBoxes Boxes{Time, Timeline};
    MainFields Fields;
    DebugLog Log{Disk, Time, "log"};
    EventBoundary Handlers{Boxes, Log};
    Waiting Wait{Time, Time};
    PseudoTerminal Terminal;
    QtSerialPort Port{Terminal.PortName()};
    MotorModModule Motor{{Fields.Song, Fields.Mods, Fields.Output, Port, Wait, Boxes, Handlers, Log}};
};

TEST(MotorOnAPort, SendsEachCommandAtItsTime) {
    MotorOnAPort p;
    p.Time.At(214, [&] { EXPECT_EQ(p.Terminal.WaitFor("#0P1350\r"), "#0P1350\r"); });
    p.Time.At(216, [&] {
        EXPECT_EQ(p.Terminal.WaitFor("#0P1350\r#0P1470\r#0P1000\r"), "#0P1350\r#0P1470\r#0P1000\r");
    });
    p.Motor.PlayNote("C1", 200);
    p.Motor.PlayNote("F3", 50);
    EXPECT_EQ(p.Terminal.WaitFor("#0P1350\r#0P1470\r#0P1000\r#0P1470\r"),
              "#0P1350\r#0P1470\r#0P1000\r#0P1470\r");
    EXPECT_EQ(p.Time.Now(), 280 * SimulatedTime::CountsPerMs);
}

TEST(MotorOnAPort, PullingThePortDuringMusicSwitchesTheMotorOffWithOneMessage) {
    MotorOnAPort p;
    EXPECT_TRUE(p.Fields.Mods.UseMotor.InUse);
    p.Time.At(100, [&] { p.Terminal.Pull(); });
    p.Motor.PlayNote("C1", 200);
    EXPECT_FALSE(p.Fields.Mods.UseMotor.InUse);
    EXPECT_FALSE(p.Fields.Mods.UseMotor.Ticked);
    p.Motor.PlayNote("C1", 200);
    EXPECT_EQ(p.Boxes.Shown().size(), 1u);
}

TEST(MotorOnAPort, ABusyPortIsRefusedWithAMessageUntilItIsFree) {
    MotorOnAPort p;
    p.Fields.Mods.UseMotor.Ticked = false;
    QtSerialPort other;
    EXPECT_EQ(other.Open(p.Terminal.PortName(), {}), "");
    p.Fields.Mods.UseMotor.Ticked = true;
    EXPECT_FALSE(p.Fields.Mods.UseMotor.Ticked);
    EXPECT_EQ(p.Boxes.Shown().size(), 1u);
    other.Close();
    p.Fields.Mods.UseMotor.Ticked = true;
    EXPECT_TRUE(p.Fields.Mods.UseMotor.InUse);
}

TEST(MotorOnAPort, UntickingStopsTheMotorAndFreesThePort) {
    MotorOnAPort p;
    p.Fields.Song.NoteSilenceRatio.Set(100);
    p.Motor.PlayNote("C1", 10);
    p.Fields.Mods.UseMotor.Ticked = false;
    EXPECT_EQ(p.Terminal.WaitFor("#0P1350\r#0P1470\r"), "#0P1350\r#0P1470\r");
    QtSerialPort other;
    EXPECT_EQ(other.Open(p.Terminal.PortName(), {}), "");
}

TEST(MotorInAProcess, IsStoppedHoweverTheProcessEnds) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGKILL, SIGSEGV, SIGABRT}) {
        PseudoTerminal terminal;
        DesktopProcess process({"motor", terminal.PortName()});
        EXPECT_EQ(terminal.WaitFor("#0P1350\r"), "#0P1350\r");
        process.Signal(signal);
        EXPECT_EQ(terminal.WaitFor("#0P1350\r#0P1470\r"), "#0P1350\r#0P1470\r") << signal;
        const int status = process.Wait();
        const bool closesInOrder = signal == SIGTERM || signal == SIGINT || signal == SIGHUP;
        EXPECT_EQ(closesInOrder, WIFEXITED(status) && WEXITSTATUS(status) == 0) << signal;
        EXPECT_EQ(terminal.Arrived(), "#0P1350\r#0P1470\r") << "once";
    }
}

}  // namespace
}  // namespace quavix
