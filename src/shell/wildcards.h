// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace quavix {

/// Whether a file name matches a pattern in which "*" stands for any characters and "?" for any one.
bool MatchesWildcards(std::string_view name, std::string_view pattern);

}  // namespace quavix
