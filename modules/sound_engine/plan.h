// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "modules/sound_engine/processor.h"
#include "modules/sound_engine/strips.h"

namespace quavix::sound_engine {

class Graph;

/// The steps of the mixing. Built and destroyed on the caller's side, run by the mixing thread.
class Plan {
  public:
    /// Appends a step that hears the sum of earlier steps, and returns its number. `clock` is the channel
    /// whose time it follows, `strip` the one that it plays on; both may be null.
    int Add(std::shared_ptr<Processor> processor, std::span<const int> inputs,
            std::shared_ptr<ChannelStrip> clock = nullptr, std::shared_ptr<ChannelStrip> strip = nullptr);

    /// Takes over new settings, at the start of a block.
    void Sync(const MixRate& rate);

    /// Runs all steps for 1 to Processor::MostFrames frames. Returns the signal of the last step; null for
    /// silence.
    const float* Run(std::size_t frames);

    /// Link of the list of plans that the mixing thread no longer uses.
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

/// Builds the mixing steps of the graph; see "What sounds through what" in README.md. Inaudible units get no
/// steps.
std::unique_ptr<Plan> BuildPlan(Graph& graph);

}  // namespace quavix::sound_engine
