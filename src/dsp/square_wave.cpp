// SPDX-License-Identifier: MIT
#include "dsp/square_wave.h"

#include <algorithm>
#include <cstddef>

#include "dsp/band_limiting.h"

namespace quavix {
namespace {

constexpr std::int64_t Taps = BandLimitedStep::Taps;
constexpr std::int64_t Before = BandLimitedStep::Before;

// Block size in samples, small enough for the processor's first cache during all passes over a block.
constexpr std::size_t BlockSize = 2048;

std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

// Steps from edge to edge in integers: an edge lies at sample Whole plus Rest / edgesPerSecond of a sample.
class Edges {
  public:
    // Starts with an edge at or before sample `before`; Whole counts from sample `origin`.
    Edges(std::int64_t sampleRate, std::int64_t edgesPerSecond, std::int64_t before, std::int64_t origin)
        : wholeStep_(sampleRate / edgesPerSecond),
          restStep_(sampleRate % edgesPerSecond),
          edgesPerSecond_(edgesPerSecond) {
        const std::int64_t number = FloorDivide(before * edgesPerSecond, sampleRate);
        const std::int64_t whole = FloorDivide(number * sampleRate, edgesPerSecond);
        Rest = number * sampleRate - whole * edgesPerSecond;
        Whole = whole - origin;
        Direction = number % 2 == 0 ? 1.0F : -1.0F;
    }

    void Next() {
        Whole += wholeStep_;
        Rest += restStep_;
        if (Rest >= edgesPerSecond_) {
            Rest -= edgesPerSecond_;
            Whole++;
        }
        Direction = -Direction;
    }

    std::int64_t Whole = 0;
    std::int64_t Rest = 0;
    float Direction = 1.0F;

  private:
    std::int64_t wholeStep_;
    std::int64_t restStep_;
    std::int64_t edgesPerSecond_;
};

void DrawLevels(Edges edge, std::span<float> block) {
    const auto size = static_cast<std::int64_t>(block.size());
    for (std::int64_t from = 0; from < size;) {
        const float level = edge.Direction * SquareWave::Level;
        edge.Next();
        const std::int64_t to = std::clamp<std::int64_t>(edge.Whole + 1, 0, size);
        for (std::int64_t i = from; i < to; i++)
            block[static_cast<std::size_t>(i)] = level;
        from = to;
    }
}

void SoftenEdges(Edges edge, std::span<float> block, const BandLimitedStep& step, double phasesPerRest) {
    const auto size = static_cast<std::int64_t>(block.size());
    for (; edge.Whole - Before < size; edge.Next()) {
        // The local array tells the compiler that nothing overlaps.
        const BandLimitedStep::Row correction =
            BandLimitedStep::Between(step.Correction, static_cast<double>(edge.Rest) * phasesPerRest,
                                     2.0F * SquareWave::Level * edge.Direction);
        const std::int64_t start = edge.Whole - Before;
        if (start >= 0 && start + Taps <= size) {
            float* samples = block.data() + start;
            for (std::size_t tap = 0; tap < correction.size(); tap++)
                samples[tap] += correction[tap];
        } else {
            const std::int64_t end = std::min(start + Taps, size);
            for (std::int64_t i = std::max<std::int64_t>(start, 0); i < end; i++)
                block[static_cast<std::size_t>(i)] += correction[static_cast<std::size_t>(i - start)];
        }
    }
}

// Raised cosine from 0 to 1 for `place` 0..1, as the square of a sine by four terms of its series: exact to
// 5e-6, and a loop over it can be vectorised.
float FadeGain(float place) {
    const float square = place * place;
    const float sine =
        place * (1.57079633F +
                 square * (-0.645964098F +
                           square * (0.0796926262F + square * (-0.00468175414F + square * 0.000160441F))));
    return std::min(sine * sine, 1.0F);
}

}  // namespace

SquareWave::SquareWave(std::int32_t frequencyHz, std::int32_t sampleRate, std::int64_t lengthSamples)
    : step_(&BandLimitedStepTable()),
      sampleRate_(sampleRate),
      edgesPerSecond_(2 * static_cast<std::int64_t>(frequencyHz)),
      length_(std::max<std::int64_t>(lengthSamples, 0)),
      fade_(std::min(sampleRate_ * 3 / 2000, length_ / 2)) {
    if (frequencyHz <= 0 || edgesPerSecond_ >= sampleRate_)
        edgesPerSecond_ = 0;
}

void SquareWave::Render(std::span<float> out) {
    while (!out.empty()) {
        if (Left() == 0 || edgesPerSecond_ == 0) {
            std::fill(out.begin(), out.end(), 0.0F);
            position_ += std::min(Left(), static_cast<std::int64_t>(out.size()));
            return;
        }
        const std::size_t size =
            std::min(out.size(), static_cast<std::size_t>(std::min<std::int64_t>(Left(), BlockSize)));
        RenderBlock(out.first(size));
        position_ += static_cast<std::int64_t>(size);
        out = out.subspan(size);
    }
}

void SquareWave::RenderBlock(std::span<float> block) const {
    // The wave repeats every second, so positions stay small in a tone of any length.
    const std::int64_t origin = position_ % sampleRate_;
    const Edges first(sampleRate_, edgesPerSecond_, origin - Taps, origin);
    DrawLevels(first, block);
    SoftenEdges(first, block, *step_,
                static_cast<double>(BandLimitedStep::Phases) / static_cast<double>(edgesPerSecond_));
    Fade(block);
}

void SquareWave::Fade(std::span<float> block) const {
    const auto size = static_cast<std::int64_t>(block.size());
    const float perSample = 1.0F / static_cast<float>(std::max<std::int64_t>(fade_, 1));

    const auto risingEnd = static_cast<std::int32_t>(std::clamp<std::int64_t>(fade_ - position_, 0, size));
    for (std::int32_t i = 0; i < risingEnd; i++) {
        const float sinceStart = static_cast<float>(static_cast<std::int32_t>(position_) + i) + 0.5F;
        block[static_cast<std::size_t>(i)] *= FadeGain(sinceStart * perSample);
    }

    const std::int64_t fallingStart = std::clamp<std::int64_t>(length_ - fade_ - position_, 0, size);
    const auto left =
        static_cast<std::int32_t>(std::min<std::int64_t>(length_ - position_ - fallingStart, fade_));
    for (std::int32_t i = 0; i < static_cast<std::int32_t>(size - fallingStart); i++) {
        const float untilEnd = static_cast<float>(left - i) - 0.5F;
        block[static_cast<std::size_t>(fallingStart + i)] *= FadeGain(untilEnd * perSample);
    }
}

}  // namespace quavix
