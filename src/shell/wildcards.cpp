// SPDX-License-Identifier: MIT
#include "shell/wildcards.h"

namespace quavix {

bool MatchesWildcards(std::string_view name, std::string_view pattern) {
    constexpr auto None = std::string_view::npos;
    std::size_t n = 0;
    std::size_t p = 0;
    // Where to take up again when a later part does not fit: the last "*" may stand for one more character.
    std::size_t starPattern = None;
    std::size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (starPattern != None) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

}  // namespace quavix
