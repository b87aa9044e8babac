// SPDX-License-Identifier: MIT
// Rules for the files of the project themselves.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

namespace quavix {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& file) {
    std::ostringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
}

/// All C++ files of the project below its own folders.
std::vector<fs::path> CodeFiles() {
    std::vector<fs::path> files;
    for (const char* folder : {"src", "modules", "tests", "bench", "fuzz"}) {
        for (const auto& entry : fs::recursive_directory_iterator(fs::path(QUAVIX_SOURCE_DIR) / folder)) {
            if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
                files.push_back(entry.path());
        }
    }
    return files;
}

TEST(Files, EachNamesItsLicenceInItsFirstLine) {
    for (const fs::path& file : CodeFiles())
        // A header for programs in C is C.
        EXPECT_TRUE(std::regex_search(
            Content(file),
            std::regex(R"(^(// SPDX-License-Identifier: MIT|/\* SPDX-License-Identifier: MIT \*/)\n)")))
            << file;
}

TEST(Files, AreShort) {
    constexpr std::ptrdiff_t MostLines = 600;
    for (const fs::path& file : CodeFiles()) {
        const std::string content = Content(file);
        EXPECT_LE(std::count(content.begin(), content.end(), '\n'), MostLines) << file;
    }
}

TEST(Documents, LinkOnlyToExistingFiles) {
    const fs::path root = QUAVIX_SOURCE_DIR;
    const std::regex link(R"(\]\(([^)#:]+)(#[^)]*)?\))");
    std::size_t seen = 0;
    for (const char* name :
         {"README.md", "CONTRIBUTING.md", "ARCHITECTURE.md", "CHANGELOG.md", "examples/README.md",
          "modules/sound_engine/README.md", "modules/midi_file/README.md", "modules/midi_io/README.md"}) {
        const fs::path document = root / name;
        ASSERT_TRUE(fs::exists(document)) << name;
        const std::string content = Content(document);
        for (auto match = std::sregex_iterator(content.begin(), content.end(), link);
             match != std::sregex_iterator(); ++match) {
            ++seen;
            EXPECT_TRUE(fs::exists(document.parent_path() / (*match)[1].str()))
                << name << ": " << match->str();
        }
    }
    EXPECT_GT(seen, 5U);
}

TEST(Documents, TheArchitectureListsEveryFolder) {
    const fs::path root = QUAVIX_SOURCE_DIR;
    const std::string architecture = Content(root / "ARCHITECTURE.md");
    for (const char* above : {"src/", "modules/"}) {
        for (const auto& entry : fs::directory_iterator(root / above)) {
            const std::string folder = above + entry.path().filename().string() + "/";
            EXPECT_TRUE(!entry.is_directory() || architecture.find(folder) != std::string::npos) << folder;
        }
    }
}

}  // namespace
}  // namespace quavix
