// SPDX-License-Identifier: MIT
#include "modules/midi_file/midi_file_module.h"

int32_t DllRegisterServer() {
    return QuavixMidiFileInit(QUAVIX_MIDI_FILE_VERSION);
}
