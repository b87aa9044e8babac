// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "music/music_list.h"
#include "shell/debug_log.h"

namespace quavix {

/// Rounds a value up if its fractional part is above 0.9999, and logs this; a value slightly above a whole
/// number stays unchanged. Returns true if the value was changed.
bool FixRoundingErrors(double& value, DebugLog& log);

/// Returns "03/16" for a multiple of a sixteenth, rounded to four decimals (in lowest terms, two digits
/// each), and an empty text for 0. Anything else is logged and gives "(ERR)".
std::string ConvertToFraction(float value, DebugLog& log);

/// The start of a line in whole notes: the sum of the lengths before it, with rounding errors fixed after
/// each addition. Some running sums are kept until an edit in front of them, so that asking for each line of
/// a long song in turn costs the same per line. Must not outlive the list.
class PlayPosition : private MusicListObserver {
  public:
    PlayPosition(MusicList& list, DebugLog& log);
    ~PlayPosition() override;

    /// Returns the sum of the lengths of lines 1 to `currentLine` - 1, in whole notes; missing lines add 0.
    double SumBefore(std::int32_t currentLine);

  private:
    void RowsInserted(std::span<const std::int32_t> rows) override { KeepBefore(rows.front()); }
    void RowsRemoved(std::span<const std::int32_t> rows) override { KeepBefore(rows.front()); }
    void Reset() override { KeepBefore(1); }
    void CellChanged(std::int32_t row, Cell cell) override;

    void KeepBefore(std::int32_t row);

    /// Number of lines per kept sum.
    static constexpr std::int32_t Block = 64;

    /// Start of the line after a block, and the number of fixed sums up to there.
    struct Sum {
        double Position = 0;
        std::int32_t Mended = 0;
    };

    MusicList& list_;
    DebugLog& log_;
    std::vector<Sum> sums_ = {Sum{}};  // by the number of blocks summed
};

}  // namespace quavix
