// SPDX-License-Identifier: MIT
#include "music/text_pool.h"

namespace quavix {

std::size_t TextPool::RecentSlot(std::string_view text) {
    const auto byte = [text](std::size_t at) -> std::size_t { return static_cast<unsigned char>(text[at]); };
    const std::size_t mixed =
        text.size() + byte(0) * 7 + byte(text.size() / 2) * 37 + byte(text.size() - 1) * 101;
    return mixed % RecentTexts;
}

TextPool::Id TextPool::IdOf(std::string_view text) {
    if (text.empty())
        return 0;
    Id& recent = recent_[RecentSlot(text)];
    if (texts_[recent] == text)
        return recent;
    const auto found = ids_.find(text);
    if (found != ids_.end())
        return recent = found->second;
    const auto id = static_cast<Id>(texts_.size());
    texts_.emplace_back(text);
    ids_.emplace(texts_.back(), id);
    return recent = id;
}

void TextPool::Clear() {
    ids_.clear();
    texts_.clear();
    recent_.fill(0);
    texts_.emplace_back();
}

}  // namespace quavix
