// SPDX-License-Identifier: MIT
#include "playback/play_position.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include <fmt/format.h>

#include "music/lengths.h"
#include "shell/numbers.h"

namespace quavix {
namespace {

constexpr const char* MendedText = "FixRoundingErrors() fixed an error.";

/// A cache of line lengths. A long song has few different ones, and comparing texts is slower than adding.
class RecentLengths {
  public:
    explicit RecentLengths(const MusicList& list) : list_(list) {}

    double Of(std::int32_t row) {
        const TextPool::Id length = list_.TextId(row, Cell::Length);
        const TextPool::Id mod = list_.TextId(row, Cell::Mod);
        Entry& entry = entries_[(length * 5 + mod) % entries_.size()];
        if (!entry.Known || entry.Length != length || entry.Mod != mod) {
            std::string modText(list_.Text(row, Cell::Mod));
            entry = {true, length, mod, GetEquivalentLength(list_.Text(row, Cell::Length), modText)};
        }
        return entry.WholeNotes;
    }

  private:
    struct Entry {
        bool Known = false;
        TextPool::Id Length = 0;
        TextPool::Id Mod = 0;
        double WholeNotes = 0;
    };

    const MusicList& list_;
    std::array<Entry, 32> entries_{};
};

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
    const std::int32_t lines = std::clamp(currentLine - 1, 0, list_.Count());
    const auto known = std::min(lines / Block, static_cast<std::int32_t>(sums_.size()) - 1);
    Sum sum = sums_[static_cast<std::size_t>(known)];
    for (std::int32_t i = 0; log_.Enabled() && i < sum.Mended; ++i)
        log_.LogText(MendedText);
    RecentLengths lengths(list_);
    for (std::int32_t line = known * Block; line < lines;) {
        ++line;
        sum.Position += lengths.Of(line);
        sum.Mended += FixRoundingErrors(sum.Position, log_) ? 1 : 0;
        if (line % Block == 0)
            sums_.push_back(sum);
    }
    return sum.Position;
}

/// Drops every running sum that includes this row.
void PlayPosition::KeepBefore(std::int32_t row) {
    const auto blocks = static_cast<std::size_t>((row - 1) / Block) + 1;
    if (sums_.size() > blocks)
        sums_.resize(blocks);
}

void PlayPosition::CellChanged(std::int32_t row, Cell cell) {
    if (cell == Cell::Length || cell == Cell::Mod)
        KeepBefore(row);
}

}  // namespace quavix
