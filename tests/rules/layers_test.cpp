// SPDX-License-Identifier: MIT
// Rules of the layers: includes follow the links of the build, which go downwards only, and the system is met
// in few places.
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <sstream>

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

/// The folders with targets of the build, as it links them. Includes may follow links, and nothing else.
class Links {
  public:
    Links() {
        std::ifstream file(QUAVIX_LAYERS);
        for (std::string line; std::getline(file, line);) {
            std::istringstream words(line);
            std::string folder;
            std::string target;
            std::getline(words, folder, ';');
            std::getline(words, target, ';');
            folderOf_[target] = folder;
            for (std::string linked; std::getline(words, linked, ';');)
                linked_[folder].insert(linked);
        }
        // The modules' interfaces lie with the modules.
        folderOf_["quavix_module_interfaces"] = "modules";
    }

    std::set<std::string> Folders() const {
        std::set<std::string> folders;
        for (const auto& [target, folder] : folderOf_)
            folders.insert(folder);
        return folders;
    }

    /// The folder of the target that a file belongs to; empty if it is none of this build's.
    std::string FolderOf(const std::string& file) const {
        for (fs::path folder = fs::path(file).parent_path(); !folder.empty(); folder = folder.parent_path()) {
            for (const auto& [target, at] : folderOf_) {
                if (at == folder)
                    return at;
            }
        }
        return {};
    }

    /// The folder's own, and those of everything that its targets link, directly or not.
    const std::set<std::string>& Reached(const std::string& folder) {
        auto [found, isNew] = reached_.try_emplace(folder);
        if (isNew)
            Reach(folder, found->second);
        return found->second;
    }

  private:
    void Reach(const std::string& folder, std::set<std::string>& reached) const {
        if (!reached.insert(folder).second || !linked_.contains(folder))
            return;
        for (const std::string& target : linked_.at(folder)) {
            if (folderOf_.contains(target))
                Reach(folderOf_.at(target), reached);
        }
    }

    std::map<std::string, std::string> folderOf_;
    std::map<std::string, std::set<std::string>> linked_;
    std::map<std::string, std::set<std::string>> reached_;
};

bool IsInterfaceOfAModule(const std::string& file) {
    return file.starts_with("modules/") &&
           (file.ends_with("_module.h") || file == "modules/sound_engine/sound_engine.h");
}

TEST(Layers, IncludesFollowTheLinksOfTheBuild) {
    const std::regex include(R"re(^\s*#\s*include\s+"([^"]+/[^"]*)")re");
    Links links;
    std::size_t seen = 0;
    for (const char* below : {"src", "modules"}) {
        for (const Source& source : Sources(below)) {
            const std::string folder = links.FolderOf(below + ("/" + source.Name));
            if (folder.empty() || folder == "modules")
                continue;  // left out of this build
            const std::set<std::string>& reached = links.Reached(folder);
            for (const std::string& line : source.Lines) {
                std::smatch match;
                if (!std::regex_search(line, match, include))
                    continue;
                ++seen;
                const std::string file = match[1];
                if (reached.contains("modules") && IsInterfaceOfAModule(file))
                    continue;
                EXPECT_TRUE(reached.contains(links.FolderOf("src/" + file)) || links.FolderOf(file) == folder)
                    << source.Name << ": " << line;
            }
        }
    }
    EXPECT_GT(seen, 500U);
}

TEST(Layers, LinksGoDownwardsOnly) {
    Links links;
    for (const std::string& upper : links.Folders()) {
        for (const std::string& lower : links.Reached(upper))
            EXPECT_TRUE(lower == upper || !links.Reached(lower).contains(upper))
                << upper << " and " << lower << " reach each other";
    }
    EXPECT_TRUE(links.Reached("src/app").contains("src/platform/common"));
    EXPECT_TRUE(links.Reached("src/platform/linux").contains("src/platform/posix"));
    EXPECT_FALSE(links.Reached("src/ui").contains("src/platform/common"));
}

TEST(Layers, PortableFoldersReachNoSystemFolder) {
    Links links;
    for (const char* portable :
         {"src/platform/common", "src/platform/common/speaker", "src/platform/qt", "src/app"}) {
        for (const std::string& folder : links.Reached(portable))
            EXPECT_FALSE(folder.starts_with("src/platform/posix") || folder.starts_with("src/platform/linux"))
                << portable << " reaches " << folder;
    }
}

/// Expects that no line of the chosen sources matches, and returns the number of these sources.
std::size_t ExpectNone(const std::regex& pattern, const std::function<bool(const Source&)>& isChosen) {
    std::size_t seen = 0;
    for (const Source& source : Sources()) {
        if (!isChosen(source))
            continue;
        ++seen;
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, pattern)) << source.Name << ": " << line;
    }
    return seen;
}

TEST(Layers, PosixFilesUseNothingOfLinux) {
    const std::regex kernel(
        R"(#\s*include\s+<(linux/|sys/(prctl|eventfd|timerfd|inotify|epoll)\.h)|/proc/|O_TMPFILE|O_PATH)");
    EXPECT_GT(
        ExpectNone(kernel, [](const Source& source) { return source.Name.starts_with("platform/posix/"); }),
        5U);
}

TEST(Layers, OnlyTheWindowsAndThePlatformIncludeTheToolkit) {
    const std::regex toolkit(R"(#\s*include\s+<Q|\bQ(Object|String|Widget|Timer|Application)\b)");
    for (const Source& source : Sources()) {
        if (source.Folder == "ui" || source.Name.starts_with("platform/qt/"))
            continue;
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, toolkit)) << source.Name << ": " << line;
    }
}

TEST(Layers, OfTheApplicationOnlyTheMainAndItsPortsKnowTheWindows) {
    const std::regex windows(R"(#\s*include\s+"(ui|platform/qt)/)");
    for (const Source& source : Sources()) {
        if (source.Folder != "app" || source.Name == "app/quavix_main.cpp" ||
            source.Name.starts_with("app/desktop_ports."))
            continue;
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, windows)) << source.Name << ": " << line;
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

TEST(Layers, SystemHeadersAreIncludedInTheSystemFoldersOnly) {
    const std::regex system(R"(#\s*include\s+<(?!fmt/)[^>]*\.h>)");
    const auto isPortable = [](const Source& source) {
        return !source.Name.starts_with("platform/posix/") && !source.Name.starts_with("platform/linux/") &&
               source.Folder != "sound_device";
    };
    EXPECT_GT(ExpectNone(system, isPortable), 100U);
}

TEST(Layers, SoundCardHeadersAreIncludedInOneFolderOnly) {
    const std::regex sound(R"(#\s*include\s+<(RtAudio|RtMidi|jack/|alsa/))");
    ExpectNone(sound, [](const Source& source) { return source.Folder != "sound_device"; });
}

TEST(Layers, ThePlatformsSystemsAreChosenByTheBuildNotByThePreprocessor) {
    const std::regex ladder(R"(#\s*(if|ifdef|ifndef|elif)\b)");
    for (const Source& source : Sources()) {
        for (const std::string& line : source.Lines)
            EXPECT_FALSE(std::regex_search(line, ladder)) << source.Name << ": " << line;
    }
}

TEST(Layers, AModuleIncludesOnlyTheSoundFolders) {
    Links links;
    for (const char* module : {"modules/midi_file", "modules/midi_io", "modules/sound_engine"}) {
        for (const std::string& folder : links.Reached(module))
            EXPECT_TRUE(folder.starts_with("modules") || folder == "src/dsp" || folder == "src/sound_device")
                << module << " reaches " << folder;
    }
}

TEST(Layers, TheSoundEngineUsesTheSystemOnlyInItsOutputs) {
    const std::set<std::string> outputs = {"sound_engine/device_output.cpp",
                                           "sound_engine/soundless_output.cpp",
                                           "sound_engine/soundless_output.h"};
    const std::regex system(
        R"(<chrono>|<ctime>|<thread>|#\s*include\s+<(unistd\.h|pwd\.h|sys/|fcntl\.h|poll\.h|RtAudio|jack/|windows\.h|Q))");
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
