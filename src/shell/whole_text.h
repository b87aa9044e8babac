// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/files.h"

namespace quavix {

/// All bytes of a file; an empty text where it can't be read to its end.
std::string WholeText(Files& files, const std::string& fileName);

}  // namespace quavix
