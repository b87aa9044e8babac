// SPDX-License-Identifier: MIT
#include "simulation/recorded_outputs.h"

#include <fmt/format.h>

namespace quavix {

void RecordedOutputs::SetWantedPitch(std::int32_t frequency) {
    Record(fmt::format("portamento {} Hz", frequency));
}

void RecordedOutputs::StartSound() {
    Record("portamento start");
}

void RecordedOutputs::LineStarts() {
    Record("line");
    if (OnLine)
        OnLine();
}

}  // namespace quavix
