// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/channel_strip.h"
#include "modules/sound_engine/processor.h"

namespace quavix::sound_engine {

class Graph;

/// What to mix, step by step. Built and destroyed on the caller's side, run by the mixing thread in between.
class Plan {
  public:
    /// Appends a step that hears the sum of earlier steps, by their numbers, and returns its own. `clock` is
    /// the channel on whose time it lives, and `strip` is the channel that it plays on; either may be null.
    int Add(std::shared_ptr<Processor> processor, std::span<const int> inputs,
            std::shared_ptr<ChannelStrip> clock = nullptr, std::shared_ptr<ChannelStrip> strip = nullptr);

    /// Takes over what was set since; at the start of a block.
    void Sync(const MixRate& rate);

    /// Runs all steps for 1 to Processor::MostFrames frames and returns the signal of the last; null for
    /// silence.
    const float* Run(std::size_t frames);

    /// For the list of plans that the mixing thread is done with.
    Plan* NextRetired = nullptr;

  private:
    struct Step {
        std::shared_ptr<Processor> Does;
        std::shared_ptr<ChannelStrip> Clock;
        std::shared_ptr<ChannelStrip> Strip;
        std::size_t FirstInput = 0;
        std::size_t Inputs = 0;
        bool Sounds = false;
    };

    float* Samples(std::size_t step) { return samples_.data() + step * Processor::MostFrames; }
    const float* Gather(std::size_t step, std::size_t frames);

    std::vector<Step> steps_;
    std::vector<std::size_t> inputs_;
    std::vector<float> samples_;
};

/// The steps that mix what the graph says; see "What sounds through what" in README.md. What nobody can hear
/// has no steps.
std::unique_ptr<Plan> BuildPlan(Graph& graph);

}  // namespace quavix::sound_engine
