// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "modules/midi_file/file_bytes.h"
#include "modules/midi_file/messages.h"
#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

/// The header of a file and the position of the chunks after it.
struct FileHeader {
    QuavixMidiFileHeader Says{};
    /// Expected offset of the first chunk after the header.
    std::uint64_t ChunksBegin = 0;
    /// End of the chunks according to the RIFF file around them; the file's size if there is none.
    std::uint64_t WrapperEnd = 0;
};

/// Finds and reads the header, at the file's start or in a RIFF file. If there is none, or its time division
/// is unusable, reports the failure to `messages` and returns false.
bool ReadHeader(const FileBytes& bytes, Messages& messages, FileHeader& header);

}  // namespace quavix::midi_file
