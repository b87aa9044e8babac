// SPDX-License-Identifier: MIT
// What may use what: imports go downwards only, and the system is met in few places.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>

#include <gtest/gtest.h>

namespace quavix {
namespace {

namespace fs = std::filesystem;

struct Source {
    std::string Name;    // relative to src/ or modules/
    std::string Folder;  // its first component
    std::vector<std::string> Lines;
};

std::vector<Source> Sources(const char* below = "src") {
    const fs::path root = fs::path(QUAVIX_SOURCE_DIR) / below;
    std::vector<Source> sources;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension();
        if (extension != ".h" && extension != ".cpp")
            continue;
        Source source;
        source.Name = fs::relative(entry.path(), root);
        source.Folder = source.Name.substr(0, source.Name.find('/'));
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            source.Lines.push_back(line);
        sources.push_back(std::move(source));
    }
    return sources;
}

/// The folders that a folder's sources may include from, besides its own.
const std::map<std::string, std::set<std::string>>& Allowed() {
    static const std::set<std::string> base = {"ports", "shell", "dsp"};
    static const auto with = [](std::set<std::string> more) {
        more.insert(base.begin(), base.end());
        return more;
    };
    static const std::map<std::string, std::set<std::string>> allowed = {
        {"ports", {}},
        {"shell", {"ports"}},
        {"dsp", {}},
        {"sound_device", {}},
        {"music", {"ports", "shell"}},
        {"songfile", with({"music"})},
        {"fmod", with({"music"})},
        {"midi", with({"music", "fmod"})},
        {"playback", with({"music", "fmod", "midi"})},
        {"program", with({"music", "songfile", "playback", "fmod", "midi"})},
        {"simulation", with({"music", "songfile", "midi", "program"})},
        {"platform", with({"modules", "sound_device"})},
        {"ui", with({"music", "songfile", "playback", "fmod", "midi", "program"})},
        {"app",
         with({"music", "songfile", "playback", "fmod", "midi", "program", "simulation", "platform", "ui"})},
    };
    return allowed;
}

TEST(Layers, IncludesGoDownwardsOnly) {
    const std::regex include(R"re(^\s*#\s*include\s+"([^"/]+)/[^"]*")re");
    std::size_t seen = 0;
    for (const Source& source : Sources()) {
        ASSERT_TRUE(Allowed().contains(source.Folder)) << source.Name << " lies in a folder without a place";
        for (const std::string& line : source.Lines) {
            std::smatch match;
            if (!std::regex_search(line, match, include))
                continue;
            ++seen;
            const std::string folder = match[1];
            EXPECT_TRUE(folder == source.Folder || Allowed().at(source.Folder).contains(folder))
                << source.Name << ": " << line;
        }
    }
    EXPECT_GT(seen, 100U);
}

TEST(Layers, OnlyTheWindowsAndThePlatformKnowTheToolkit) {
    const std::regex toolkit(R"(#\s*include\s+<Q|\bQ(Object|String|Widget|Timer|Application)\b)");
    for (const Source& source : Sources()) {
        // The desktop program's main wires the toolkit's application together.
        if (source.Folder == "ui" || source.Name.starts_with("platform/qt/") || source.Folder == "app")
            continue;
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, toolkit)) << source.Name << ": " << line;
    }
}

TEST(Layers, NoClockAndNoSleepOutsideThePlatform) {
    const std::regex clocks(
        R"(<chrono>|<ctime>|<time\.h>|(system|steady|resolution)_clock\b(?!\.h)|\bclock_(gettime|nanosleep)|sleep|gettimeofday|\btime\(|Q(Elapsed)?Timer|QDateTime|<thread>)");
    for (const Source& source : Sources()) {
        if (source.Folder == "platform" || source.Folder == "sound_device")
            continue;
        for (const std::string& line : source.Lines) {
            const std::string code = line.substr(0, line.find("//"));
            EXPECT_FALSE(std::regex_search(code, clocks)) << source.Name << ": " << line;
        }
    }
}

TEST(Layers, TheSystemIsMetInThePlatformOnly) {
    const std::regex system(
        R"(#\s*include\s+<(unistd\.h|sys/|fcntl\.h|linux/|poll\.h|RtAudio|RtMidi|jack/|windows\.h))");
    for (const Source& source : Sources()) {
        if (source.Folder == "platform" || source.Folder == "sound_device")
            continue;
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, system)) << source.Name << ": " << line;
    }
}

TEST(Layers, ThePlatformsSystemsAreChosenByTheBuildNotByThePreprocessor) {
    const std::regex ladder(R"(#\s*(if|ifdef|ifndef|elif)\b)");
    for (const Source& source : Sources()) {
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, ladder)) << source.Name << ": " << line;
    }
}

// What is loaded at run time meets the program in its interface only, and the system in few files.
TEST(Layers, AModuleKnowsOfTheSourcesNothingButSound) {
    const std::regex include(R"re(^\s*#\s*include\s+"(?:modules/)?([^"/]+)/[^"]*")re");
    std::size_t seen = 0;
    for (const Source& source : Sources("modules")) {
        for (const std::string& line : source.Lines) {
            std::smatch match;
            if (!std::regex_search(line, match, include))
                continue;
            ++seen;
            const std::string folder = match[1];
            EXPECT_TRUE(folder == source.Folder || folder == "dsp" || folder == "sound_device")
                << source.Name << ": " << line;
        }
    }
    EXPECT_GT(seen, 30U);
}

TEST(Layers, TheSoundEngineMeetsTheSystemWhereSoundGoesOut) {
    const std::set<std::string> outputs = {"sound_engine/device_output.cpp",
                                           "sound_engine/soundless_output.cpp",
                                           "sound_engine/soundless_output.h"};
    const std::regex system(
        R"(<chrono>|<ctime>|<thread>|#\s*include\s+<(unistd\.h|sys/|fcntl\.h|poll\.h|RtAudio|jack/|windows\.h|Q))");
    const std::regex ladder(R"(#\s*(if|ifdef|ifndef|elif)\b)");
    for (const Source& source : Sources("modules")) {
        if (source.Folder != "sound_engine")
            continue;
        for (const std::string& line : source.Lines) {
            EXPECT_TRUE(outputs.contains(source.Name) || !std::regex_search(line, system))
                << source.Name << ": " << line;
            // The interface is a header for C and C++, on every system.
            EXPECT_TRUE(source.Name == "sound_engine/sound_engine.h" || !std::regex_search(line, ladder))
                << source.Name << ": " << line;
        }
    }
}

// The mixing thread has no time for any of it. Threads wait for each other where sound goes out and where
// calls come in.
TEST(Layers, MixingDoesNotLock) {
    const std::regex locks(R"(<mutex>|<condition_variable>|<semaphore>|\bmutex\b|lock_guard)");
    const std::set<std::string> others = {"sound_engine/api.cpp", "sound_engine/device_output.cpp",
                                          "sound_engine/soundless_output.cpp",
                                          "sound_engine/soundless_output.h"};
    for (const Source& source : Sources("modules")) {
        if (source.Folder != "sound_engine")
            continue;
        for (const std::string& line : source.Lines)
            EXPECT_TRUE(others.contains(source.Name) || !std::regex_search(line, locks))
                << source.Name << ": " << line;
    }
}

}  // namespace
}  // namespace quavix
