// SPDX-License-Identifier: MIT
#include "modules/sound_engine/mixer.h"

#include <algorithm>

namespace quavix::sound_engine {
namespace {

constexpr double RampSeconds = 0.002;

}  // namespace

Mixer::~Mixer() {
    const std::unique_ptr<Plan> untaken(next_.exchange(nullptr));
    Tidy();
}

void Mixer::Replace(std::unique_ptr<Plan> plan) {
    const std::unique_ptr<Plan> untaken(next_.exchange(plan.release(), std::memory_order_acq_rel));
    Tidy();
}

void Mixer::Tidy() {
    if (retired_.load(std::memory_order_relaxed) == nullptr)
        return;
    Plan* retired = retired_.exchange(nullptr, std::memory_order_acquire);
    while (retired != nullptr) {
        const std::unique_ptr<Plan> plan(retired);
        retired = plan->NextRetired;
    }
}

void Mixer::SetRate(double framesPerSecond) {
    rate_.FramesPerSecond = framesPerSecond;
    rate_.RampFrames = std::max(1, static_cast<int>(framesPerSecond * RampSeconds));
    Touch();
}

void Mixer::TakeOver() {
    // Settings made before the plan was handed over become visible with it.
    Plan* next = nullptr;
    if (next_.load(std::memory_order_relaxed) != nullptr)
        next = next_.exchange(nullptr, std::memory_order_acq_rel);
    const unsigned int changes = changes_.load(std::memory_order_acquire);
    if (next == nullptr && changes == seen_)
        return;
    seen_ = changes;
    if (next != nullptr) {
        if (Plan* old = plan_.release()) {
            old->NextRetired = retired_.load(std::memory_order_relaxed);
            while (!retired_.compare_exchange_weak(old->NextRetired, old, std::memory_order_release,
                                                   std::memory_order_relaxed)) {
            }
        }
        plan_.reset(next);
    }
    if (plan_)
        plan_->Sync(rate_);
}

bool Mixer::MixBlock(std::span<float> block) {
    TakeOver();
    bool sounds = false;
    for (std::size_t done = 0; done < block.size();) {
        const std::size_t frames =
            std::min<std::size_t>(block.size() - done, static_cast<std::size_t>(Processor::MostFrames));
        const float* samples = plan_ ? plan_->Run(frames) : nullptr;
        const std::span<float> part = block.subspan(done, frames);
        if (samples != nullptr) {
            if (!sounds)
                std::fill_n(block.begin(), done, 0.0F);
            sounds = true;
            std::copy_n(samples, frames, part.begin());
        } else if (sounds) {
            std::fill(part.begin(), part.end(), 0.0F);
        }
        done += frames;
    }
    return sounds;
}

}  // namespace quavix::sound_engine
