// SPDX-License-Identifier: MIT
#include "modules/midi_file/midi_file_module.h"

#include <cinttypes>

#include "modules/midi_file/file_bytes.h"
#include "modules/midi_file/file_header.h"
#include "modules/midi_file/messages.h"
#include "modules/midi_file/track_reader.h"

namespace quavix::midi_file {
namespace {

/// Reads all chunks from offset `chunk` on.
bool ReadChunks(const FileBytes& bytes, std::uint64_t chunk, std::uint32_t declaredTracks,
                TrackReader& tracks, Messages& messages) {
    while (tracks.Tracks() < QUAVIX_MIDI_FILE_TRACKS) {
        if (!tracks.Progress(chunk))
            return false;
        if (bytes.Is(chunk, TrackName) && bytes.Has(chunk, ChunkHeadSize)) {
            if (!tracks.Read(chunk))
                return false;
            continue;
        }
        if (tracks.Tracks() >= declaredTracks || bytes.Is(chunk, "MThd"))
            break;
        if (bytes.LooksLikeChunk(chunk)) {
            chunk += ChunkHeadSize + bytes.U32(chunk + ChunkNameSize);
            continue;
        }
        const std::uint64_t found = tracks.NextTrack(chunk);
        if (!bytes.Has(found, ChunkHeadSize))
            break;
        messages.Remark(chunk, "passed over %" PRIu64 " bytes that are no chunk.", found - chunk);
        chunk = found;
    }
    if (tracks.Tracks() != declaredTracks)
        messages.Remark(chunk, "%" PRIu32 " tracks instead of %" PRIu32 ".", tracks.Tracks(), declaredTracks);
    if (chunk < bytes.Size())
        messages.Remark(chunk, "passed over what stands behind the last track.");
    return tracks.Finish();
}

bool Read(const FileBytes& bytes, const QuavixMidiFileSink& sink, Messages& messages) {
    FileHeader header;
    if (!ReadHeader(bytes, messages, header))
        return false;
    if (sink.Header != nullptr && sink.Header(sink.User, &header.Says) != 0)
        return messages.Stop();
    TrackReader tracks(bytes, header.WrapperEnd, sink, messages);
    if (!ReadChunks(bytes, header.ChunksBegin, header.Says.DeclaredTracks, tracks, messages))
        return false;
    return tracks.Tracks() > 0 || messages.Fail(Unreadable, header.ChunksBegin, "the file has no track.");
}

}  // namespace
}  // namespace quavix::midi_file

std::uint32_t QuavixMidiFileVersion() {
    return QUAVIX_MIDI_FILE_VERSION;
}

std::int32_t QuavixMidiFileInit(std::uint32_t version) {
    return version == QUAVIX_MIDI_FILE_VERSION ? QUAVIX_MIDI_FILE_OK : QUAVIX_MIDI_FILE_WRONG_VERSION;
}

std::int32_t QuavixMidiFileRead(const std::uint8_t* bytes, std::size_t size, const QuavixMidiFileSink* sink,
                                char* detail, std::size_t detailSize) {
    using namespace quavix::midi_file;
    static constexpr std::uint8_t Nothing = 0;
    if ((bytes == nullptr && size > 0) || sink == nullptr || sink->Events == nullptr)
        return QUAVIX_MIDI_FILE_BAD_ARGUMENT;
    Messages messages(*sink, detail, detailSize);
    Read(FileBytes(bytes == nullptr ? &Nothing : bytes, size), *sink, messages);
    return messages.Result();
}
