// SPDX-License-Identifier: MIT
#include "songfile/utf8_file.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "shell/runtime_error.h"

namespace quavix {
namespace {

constexpr std::size_t ReadSize = std::size_t{1024} * 1024;
constexpr std::size_t LongestSequence = 4;

std::uint8_t Byte(std::string_view text, std::size_t at) {
    return static_cast<std::uint8_t>(text[at]);
}

/// Returns the number of ASCII bytes from `at` on.
std::size_t AsciiLength(std::string_view text, std::size_t at) {
    const std::size_t start = at;
    std::uint64_t word = 0;
    for (; text.size() - at >= sizeof word; at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & 0x8080808080808080U) != 0)
            break;
    }
    while (at < text.size() && Byte(text, at) < 0x80)
        ++at;
    return at - start;
}

/// Returns the length of the well-formed multi-byte sequence at `at`, 0 if there is none.
std::size_t SequenceLength(std::string_view text, std::size_t at) {
    const std::uint8_t first = Byte(text, at);
    const std::size_t length = first >= 0xC2 && first <= 0xDF   ? 2
                               : first >= 0xE0 && first <= 0xEF ? 3
                               : first >= 0xF0 && first <= 0xF4 ? 4
                                                                : 0;
    if (length == 0 || text.size() - at < length)
        return 0;
    const std::uint8_t lowest = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const std::uint8_t highest = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (Byte(text, at + 1) < lowest || Byte(text, at + 1) > highest)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((Byte(text, at + i) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

}  // namespace

bool IsUtf8(std::string_view text) {
    for (std::size_t at = AsciiLength(text, 0); at < text.size(); at += AsciiLength(text, at)) {
        const std::size_t length = SequenceLength(text, at);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

void Utf8Repair::Add(std::string_view bytes) {
    if (heldBack_.empty()) {
        Take(bytes, false);
        return;
    }
    const std::string together = heldBack_.append(bytes);
    heldBack_.clear();
    Take(together, false);
}

void Utf8Repair::Finish() {
    const std::string rest = heldBack_;
    heldBack_.clear();
    Take(rest, true);
}

void Utf8Repair::Take(std::string_view bytes, bool isEnd) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t ascii = AsciiLength(bytes, at);
        text_ += bytes.substr(at, ascii);
        at += ascii;
        if (at == bytes.size())
            return;
        if (!isEnd && bytes.size() - at < LongestSequence) {
            heldBack_ = bytes.substr(at);
            return;
        }
        const std::size_t length = SequenceLength(bytes, at);
        if (length > 0) {
            text_ += bytes.substr(at, length);
            at += length;
        } else {
            const std::uint8_t byte = Byte(bytes, at++);
            text_ += static_cast<char>(0xC0 | (byte >> 6));
            text_ += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
}

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
