// SPDX-License-Identifier: MIT
#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/common/system_ports.h"
#include "shell/process_priority.h"

namespace quavix {
namespace {

constexpr std::uint32_t SetAndQuery = Processes::SetInformation | Processes::QueryInformation;

/// A process of the test's own to be treated badly.
struct Child {
    Child() : Id(fork()) {
        if (Id == 0)
            for (;;)
                pause();
    }
    ~Child() {
        kill(Id, SIGKILL);
        waitpid(Id, nullptr, 0);
    }
    int Nice() const { return getpriority(PRIO_PROCESS, static_cast<id_t>(Id)); }

    pid_t Id;
};

TEST(PosixProcesses, TheFirstProcessOfTheSystemIsOutOfBounds) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    const int before = getpriority(PRIO_PROCESS, 1);
    EXPECT_EQ(processes.Open(SetAndQuery, 1), 0);
    EXPECT_EQ(processes.Open(Processes::QueryInformation, 1), 0);
    EXPECT_EQ(SetProcessPriority(processes, 1, 0, 64), 0);
    EXPECT_EQ(getpriority(PRIO_PROCESS, 1), before);
}

TEST(PosixProcesses, NoNegativeOrMissingProcessIsOpened) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    EXPECT_EQ(processes.Open(SetAndQuery, -1), 0);
    EXPECT_EQ(processes.Open(SetAndQuery, 0), 0);
    EXPECT_EQ(processes.Open(SetAndQuery, 0x7FFFFFFF), 0);
}

TEST(PosixProcesses, PriorityClassesAreNiceValues) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    const Child child;
    // Without privileges a priority can only go down, so where the tests run lower already only the lowest is
    // left.
    if (child.Nice() <= 10) {
        EXPECT_EQ(SetProcessPriority(processes, child.Id, 0, 16384), 16384);
        EXPECT_EQ(child.Nice(), 10);
    }
    EXPECT_EQ(SetProcessPriority(processes, child.Id, 0, 64), 64);
    EXPECT_EQ(child.Nice(), 19);
}

TEST(PosixProcesses, AnUnknownPriorityClassChangesNothing) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    const Child child;
    const int before = child.Nice();
    const ProcessHandle handle = processes.Open(SetAndQuery, child.Id);
    EXPECT_FALSE(processes.SetPriorityClass(handle, 77));
    EXPECT_FALSE(processes.SetPriorityClass(0, 64));
    EXPECT_EQ(child.Nice(), before);
}

TEST(PosixProcesses, AHandleWithoutTheRightToSetSetsNothing) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    const Child child;
    const int before = child.Nice();
    const ProcessHandle handle = processes.Open(Processes::QueryInformation, child.Id);
    EXPECT_FALSE(processes.SetPriorityClass(handle, 64));
    EXPECT_EQ(child.Nice(), before);
    EXPECT_NE(processes.GetPriorityClass(handle), 0);
}

TEST(PosixProcesses, ThisProcessIsItsOwn) {
    const std::unique_ptr<Processes> made = MakeProcesses();
    Processes& processes = *made;
    EXPECT_EQ(processes.CurrentProcessId(), getpid());
    EXPECT_NE(processes.Open(SetAndQuery, getpid()), 0);
    EXPECT_EQ(processes.WindowProcessId(1), 0);
}

}  // namespace
}  // namespace quavix
