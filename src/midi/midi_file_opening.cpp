// SPDX-License-Identifier: MIT
#include "midi/midi_file_opening.h"

#include <algorithm>
#include <span>
#include <utility>

#include <fmt/format.h>

#include "shell/lower_case.h"
#include "shell/runtime_error.h"

namespace quavix {
namespace {

/// Far more bytes than the most events need; a larger file is no MIDI file.
constexpr std::uint64_t MostBytes = std::uint64_t{1} << 28U;

std::string CanNotBeRead(const std::error_code& error) {
    return fmt::format("The file can't be read: {}.", error.message());
}

/// Reads the whole file; on failure sets `problem`. Returns false if `goOn` has stopped it.
bool ReadBytes(const std::string& fileName, Files& disk, const std::function<bool()>& goOn,
               std::string& bytes, std::string& problem) {
    std::error_code error;
    const auto file = disk.OpenForInput(fileName, error);
    if (!file) {
        problem = CanNotBeRead(error);
        return true;
    }
    const std::uint64_t size = file->Size();
    if (size > MostBytes) {
        problem =
            fmt::format("The file has {} bytes, which is more than a MIDI file needs ({}).", size, MostBytes);
        return true;
    }
    bytes.resize(static_cast<std::size_t>(size));
    constexpr std::size_t BlockSize = std::size_t{1} << 20U;
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t read =
            file->Read(std::span(bytes).subspan(at, std::min(BlockSize, bytes.size() - at)), error);
        if (read == 0)
            break;
        at += read;
        if (!goOn())
            return false;
    }
    bytes.resize(at);
    if (error)
        problem = CanNotBeRead(error);
    return true;
}

}  // namespace

bool IsMidiFileName(std::string_view fileName) {
    const std::string name = LowerCase(fileName);
    const auto endsIn = [&name](std::string_view ending) {
        return name.size() > ending.size() && name.ends_with(ending);
    };
    return endsIn(".mid") || endsIn(".midi");
}

OpenedMidiFile OpenMidiFile(const std::string& fileName, Files& disk, MidiFileReader& reader,
                            const DecodingProgress& progress) {
    OpenedMidiFile opened;
    std::string bytes;
    const auto goOn = [&] { return progress({}); };
    if (!ReadBytes(fileName, disk, goOn, bytes, opened.Problem) || !opened.Problem.empty())
        return opened;
    MidiFileContent content;
    std::string detail;
    switch (reader.Read(
        bytes, [&](double) { return goOn(); }, content, detail)) {
        case MidiFileResult::Read:
            break;
        case MidiFileResult::Stopped:
            return opened;
        case MidiFileResult::TooManyEvents:
            throw RuntimeError(RuntimeError::SubscriptOutOfRange, detail);
        default:
            opened.Problem = detail;
            return opened;
    }
    bytes = {};
    opened.Remarks = std::exchange(content.Remarks, {});
    opened.Events = DecodeMidiFile(std::move(content), progress);
    return opened;
}

}  // namespace quavix
