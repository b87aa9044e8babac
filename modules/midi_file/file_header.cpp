// SPDX-License-Identifier: MIT
#include "modules/midi_file/file_header.h"

#include <algorithm>
#include <cinttypes>
#include <string_view>

namespace quavix::midi_file {
namespace {

constexpr std::string_view HeaderName = "MThd";
constexpr std::uint64_t HeaderContentSize = 6;

/// Finds the chunk "data" of a RIFF file, which holds the MIDI file. RIFF sizes are little-endian, and chunks
/// begin at even offsets, which some writers ignore.
bool FindInWrapper(const FileBytes& bytes, Messages& messages, std::uint64_t& start, std::uint64_t& end) {
    constexpr std::uint64_t FirstChunk = 12;
    if (!bytes.Is(ChunkHeadSize, "RMID"))
        return messages.Fail(Unreadable, ChunkHeadSize,
                             "a RIFF file, but not one that holds MIDI (\"RMID\").");
    std::uint64_t at = FirstChunk;
    while (bytes.Has(at, ChunkHeadSize)) {
        const std::uint64_t content = at + ChunkHeadSize;
        const std::uint64_t size = bytes.LittleEndian32(at + ChunkNameSize);
        const std::uint64_t contentEnd = content + std::min(size, bytes.Size() - content);
        if (bytes.Is(at, "data")) {
            start = content;
            end = contentEnd;
            return true;
        }
        const bool padded = size % 2 != 0 && !bytes.Is(contentEnd, "data");
        at = contentEnd + (padded ? 1 : 0);
    }
    return messages.Fail(Unreadable, std::min(at, bytes.Size()), "the RIFF file has no chunk \"data\".");
}

/// Moves `start` after data that some programs put in front of the header, up to 1024 bytes.
bool FindHeader(const FileBytes& bytes, Messages& messages, std::uint64_t& start) {
    constexpr std::string_view UsualBeginning{"MThd\0\0\0\6", ChunkHeadSize};
    constexpr std::uint64_t MostInFront = 1024;
    if (bytes.Is(start, HeaderName))
        return true;
    const auto later =
        bytes.Find(UsualBeginning, start, std::min(bytes.Size(), start + MostInFront + ChunkHeadSize));
    if (later) {
        messages.Remark(start, "passed over %" PRIu64 " bytes in front of the header.", *later - start);
        start = *later;
        return true;
    }
    if (bytes.Size() == 0)
        return messages.Fail(Unreadable, 0, "the file is empty.");
    if (!bytes.Has(start, ChunkNameSize))
        return messages.Fail(Unreadable, start, "not a MIDI file, which begins with 4D 54 68 64 (\"MThd\").");
    const std::uint8_t* begin = bytes.At(start);
    return messages.Fail(
        Unreadable, start,
        "not a MIDI file, which begins with 4D 54 68 64 (\"MThd\"), not %02X %02X %02X %02X.", begin[0],
        begin[1], begin[2], begin[3]);
}

/// Returns the offset of the first track: after the declared size, or if that is wrong, after 6 bytes.
std::uint64_t BehindHeader(const FileBytes& bytes, Messages& messages, std::uint64_t content) {
    const std::uint32_t size = bytes.U32(content - ChunkNameSize);
    const std::uint64_t usual = content + HeaderContentSize;
    if (size == HeaderContentSize)
        return usual;
    const bool sizeIsRight =
        size > HeaderContentSize && bytes.Has(content, size) && !bytes.Is(usual, TrackName);
    if (sizeIsRight)
        return content + size;
    messages.Remark(content - ChunkNameSize, "the header has 6 bytes, not %" PRIu32 ".", size);
    return usual;
}

bool ReadSmpteDivision(std::uint32_t division, std::uint64_t at, Messages& messages,
                       QuavixMidiFileHeader& says) {
    constexpr std::uint32_t DropFrame = 29;
    const std::uint32_t frames = 0x100U - (division >> 8U);
    const std::uint32_t ticks = division & 0xFFU;
    if (frames != 24 && frames != 25 && frames != DropFrame && frames != 30)
        return messages.Fail(Unreadable, at,
                             "the times are in %" PRIu32 " frames a second, which is not 24, 25, 29 or 30.",
                             frames);
    if (ticks == 0)
        return messages.Fail(Unreadable, at + 1,
                             "the division has 0 ticks in a frame, so no event has a time.");
    // A rate of 29 means 30000 / 1001 frames per second (NTSC).
    says.TicksPerSecondNumerator = frames == DropFrame ? 30000 * ticks : frames * ticks;
    says.TicksPerSecondDenominator = frames == DropFrame ? 1001 : 1;
    return true;
}

}  // namespace

bool ReadHeader(const FileBytes& bytes, Messages& messages, FileHeader& header) {
    std::uint64_t start = 0;
    header.WrapperEnd = bytes.Size();
    if (bytes.Is(0, "RIFF") && !FindInWrapper(bytes, messages, start, header.WrapperEnd))
        return false;
    if (!FindHeader(bytes, messages, start))
        return false;
    const std::uint64_t content = start + ChunkHeadSize;
    if (!bytes.Has(content, HeaderContentSize))
        return messages.Fail(Unreadable, bytes.Size(), "the file ends within its header.");
    constexpr std::uint32_t LastKnownFormat = 2;
    const std::uint64_t divisionAt = content + 4;
    const std::uint32_t division = bytes.U16(divisionAt);
    QuavixMidiFileHeader& says = header.Says;
    says.Format = bytes.U16(content);
    says.DeclaredTracks = bytes.U16(content + 2);
    says.TicksPerSecondDenominator = 1;
    if (says.Format > LastKnownFormat)
        messages.Remark(content, "format %" PRIu32 " is none of 0, 1 and 2.", says.Format);
    if (division == 0)
        return messages.Fail(Unreadable, divisionAt,
                             "the division is 0 ticks in a quarter note, so no event has a time.");
    if (division >= 0x8000) {
        if (!ReadSmpteDivision(division, divisionAt, messages, says))
            return false;
    } else {
        says.TicksPerQuarter = division;
    }
    header.ChunksBegin = BehindHeader(bytes, messages, content);
    return true;
}

}  // namespace quavix::midi_file
