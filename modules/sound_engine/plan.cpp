// SPDX-License-Identifier: MIT
#include "modules/sound_engine/plan.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "modules/sound_engine/graph.h"

namespace quavix::sound_engine {

int Plan::Add(std::shared_ptr<Processor> processor, std::span<const int> inputs,
              std::shared_ptr<ChannelStrip> clock, std::shared_ptr<ChannelStrip> strip) {
    steps_.push_back({.Does = std::move(processor),
                      .Clock = std::move(clock),
                      .Strip = std::move(strip),
                      .FirstInput = inputs_.size(),
                      .Inputs = inputs.size()});
    inputs_.insert(inputs_.end(), inputs.begin(), inputs.end());
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

// Returns a single input in place; sums several inputs into the step's own samples.
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

namespace {

using Signals = std::vector<int>;  // numbers of steps, to be summed

// A set of connected units.
struct Stage {
    std::vector<const UnitNode*> Units;
    // Group of the unit that entered a group first; null for none.
    const GroupNode* In = nullptr;
    std::uint64_t Since = 0;
    // True if it holds a played unit without users: then it is a source and does not hear its group.
    bool IsSource = false;
};

bool IsLeaf(const UnitNode& unit) {
    return unit.Users.empty();
}

// Returns true if the unit hears the signals of the stage before.
bool IsEntry(const UnitNode& unit) {
    return unit.Inputs.empty() && unit.On == nullptr && !unit.Does->IsSource();
}

std::vector<Stage> Stages(const Graph& graph) {
    std::vector<Stage> stages;
    std::unordered_set<const UnitNode*> seen;
    for (const auto& first : graph.Units()) {
        if (!seen.insert(first.get()).second)
            continue;
        Stage stage;
        stage.Units = {first.get()};
        for (std::size_t i = 0; i < stage.Units.size(); ++i) {
            const UnitNode& unit = *stage.Units[i];
            if (unit.In != nullptr && (stage.In == nullptr || unit.Since < stage.Since)) {
                stage.In = unit.In;
                stage.Since = unit.Since;
            }
            stage.IsSource = stage.IsSource || (unit.On != nullptr && IsLeaf(unit));
            for (const auto* neighbours : {&unit.Inputs, &unit.Users}) {
                for (const UnitNode* neighbour : *neighbours) {
                    if (seen.insert(neighbour).second)
                        stage.Units.push_back(neighbour);
                }
            }
        }
        stages.push_back(std::move(stage));
    }
    std::sort(stages.begin(), stages.end(), [](const Stage& a, const Stage& b) { return a.Since < b.Since; });
    return stages;
}

class Builder {
  public:
    explicit Builder(Graph& graph) : graph_(graph) {
        for (const Stage& stage : stages_ = Stages(graph)) {
            if (stage.In != nullptr)
                stagesIn_[stage.In].push_back(&stage);
        }
    }

    std::unique_ptr<Plan> Build() {
        AddGroup(graph_.Master());
        return std::move(plan_);
    }

  private:
    int AddGroup(const GroupNode& group) {
        Signals signals;
        for (const GroupNode* child : group.Groups)
            signals.push_back(AddGroup(*child));
        for (const ChannelNode* channel : group.Channels) {
            if (IsLeaf(*channel->Plays))
                signals.push_back(AddUnit(*channel->Plays, {}));
        }
        const std::vector<const Stage*>& stages = stagesIn_[&group];
        for (const Stage* stage : stages) {
            if (stage->IsSource)
                AddLeaves(*stage, {}, signals);
        }
        for (const Stage* stage : stages) {
            if (!stage->IsSource)
                signals = AddStage(*stage, signals);
        }
        for (const Echo& echo : graph_.Echoes()) {
            if (echo.In == &group)
                signals.push_back(plan_->Add(echo.Does, {}, echo.Strip, echo.Strip));
        }
        return plan_->Add(group.Strip, signals);
    }

    Signals AddStage(const Stage& stage, const Signals& before) {
        Signals after;
        AddLeaves(stage, before, after);
        // If no unit of the stage hears the signals before it, they pass beside the stage.
        if (std::none_of(stage.Units.begin(), stage.Units.end(),
                         [](const UnitNode* unit) { return IsEntry(*unit); }))
            after.insert(after.end(), before.begin(), before.end());
        return after;
    }

    // Played units are left out: they are added by their channels' groups.
    void AddLeaves(const Stage& stage, const Signals& before, Signals& after) {
        for (const UnitNode* unit : stage.Units) {
            if (IsLeaf(*unit) && unit->On == nullptr)
                after.push_back(AddUnit(*unit, before));
        }
    }

    int AddUnit(const UnitNode& unit, const Signals& before) {
        if (const auto added = steps_.find(&unit); added != steps_.end())
            return added->second;
        Signals inputs;
        for (const UnitNode* input : unit.Inputs)
            inputs.push_back(AddUnit(*input, before));
        if (IsEntry(unit))
            inputs.insert(inputs.end(), before.begin(), before.end());
        const int step =
            plan_->Add(unit.Does, inputs, Clock(unit), unit.On != nullptr ? unit.On->Strip : nullptr);
        steps_.emplace(&unit, step);
        return step;
    }

    // Returns the channel on which the unit sounds: its own, else that of its first user.
    static std::shared_ptr<ChannelStrip> Clock(const UnitNode& unit) {
        const UnitNode* next = &unit;
        while (next->On == nullptr && !next->Users.empty())
            next = next->Users.front();
        return next->On != nullptr ? next->On->Strip : nullptr;
    }

    Graph& graph_;
    std::vector<Stage> stages_;
    std::unordered_map<const GroupNode*, std::vector<const Stage*>> stagesIn_;
    std::unordered_map<const UnitNode*, int> steps_;
    std::unique_ptr<Plan> plan_ = std::make_unique<Plan>();
};

}  // namespace

std::unique_ptr<Plan> BuildPlan(Graph& graph) {
    return Builder(graph).Build();
}

}  // namespace quavix::sound_engine
