// SPDX-License-Identifier: MIT
#pragma once

#include "ports/sound_library.h"

namespace quavix {

/// The sound library, loaded from a file at run time; its functions are found by name. The program starts
/// without it, too. Once loaded it stays, because it has its own threads.
class NOTNORMALfmodex : public SoundLibrary {
  public:
    NOTNORMALfmodex();

    std::string Load(const std::string& fileName) override;
};

}  // namespace quavix
