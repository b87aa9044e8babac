// SPDX-License-Identifier: MIT
#pragma once

#include "ports/sound_library.h"

namespace quavix {

/// The sound library in a file that is loaded at run time, its functions found by their names. The program
/// needs none to be there to start. Once loaded it stays, as it has threads of its own.
class NOTNORMALfmodex : public SoundLibrary {
  public:
    NOTNORMALfmodex();

    std::string Load(const std::string& fileName) override;
};

}  // namespace quavix
