// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <unordered_map>
#include <variant>

#include "modules/sound_engine/graph.h"

namespace quavix::sound_engine {

class System;

/// What the pointers mean that callers hold.
///
/// Such a pointer is a number that nothing else has: it is odd, none is given out twice, and those that
/// follow each other lie far apart. So whatever a caller passes is either of an object that is there or known
/// not to be.
class Handles {
  public:
    using Object = std::variant<System*, UnitNode*, ChannelNode*, GroupNode*>;

    struct Entry {
        Object What;
        /// The system that it belongs to.
        System* Of;
    };

    /// A new number for an object.
    void* Add(Object object, System& system) {
        // Multiplying by an odd number maps the numbers one to one. This one is 2^64, or 2^32, by the golden
        // ratio.
        constexpr auto Spread = static_cast<std::uintptr_t>(0x9E3779B97F4A7C15U);
        const std::uintptr_t number = (2 * ++given_ + 1) * Spread;
        entries_.emplace(number, Entry{object, &system});
        return reinterpret_cast<void*>(number);  // NOLINT(performance-no-int-to-ptr): nothing follows it
    }

    /// Null for anything that is no object's number.
    const Entry* Find(const void* handle) const {
        const auto found = entries_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == entries_.end() ? nullptr : &found->second;
    }

    /// The number of one object becomes that of another.
    void Rebind(const void* handle, Object object) {
        entries_.at(reinterpret_cast<std::uintptr_t>(handle)).What = object;
    }

    void Remove(const void* handle) { entries_.erase(reinterpret_cast<std::uintptr_t>(handle)); }

    /// All of a system's, its own only where `itself`.
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
