// SPDX-License-Identifier: MIT
#include "sound_engine/plan.h"

#include <utility>

namespace quavix::sound_engine {

int Plan::Add(std::shared_ptr<Processor> processor, std::span<const int> inputs,
              std::shared_ptr<ChannelStrip> clock, std::shared_ptr<ChannelStrip> strip) {
    Step step;
    step.Does = std::move(processor);
    step.Clock = std::move(clock);
    step.Strip = std::move(strip);
    step.FirstInput = inputs_.size();
    step.Inputs = inputs.size();
    inputs_.insert(inputs_.end(), inputs.begin(), inputs.end());
    steps_.push_back(std::move(step));
    samples_.resize(steps_.size() * Processor::MostFrames);
    return static_cast<int>(steps_.size()) - 1;
}

void Plan::Sync(const MixRate& rate) {
    for (const Step& step : steps_) {
        if (step.Strip)
            step.Strip->Sync(rate);
        step.Does->Sync(rate, step.Clock ? static_cast<double>(step.Clock->Frequency()) : ReferenceFrequency);
    }
}

// One input is heard where it stands, several are summed in the step's own samples.
const float* Plan::Gather(std::size_t step, std::size_t frames) {
    const float* first = nullptr;
    float* sum = nullptr;
    for (std::size_t i = 0; i < steps_[step].Inputs; ++i) {
        const std::size_t input = inputs_[steps_[step].FirstInput + i];
        if (!steps_[input].Sounds)
            continue;
        const float* samples = Samples(input);
        if (first == nullptr) {
            first = samples;
            continue;
        }
        if (sum == nullptr) {
            sum = Samples(step);
            std::copy_n(first, frames, sum);
        }
        for (std::size_t k = 0; k < frames; ++k)
            sum[k] += samples[k];
    }
    return sum != nullptr ? sum : first;
}

const float* Plan::Run(std::size_t frames) {
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        Step& step = steps_[i];
        step.Sounds = false;
        if (step.Clock && step.Clock->Idle())
            continue;
        const std::span<float> out(Samples(i), frames);
        step.Sounds = step.Does->Process(Gather(i, frames), out);
        if (!step.Strip)
            continue;
        if (step.Sounds)
            step.Sounds = step.Strip->Apply(out);
        else
            step.Strip->ApplyToSilence();
    }
    return steps_.empty() || !steps_.back().Sounds ? nullptr : Samples(steps_.size() - 1);
}

}  // namespace quavix::sound_engine
