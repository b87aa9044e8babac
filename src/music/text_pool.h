// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quavix {

/// Texts kept once each and named by small numbers, so that a song of a million lines, whose cells are a few
/// hundred different texts, takes a few bytes a cell. Number 0 is the empty text.
class TextPool {
  public:
    using Id = std::uint32_t;

    TextPool() { Clear(); }
    TextPool(const TextPool&) = delete;
    TextPool& operator=(const TextPool&) = delete;

    /// The number of a text, added where it is new.
    Id IdOf(std::string_view text);

    /// The text of a number that IdOf() gave; valid until Clear().
    std::string_view Text(Id id) const { return texts_[id]; }

    /// Forgets all texts but the empty one.
    void Clear();

  private:
    static constexpr std::size_t RecentTexts = 1024;

    /// Where a text may stand among the recent ones.
    static std::size_t RecentSlot(std::string_view text);

    std::deque<std::string> texts_;  // never moves its elements, so that the keys below stay valid
    std::unordered_map<std::string_view, Id> ids_;
    // Texts come again and again; comparing with the last one of the same slot mostly saves the look-up. The
    // number 0 fits no slot's text.
    std::array<Id, RecentTexts> recent_{};
};

}  // namespace quavix
