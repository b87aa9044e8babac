// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quavix {

/// Returns true if the whole text is well-formed UTF-8 (shortest forms, no surrogates, at most U+10FFFF).
bool IsUtf8(std::string_view text);

/// Converts bytes that come in pieces into UTF-8: well-formed sequences stay, every other byte becomes the
/// character of its Latin-1 value. The division into pieces does not change the result.
class Utf8Repair {
  public:
    /// Appends to `text`, which must outlive the repair.
    explicit Utf8Repair(std::string& text) : text_(text) {}

    void Add(std::string_view bytes);
    /// Appends the bytes still held back, at the end of the text.
    void Finish();

  private:
    void Take(std::string_view bytes, bool isEnd);

    std::string& text_;
    std::string heldBack_;  // a possible start of a sequence, 3 bytes at most
};

}  // namespace quavix
