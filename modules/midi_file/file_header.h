// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "modules/midi_file/file_bytes.h"
#include "modules/midi_file/messages.h"
#include "modules/midi_file/midi_file_module.h"

namespace quavix::midi_file {

/// A file's header, and where the chunks behind it lie.
struct FileHeader {
    QuavixMidiFileHeader Says{};
    /// Where the first chunk behind the header should begin.
    std::uint64_t ChunksBegin = 0;
    /// Where the chunks end according to the file that they are wrapped in; the file's size where they are
    /// not.
    std::uint64_t WrapperEnd = 0;
};

/// Finds and reads the header, at the file's start or in a RIFF file. False, with the failure told, where
/// there is none or its times can't be understood.
bool ReadHeader(const FileBytes& bytes, Messages& messages, FileHeader& header);

}  // namespace quavix::midi_file
