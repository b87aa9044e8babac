// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <unordered_map>
#include <variant>

#include "modules/sound_engine/graph.h"

namespace quavix::sound_engine {

class System;

/// The table of the pointers that callers hold.
///
/// Such a pointer is a unique number: odd, never given out twice, and far from its neighbours. So every
/// pointer that a caller passes either belongs to an existing object or is recognised as invalid.
class Handles {
  public:
    using Object = std::variant<System*, UnitNode*, ChannelNode*, GroupNode*>;

    struct Entry {
        Object What;
        /// The system that the object belongs to.
        System* Of;
    };

    /// Returns a new handle for an object.
    void* Add(Object object, System& system) {
        // Multiplying by an odd number is a bijection. The factor is 2^64, or 2^32, divided by the golden
        // ratio.
        constexpr auto Spread = static_cast<std::uintptr_t>(0x9E3779B97F4A7C15U);
        const std::uintptr_t number = (2 * ++given_ + 1) * Spread;
        entries_.emplace(number, Entry{object, &system});
        return reinterpret_cast<void*>(number);  // NOLINT(performance-no-int-to-ptr): never dereferenced
    }

    /// Returns null if the handle belongs to no object.
    const Entry* Find(const void* handle) const {
        const auto found = entries_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == entries_.end() ? nullptr : &found->second;
    }

    /// Gives the handle of one object to another.
    void Rebind(const void* handle, Object object) {
        entries_.at(reinterpret_cast<std::uintptr_t>(handle)).What = object;
    }

    void Remove(const void* handle) { entries_.erase(reinterpret_cast<std::uintptr_t>(handle)); }

    /// Removes all handles of a system, and the system's own one if `itself`.
    void RemoveAll(const System& system, bool itself) {
        std::erase_if(entries_, [&](const auto& entry) {
            return entry.second.Of == &system &&
                   (itself || !std::holds_alternative<System*>(entry.second.What));
        });
    }

  private:
    std::unordered_map<std::uintptr_t, Entry> entries_;
    std::uintptr_t given_ = 0;
};

}  // namespace quavix::sound_engine
