// SPDX-License-Identifier: MIT
#include "playback/play_position.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <fmt/format.h>

#include "music/lengths.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr const char* MendedText = "FixRoundingErrors() fixed an error.";

}  // namespace

bool FixRoundingErrors(double& value, DebugLog& log) {
    const double whole = std::trunc(value);
    if (!(value - whole > 0.9999))
        return false;
    log.LogText(MendedText);
    value = whole + 1;
    return true;
}

std::string ConvertToFraction(float value, DebugLog& log) {
    constexpr int Sixteenths = 16;
    const double rounded = RoundHalfEven(static_cast<double>(value) * 10000) / 10000;
    const double numerator = rounded * Sixteenths;
    if (numerator == 0)
        return {};
    if (numerator != std::trunc(numerator) || numerator < 0 || numerator >= Sixteenths) {
        log.Text("ConvertToFraction({}) failed to convert.", fmt::format("{:.7g}", value));
        return "(ERR)";
    }
    const int sixteenths = static_cast<int>(numerator);
    const int divisor = std::gcd(sixteenths, Sixteenths);
    return fmt::format("{:02}/{:02}", sixteenths / divisor, Sixteenths / divisor);
}

PlayPosition::PlayPosition(MusicList& list, DebugLog& log) : list_(list), log_(log) {
    list_.AddObserver(*this);
}

PlayPosition::~PlayPosition() {
    list_.RemoveObserver(*this);
}

double PlayPosition::SumBefore(std::int32_t currentLine) {
    const auto lines = static_cast<std::size_t>(std::clamp(currentLine - 1, 0, list_.Count()));
    const std::size_t known = std::min(lines, sums_.size() - 1);
    for (std::int32_t i = 0; log_.Enabled() && i < sums_[known].Mended; ++i)
        log_.LogText(MendedText);
    std::string mod;
    while (sums_.size() <= lines) {
        const auto row = static_cast<std::int32_t>(sums_.size());
        mod = list_.Text(row, Cell::Mod);
        Sum sum = sums_.back();
        sum.Position += GetEquivalentLength(list_.Text(row, Cell::Length), mod);
        sum.Mended += FixRoundingErrors(sum.Position, log_) ? 1 : 0;
        sums_.push_back(sum);
    }
    return sums_[lines].Position;
}

void PlayPosition::KeepBefore(std::int32_t row) {
    if (sums_.size() > static_cast<std::size_t>(row))
        sums_.resize(static_cast<std::size_t>(row));
}

void PlayPosition::CellChanged(std::int32_t row, Cell cell) {
    if (cell == Cell::Length || cell == Cell::Mod)
        KeepBefore(row);
}

}  // namespace quavix
