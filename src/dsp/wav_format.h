// SPDX-License-Identifier: MIT
#pragma once

namespace quavix {

/// All WAV files here hold whole numbers of 16 bits.
inline constexpr int WavBytesPerSample = 2;

}  // namespace quavix
