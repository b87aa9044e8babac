// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quavix {

/// The text with its ASCII letters in lower case; all other bytes stay as they are.
std::string LowerCase(std::string_view text);

}  // namespace quavix
