// SPDX-License-Identifier: MIT
#include "songfile/utf8_file.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "shell/runtime_error.h"
#include "songfile/utf8.h"

namespace quavix {
namespace {

constexpr std::size_t ReadSize = std::size_t{1024} * 1024;

}  // namespace

Utf8File::Outcome Utf8File::ReadPieces(FileReader& file, const std::function<void(std::string_view)>& take,
                                       std::error_code& error) {
    const std::uint64_t size = file.Size();
    std::vector<char> buffer(static_cast<std::size_t>(std::min<std::uint64_t>(size, ReadSize)));
    std::size_t sinceProgress = 0;
    for (std::uint64_t done = 0; done < size;) {
        const std::uint64_t wanted = std::min<std::uint64_t>(buffer.size(), size - done);
        const std::size_t count = file.Read({buffer.data(), static_cast<std::size_t>(wanted)}, error);
        if (error)
            return Outcome::Failed;
        if (count == 0)
            break;  // the file has become shorter; keep what was read
        take({buffer.data(), count});
        done += count;
        sinceProgress += count;
        if (sinceProgress >= ReadSize && done < size) {
            sinceProgress = 0;
            if (!view_.Progress(ProgressShare * static_cast<double>(done) / static_cast<double>(size)))
                return Outcome::Stopped;
        }
    }
    return Outcome::Done;
}

std::optional<std::string> Utf8File::Read(std::unique_ptr<FileReader> file, const std::string& name) {
    {
        std::string text;
        text.reserve(static_cast<std::size_t>(file->Size()));
        std::error_code error;
        const Outcome outcome = ReadPieces(
            *file, [&](std::string_view piece) { text += piece; }, error);
        if (outcome == Outcome::Stopped)
            return std::nullopt;
        if (outcome == Outcome::Done && IsUtf8(text))
            return text;
    }
    log_.LogText("Problem loading - loading byte-by-byte");
    view_.SetInfoText(
        "Loading byte-by-byte...\r\n(May be slow)\r\nThis happens due to errors caused by your default "
        "non-Unicode language setup, since this file contains Unicode characters.");
    file.reset();
    repaired_ = true;
    return ReadByteByByte(name);
}

std::optional<std::string> Utf8File::ReadByteByByte(const std::string& name) {
    std::error_code error;
    const auto file = files_.OpenForInput(name, error);
    if (!file) {
        RaiseFileError(error, name);
        return std::nullopt;
    }
    std::string text;
    // In the worst case every byte becomes two. Growing step by step would at times hold the text twice.
    text.reserve(2 * static_cast<std::size_t>(file->Size()));
    Utf8Repair repair(text);
    const Outcome outcome = ReadPieces(
        *file, [&](std::string_view piece) { repair.Add(piece); }, error);
    RaiseFileError(error, name);
    if (outcome == Outcome::Stopped)
        return std::nullopt;
    repair.Finish();
    return text;
}

}  // namespace quavix
