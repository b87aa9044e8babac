// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quavix {

/// A store of unique texts, identified by small numbers, so that a song of a million lines with a few hundred
/// different texts takes a few bytes per cell. Number 0 is the empty text.
class TextPool {
  public:
    using Id = std::uint32_t;

    TextPool() { Clear(); }
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// Returns the number of a text, and adds it if it is new.
    Id IdOf(std::string_view text);

    /// Returns the text of a number from IdOf(); valid until Clear().
    std::string_view Text(Id id) const { return texts_[id]; }

    /// Forgets all texts except the empty one.
    void Clear();

  private:
    static constexpr std::size_t RecentTexts = 1024;

    /// Returns the place of a text among the recent ones.
    static std::size_t RecentSlot(std::string_view text);

    std::deque<std::string> texts_;  // a deque, so that the keys below stay valid
    std::unordered_map<std::string_view, Id> ids_;
    // Texts repeat often: comparing with the last text of the same slot usually saves the look-up. Number 0
    // matches no slot's text.
    std::array<Id, RecentTexts> recent_{};
};

}  // namespace quavix
