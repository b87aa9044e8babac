// SPDX-License-Identifier: MIT
#include "modules/midi_io/midi_io_module.h"

int32_t DllRegisterServer() {
    return QuavixMidiIoInit(QUAVIX_MIDI_IO_VERSION);
}
