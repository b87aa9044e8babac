// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quavix {

/// Whether all of a text is well-formed UTF-8 (shortest forms only, no surrogates, nothing past U+10FFFF).
bool IsUtf8(std::string_view text);

/// Makes UTF-8 of bytes that come in pieces: well-formed sequences stay, every other byte becomes the
/// character of its Latin-1 value. Where the pieces are cut makes no difference.
class Utf8Repair {
  public:
    /// Appends to `text`, which must outlive the repair.
    explicit Utf8Repair(std::string& text) : text_(text) {}

    void Add(std::string_view bytes);
    /// Appends what is still held back, as the end of the text.
    void Finish();

  private:
    void Take(std::string_view bytes, bool isEnd);

    std::string& text_;
    std::string heldBack_;  // a possible start of a sequence, 3 bytes at most
};

}  // namespace quavix
