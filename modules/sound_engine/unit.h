// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <span>

#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {

/// Description of one parameter.
struct Parameter {
    float Lowest;
    float Highest;
    float Default;
    /// Unit shown behind the number in texts; empty for a plain number.
    const char* Unit;
    /// True if values are rounded to whole numbers.
    bool Whole = false;
};

/// A unit: a processor with parameters.
///
/// Thread: the setters and getters belong to the caller's side and may run while the unit is mixed.
class Unit : public Processor {
  public:
    static constexpr std::size_t MostParameters = 3;

    /// `parameters` has at most MostParameters elements, and must outlive the unit.
    explicit Unit(std::span<const Parameter> parameters) : parameters_(parameters) {
        for (std::size_t i = 0; i < parameters.size(); ++i)
            values_[i].store(parameters[i].Default, std::memory_order_relaxed);
    }

    std::span<const Parameter> Parameters() const { return parameters_; }

    /// `index` is one of Parameters(), `value` in its range.
    void Set(std::size_t index, float value) { values_[index].store(value, std::memory_order_relaxed); }
    float Get(std::size_t index) const { return values_[index].load(std::memory_order_relaxed); }

    void SetBypass(bool bypass) { bypass_.store(bypass, std::memory_order_relaxed); }
    bool Bypassed() const { return bypass_.load(std::memory_order_relaxed); }
    void SetActive(bool active) { active_.store(active, std::memory_order_relaxed); }
    bool Active() const { return active_.load(std::memory_order_relaxed); }

    /// Returns true if the unit makes sound without an input.
    virtual bool IsSource() const = 0;

  private:
    std::span<const Parameter> parameters_;
    std::array<std::atomic<float>, MostParameters> values_{};
    std::atomic<bool> bypass_{false};
    std::atomic<bool> active_{true};
};

}  // namespace quavix::sound_engine
