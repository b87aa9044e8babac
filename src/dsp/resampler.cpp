// SPDX-License-Identifier: MIT
#include "dsp/resampler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "dsp/band_limiting.h"

namespace quavix {
namespace {

constexpr std::int64_t StepsPerSample = 512;

/// Zero crossings of the sinc on each side, and the shape of the Kaiser window for 90 dB.
constexpr double ZeroCrossings = 64;
constexpr double KaiserBeta = 8.96;
/// Cutoff, relative to half the lower rate: the transition band ends at half the lower rate.
constexpr double Passband = 0.95;

}  // namespace

Resampler::Resampler(std::int32_t fromRate, std::int32_t toRate) : fromRate_(fromRate), toRate_(toRate) {
    const double cutoff = Passband * std::min(1.0, static_cast<double>(toRate) / fromRate);
    halfWidth_ = static_cast<std::int64_t>(std::ceil(ZeroCrossings / cutoff));
    historyStart_ = -halfWidth_;
    history_.assign(static_cast<std::size_t>(halfWidth_), 0.0F);
    kernel_.resize(static_cast<std::size_t>(halfWidth_ * StepsPerSample + 2));
    for (std::size_t i = 0; i < kernel_.size(); ++i) {
        const double x = static_cast<double>(i) / StepsPerSample;
        const double relative = x / static_cast<double>(halfWidth_);
        if (relative >= 1)
            break;
        const double angle = std::numbers::pi * x * cutoff;
        const double sinc = i == 0 ? 1 : std::sin(angle) / angle;
        const double window = KaiserWindow(relative, KaiserBeta);
        kernel_[i] = static_cast<float>(cutoff * sinc * window);
    }
}

float Resampler::SampleAt(std::int64_t whole, double fraction) const {
    double sum = 0;
    for (std::int64_t i = whole - halfWidth_ + 1; i <= whole + halfWidth_; ++i) {
        const double distance = std::abs(static_cast<double>(whole - i) + fraction) * StepsPerSample;
        const auto step = static_cast<std::size_t>(distance);
        const double between = distance - static_cast<double>(step);
        const double weight = kernel_[step] + between * (kernel_[step + 1] - kernel_[step]);
        sum += weight * history_[static_cast<std::size_t>(i - historyStart_)];
    }
    return static_cast<float>(sum);
}

void Resampler::Process(std::span<const float> in, std::vector<float>& out) {
    taken_ += static_cast<std::int64_t>(in.size());
    if (fromRate_ == toRate_) {
        out.insert(out.end(), in.begin(), in.end());
        return;
    }
    history_.insert(history_.end(), in.begin(), in.end());
    const std::int64_t end = historyStart_ + static_cast<std::int64_t>(history_.size());
    for (;;) {
        const std::int64_t whole = given_ * fromRate_ / toRate_;
        if (whole + halfWidth_ >= end)
            break;
        const double rest = static_cast<double>(given_ * fromRate_ % toRate_);
        out.push_back(SampleAt(whole, rest / static_cast<double>(toRate_)));
        ++given_;
    }
    const std::int64_t needed = given_ * fromRate_ / toRate_ - halfWidth_ + 1;
    const std::int64_t done = std::clamp<std::int64_t>(needed - historyStart_, 0, end - historyStart_);
    history_.erase(history_.begin(), history_.begin() + static_cast<std::ptrdiff_t>(done));
    historyStart_ += done;
}

void Resampler::Finish(std::vector<float>& out) {
    if (fromRate_ == toRate_)
        return;
    const std::int64_t outAll = (taken_ * toRate_ + fromRate_ - 1) / fromRate_;
    const std::size_t end = out.size() + static_cast<std::size_t>(outAll - given_);
    const std::vector<float> silence(static_cast<std::size_t>(2 * halfWidth_ + 1), 0.0F);
    Process(silence, out);
    out.resize(end);
}

}  // namespace quavix
