// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace quavix {

/// Goes through a text line by line without copying it. Lines end at line feeds; one carriage return at a
/// line's end does not belong to it. A text that ends in a line feed has an empty last line. The text may be
/// written to through the lines, but must not change in length.
class TextLines {
  public:
    explicit TextLines(std::string& text) : text_(text) {}

    /// Whether there was another line; it is Line() then.
    bool Next() {
        if (next_ > text_.size())
            return false;
        const std::size_t end = text_.find('\n', next_);
        start_ = next_;
        const std::size_t lineEnd = end == std::string::npos ? text_.size() : end;
        next_ = lineEnd + 1;
        length_ = lineEnd - start_;
        if (length_ > 0 && text_[lineEnd - 1] == '\r')
            --length_;
        return true;
    }

    std::span<char> Line() { return {text_.data() + start_, length_}; }
    std::string_view Text() const { return {text_.data() + start_, length_}; }

    /// Where the next line starts; past the text's end behind the last one.
    std::size_t NextStart() const { return next_; }

  private:
    std::string& text_;
    std::size_t next_ = 0;
    std::size_t start_ = 0;
    std::size_t length_ = 0;
};

}  // namespace quavix
