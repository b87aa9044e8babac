// SPDX-License-Identifier: MIT
#pragma once

#include "music/main_fields.h"

namespace quavix {

/// The rules of the typed and slid numbers of the main window: whatever text or position they are given, the
/// values behind them stay valid. Watches the controls for as long as the fields live, and must live as long.
class NumericFields {
  public:
    explicit NumericFields(MainFields& fields);
    NumericFields(const NumericFields&) = delete;
    NumericFields& operator=(const NumericFields&) = delete;

    /// A number outside its range turns the field orange and is ignored, other text reverts to the current
    /// value, an empty text is left alone.
    void BPMText_Change();
    void AlternateTimeText_Change();
    /// The arrows beside the tempo: one step up (1) or down (-1), to the end of the range at most.
    void BPMUpDown_Change(std::int32_t direction);
    /// A number below the range becomes its lowest, the others are taken. Only what is no octave at all,
    /// above 255, turns the field orange and is ignored.
    void KeyboardOctaveText_Change();
    /// Writes the three octave captions; done after every change of KeyboardOctave.
    void ShowOctaves();
    void TimeSigSlider_Change();
    void NoteSilenceRatioSlider_Scroll();

  private:
    MainFields& fields_;
};

}  // namespace quavix
