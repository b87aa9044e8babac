// SPDX-License-Identifier: MIT
#include "rendering/render_target.h"

#include <array>
#include <iostream>
#include <random>

#include <fmt/format.h>

#include "rendering/rendered_sound.h"
#include "shell/utf8_path.h"

namespace quavix {
namespace {

std::filesystem::path UnusedName(std::filesystem::path beginning) {
    std::random_device random;
    return beginning += fmt::format(".{:08x}{:08x}.part", random(), random());
}

}  // namespace

bool IsNamedPipe(const std::string& file) {
    std::error_code error;
    // Links to a process's own pipes lead to no file, so canonical() fails for them.
    const std::filesystem::path path = PathOf(file);
    return std::filesystem::is_fifo(path, error) && !std::filesystem::canonical(path, error).empty();
}

RenderTarget::RenderTarget(const std::string& out) : name_(out) {
    namespace fs = std::filesystem;
    std::error_code error;
    if (out.empty())
        throw RenderError("a file without a name can't be written");
    const fs::path path = PathOf(out);
    const fs::file_status status = fs::status(path, error);
    const bool isStandardOutput =
        out == "-" || (fs::is_fifo(status) && fs::equivalent(path, "/dev/stdout", error));
    if (isStandardOutput)
        name_ = std::string("-");  // GCC 12 warns of an overlap if a char array is assigned
    else if (IsNamedPipe(out))
        throw RenderError(fmt::format("\"{}\" is a pipe; write to - instead", out));
    isPassedOn_ = isStandardOutput || fs::is_fifo(status);
    if (isPassedOn_) {
        aside_ = UnusedName(fs::temp_directory_path(error) / "quavix-render");
    } else {
        if (fs::is_directory(status))
            throw RenderError(fmt::format("\"{}\" is a folder", out));
        if (fs::exists(status) && !fs::is_regular_file(status)) {
            stream_.open(path, std::ios::binary | std::ios::out);
        } else {
            place_ = fs::exists(status) ? fs::canonical(path, error) : path;
            aside_ = UnusedName(place_);
        }
    }
    if (!aside_.empty())
        stream_.open(aside_, std::ios::binary | std::ios::in | std::ios::out | std::ios::trunc);
    // Removing the name leaves nothing behind, however the program ends. If the system can't remove an open
    // file, the destructor removes it.
    if (isPassedOn_ && stream_.is_open() && fs::remove(aside_, error))
        aside_.clear();
    if (!stream_.is_open()) {
        aside_.clear();
        throw RenderError(fmt::format("\"{}\" can't be written", out));
    }
}

RenderTarget::~RenderTarget() {
    stream_.close();
    std::error_code error;
    if (!aside_.empty())
        std::filesystem::remove(aside_, error);
}

bool RenderTarget::PassOn(std::ostream& out) {
    stream_.seekg(0);
    std::array<char, 65536> block;
    do {
        stream_.read(block.data(), block.size());
        out.write(block.data(), stream_.gcount());
    } while (stream_ && out);
    return stream_.eof() && out.flush();
}

void RenderTarget::Commit() {
    std::error_code error;
    bool good = false;
    if (name_ == "-") {
        good = PassOn(std::cout);
    } else if (isPassedOn_) {
        std::ofstream out(PathOf(name_), std::ios::binary);
        good = PassOn(out);
    } else {
        stream_.close();
        good = !stream_.fail();
        if (good && !aside_.empty()) {
            std::filesystem::rename(aside_, place_, error);
            good = !error;
        }
    }
    if (!good)
        throw RenderError(fmt::format("\"{}\" can't be written", name_));
    if (!place_.empty())
        aside_.clear();
}

}  // namespace quavix
