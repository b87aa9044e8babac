// SPDX-License-Identifier: MIT
// A module that is not quite one. The build makes several of it:
// QUAVIX_BROKEN_VERSION is added to the versions, QUAVIX_BROKEN_INIT is the result of starting it, and
// QUAVIX_BROKEN_FUNCTIONS says whether it has the functions of the interface at all.
#include <cstdint>

#include "modules/midi_file/midi_file_module.h"
#include "modules/midi_io/midi_io_module.h"

std::uint32_t QuavixMidiFileVersion() {
    return QUAVIX_MIDI_FILE_VERSION + QUAVIX_BROKEN_VERSION;
}

std::int32_t QuavixMidiFileInit(std::uint32_t) {
    return QUAVIX_BROKEN_INIT;
}

std::uint32_t QuavixMidiIoVersion() {
    return QUAVIX_MIDI_IO_VERSION + QUAVIX_BROKEN_VERSION;
}

std::int32_t QuavixMidiIoInit(std::uint32_t) {
    return QUAVIX_BROKEN_INIT;
}

#ifdef QUAVIX_BROKEN_FUNCTIONS
std::int32_t QuavixMidiFileRead(const std::uint8_t*, std::size_t, const QuavixMidiFileSink*, char*,
                                std::size_t) {
    return QUAVIX_MIDI_FILE_UNREADABLE;
}
#endif
