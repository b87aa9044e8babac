// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quavix {

/// Returns the text with its ASCII letters in lower case; other bytes stay unchanged.
inline std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace quavix
