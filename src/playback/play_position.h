// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "music/music_list.h"
#include "shell/debug_log.h"

namespace quavix {

/// Lifts a value whose fractional part is above 0.9999 to the next whole number, and logs it; a sum just
/// above one is left as it is. Returns whether it changed the value.
bool FixRoundingErrors(double& value, DebugLog& log);

/// "03/16" for a fraction that is a multiple of a sixteenth once rounded to four decimals (in lowest terms,
/// two digits each), an empty text for 0. Anything else is logged and gives "(ERR)".
std::string ConvertToFraction(float value, DebugLog& log);

/// Start of a line in whole notes, as the sum of the lengths before it, mended after each addition. Some of
/// the running sums are kept until an edit in front of them, so that asking for line after line of a long
/// song costs the same for each. Must not outlive the list.
class PlayPosition : private MusicListObserver {
  public:
    PlayPosition(MusicList& list, DebugLog& log);
    ~PlayPosition() override;
    PlayPosition(const PlayPosition&) = delete;
    PlayPosition& operator=(const PlayPosition&) = delete;

    /// Sum of the lengths of lines 1 to `currentLine` - 1, in whole notes; lines that don't exist add
    /// nothing.
    double SumBefore(std::int32_t currentLine);

  private:
    void RowInserted(std::int32_t row) override { KeepBefore(row); }
    void RowRemoved(std::int32_t row) override { KeepBefore(row); }
    void RowsInserted(std::span<const std::int32_t> rows) override { KeepBefore(rows.front()); }
    void RowsRemoved(std::span<const std::int32_t> rows) override { KeepBefore(rows.front()); }
    void Reset() override { KeepBefore(1); }
    void CellChanged(std::int32_t row, Cell cell) override;

    void KeepBefore(std::int32_t row);

    /// One running sum is kept for so many lines.
    static constexpr std::int32_t Block = 64;

    /// Start of the line after so many lines, and how many of the sums up to there were mended.
    struct Sum {
        double Position = 0;
        std::int32_t Mended = 0;
    };

    MusicList& list_;
    DebugLog& log_;
    std::vector<Sum> sums_ = {Sum{}};  // by the number of blocks summed
};

}  // namespace quavix
