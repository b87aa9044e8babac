// SPDX-License-Identifier: MIT
#include "music/numeric_fields.h"

#include <limits>

#include "shell/numbers.h"

namespace quavix {
namespace {

/// Checks a typed number and paints its field: calls `take` with a number in range. `current` is what other
/// text reverts to.
template <typename Take>
void ReadField(Watched<std::string>& field, Watched<std::int32_t>& backColor, const Parameter& range,
               std::int32_t current, Take take) {
    const std::string text = field;
    if (text.empty())
        return;
    if (!IsNumeric(text)) {
        field = std::to_string(current);
        return;
    }
    const double value = Val(text);
    if (!range.Contains(value)) {
        backColor = colour::Orange;
        return;
    }
    backColor = colour::WindowBackground;
    take(value);
}

bool FitsByte(double value) {
    return RoundHalfEven(value) <= std::numeric_limits<std::uint8_t>::max();
}

}  // namespace

NumericFields::NumericFields(MainFields& fields) : fields_(fields) {
    fields_.BPMText.Watch([this](const auto&) { BPMText_Change(); });
    fields_.AlternateTimeText.Watch([this](const auto&) { AlternateTimeText_Change(); });
    fields_.KeyboardOctaveText.Watch([this](const auto&) { KeyboardOctaveText_Change(); });
    fields_.KeyboardOctave.Watch([this](std::uint8_t) { ShowOctaves(); });
    fields_.TimeSigSlider.Watch([this](const auto&) { TimeSigSlider_Change(); });
    fields_.NoteSilenceRatioSlider.Watch([this](const auto&) { NoteSilenceRatioSlider_Scroll(); });
    ShowOctaves();
    NoteSilenceRatioSlider_Scroll();
}

void NumericFields::BPMText_Change() {
    ReadField(fields_.BPMText, fields_.BPMTextBackColor, parameter::Bpm, fields_.BPM,
              [this](double value) { fields_.BPM = ToInt32(value); });
}

void NumericFields::AlternateTimeText_Change() {
    if (!fields_.AlternateTimeIsAutomatic)
        fields_.AlternateTimeOfSong.reset();
    ReadField(fields_.AlternateTimeText, fields_.AlternateTimeTextBackColor, parameter::AlternateTime,
              fields_.AlternateTime, [this](double value) { fields_.AlternateTime = ToInt16(value); });
}

void NumericFields::BPMUpDown_Change(std::int32_t direction) {
    const double wanted = static_cast<double>(fields_.BPM) + direction * parameter::BpmStep;
    fields_.BPMText = std::to_string(ToInt32(parameter::Bpm.Nearest(wanted)));
}

void NumericFields::KeyboardOctaveText_Change() {
    const std::string text = fields_.KeyboardOctaveText;
    if (text.empty())
        return;
    if (!IsNumeric(text)) {
        fields_.KeyboardOctaveText = std::to_string(fields_.KeyboardOctave);
        return;
    }
    if (Val(text) < parameter::KeyboardOctave.Lowest) {
        fields_.KeyboardOctaveText = std::to_string(parameter::KeyboardOctave.Lowest);
        return;
    }
    if (!FitsByte(Val(text))) {
        fields_.KeyboardOctaveTextBackColor = colour::Orange;
        return;
    }
    fields_.KeyboardOctaveTextBackColor = colour::WindowBackground;
    fields_.KeyboardOctave = ToByte(Val(text));
}

void NumericFields::ShowOctaves() {
    std::int32_t octave = std::int32_t{fields_.KeyboardOctave} - 1;
    for (Watched<std::string>& label : fields_.OctLabel)
        label = std::to_string(octave++);
}

void NumericFields::TimeSigSlider_Change() {
    fields_.BeatsPerBar = fields_.TimeSigSlider;
    fields_.lblTimeSig = std::to_string(fields_.BeatsPerBar);
}

void NumericFields::NoteSilenceRatioSlider_Scroll() {
    fields_.NoteSilenceRatioLabel = FormatNumber(fields_.NoteSilenceRatioSlider, 2) + "%";
}

}  // namespace quavix
