// SPDX-License-Identifier: MIT
#pragma once

#include <system_error>

#include "music/main_fields.h"
#include "music/music_list.h"
#include "ports/files.h"

namespace quavix {

/// Writes the whole song file, from the header to the last row, in pieces of some 64 KiB. Does not commit.
/// Returns the first error, with nothing written after it. Asks nothing and logs nothing, so that a song can
/// be written anywhere at any time.
std::error_code WriteSong(const MainFields& fields, const MusicList& list, FileWriter& file);

}  // namespace quavix
