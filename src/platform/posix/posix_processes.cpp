// SPDX-License-Identifier: MIT
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/common/system_ports.h"

namespace quavix {
namespace {

struct PriorityClass {
    std::int32_t Class;
    int Nice;
};

// From the nicest to the most demanding; nice values in between belong to the nearest class below them.
constexpr PriorityClass Classes[] = {{64, 19}, {16384, 10}, {32, 0}, {32768, -5}, {128, -10}, {256, -20}};

// Rights, held in a handle below the process's id.
constexpr ProcessHandle MaySet = 1;
constexpr ProcessHandle MayQuery = 2;
constexpr ProcessHandle Rights = 4;

id_t IdOf(ProcessHandle process) {
    return static_cast<id_t>(process / Rights);
}

/// Processes with their nice values as priority classes. The system's first process can't be opened. A handle
/// consists of the process's id and the rights it was opened with, so it needs no closing.
class PosixProcesses : public Processes {
  public:
    std::int32_t CurrentProcessId() override { return getpid(); }
    /// Returns 0: the windows of other processes are unknown here.
    std::int32_t WindowProcessId(std::intptr_t) override { return 0; }

    ProcessHandle Open(std::uint32_t access, std::int32_t processId) override {
        constexpr std::int32_t FirstProcess = 1;
        if (processId <= FirstProcess)
            return 0;
        const bool exists = kill(processId, 0) == 0;
        const bool isOthers = !exists && errno == EPERM;
        if (!exists && !(isOthers && (access & SetInformation) == 0))
            return 0;
        return ProcessHandle{processId} * Rights + ((access & SetInformation) != 0 ? MaySet : 0) +
               ((access & QueryInformation) != 0 ? MayQuery : 0);
    }

    bool SetPriorityClass(ProcessHandle process, std::int32_t priorityClass) override {
        if ((process & MaySet) == 0)
            return false;
        for (const PriorityClass& entry : Classes) {
            if (entry.Class == priorityClass)
                return setpriority(PRIO_PROCESS, IdOf(process), entry.Nice) == 0;
        }
        return false;
    }

    std::int32_t GetPriorityClass(ProcessHandle process) override {
        if ((process & MayQuery) == 0)
            return 0;
        errno = 0;
        const int nice = getpriority(PRIO_PROCESS, IdOf(process));
        if (nice == -1 && errno != 0)
            return 0;
        for (const PriorityClass& entry : Classes) {
            if (nice >= entry.Nice)
                return entry.Class;
        }
        return 0;
    }

    void Close(ProcessHandle) override {}
};

}  // namespace

std::unique_ptr<Processes> MakeProcesses() {
    return std::make_unique<PosixProcesses>();
}

void EndProcess() {
    std::fflush(nullptr);
    std::_Exit(EXIT_SUCCESS);
}

}  // namespace quavix
