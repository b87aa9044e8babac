// SPDX-License-Identifier: MIT
// Measures the program's start, up to its window, and its memory then, relative to an empty window with a
// table. Both are started in turn on a private display.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

#include "x_display.h"

namespace quavix::bench {
namespace {

constexpr int Starts = 21;

struct Figure {
    const char* Name;
    const char* Unit;
    const char* Target;  // greatest acceptable ratio
};
// Shared memory is counted fully, divided by the number of sharing processes, or not at all. Only the first
// figure is independent of the machine's other programs.
constexpr Figure Figures[] = {
    {"window on the screen", "ms", "2"},
    {"window painted", "ms", "2"},
    {"processor time", "ms", ""},
    {"memory, resident", "MiB", "1.5"},
    {"memory, libraries by share", "MiB", "1.5"},
    {"memory, without libraries", "MiB", ""},
};
using Values = std::map<std::string, std::vector<double>>;

double Ms(Watch::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

/// Returns the figures of a process from the kernel's list, in KiB, by name.
std::map<std::string, double> MemoryOf(pid_t id) {
    std::map<std::string, double> sizes;
    std::ifstream file("/proc/" + std::to_string(id) + "/smaps_rollup");
    std::string name;
    std::getline(file, name);
    double size = 0;
    for (std::string unit; file >> name >> size >> unit;)
        sizes[name] = size;
    return sizes;
}

double ProcessorTimeMs(pid_t id) {
    std::ifstream file("/proc/" + std::to_string(id) + "/schedstat");
    double nanoseconds = 0;
    file >> nanoseconds;
    return nanoseconds / 1e6;
}

void Start(XDisplay& display, const std::string& program, const std::vector<std::string>& settings,
           Values& values) {
    const auto start = Watch::now();
    const Child child({program}, settings);
    const XDisplay::Shown shown = display.WaitForWindow();
    std::map<std::string, double> memory = MemoryOf(child.Id());
    constexpr double KiB = 1024;
    values["window on the screen"].push_back(Ms(shown.Mapped - start));
    values["window painted"].push_back(Ms(shown.Painted - start));
    values["processor time"].push_back(ProcessorTimeMs(child.Id()));
    values["memory, without libraries"].push_back((memory["Private_Clean:"] + memory["Private_Dirty:"]) /
                                                  KiB);
    values["memory, libraries by share"].push_back(memory["Pss:"] / KiB);
    values["memory, resident"].push_back(memory["Rss:"] / KiB);
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Print(const Values& program, const Values& empty) {
    std::printf("Medians of %d starts.\n\n%-34s %12s %12s %8s %8s\n", Starts, "", "empty window", "quavix",
                "ratio", "target");
    for (const Figure& figure : Figures) {
        const double own = Median(program.at(figure.Name));
        const double measure = Median(empty.at(figure.Name));
        std::printf("%-34s %8.1f %3s %8.1f %3s %8.2f %8s\n", figure.Name, measure, figure.Unit, own,
                    figure.Unit, own / measure, figure.Target);
    }
}

void Run() {
    XDisplay display;
    const auto folder = std::filesystem::temp_directory_path() /
                        ("quavix-start-bench-" + std::to_string(static_cast<long>(::getpid())));
    std::filesystem::create_directories(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    // A private state folder without unsaved songs to offer, and no message bus.
    const std::vector<std::string> settings{
        display.Setting(), "QT_QPA_PLATFORM=xcb",
        "DBUS_SESSION_BUS_ADDRESS=disabled:", "XDG_RUNTIME_DIR=" + folder.string(),
        "XDG_STATE_HOME=" + folder.string()};
    Values program;
    Values empty;
    for (int i = -1; i < Starts; ++i) {
        Values first;  // not counted: fills the disk's cache
        Start(display, QUAVIX_EMPTY_WINDOW, settings, i < 0 ? first : empty);
        display.WaitForItsEnd();
        Start(display, QUAVIX_PROGRAM, settings, i < 0 ? first : program);
        display.WaitForItsEnd();
    }
    Print(program, empty);
    std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace quavix::bench

int main() {
    try {
        quavix::bench::Run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quavix-bench-start: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
