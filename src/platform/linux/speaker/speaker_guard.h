// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace quavix {

/// Sounds `hz` on the event device until another value is written; 0 is silence. Returns false, with the
/// reason in errno, if the device did not take it. Calls only write().
bool WriteTone(int device, std::int32_t hz);

/// The duty of the speaker's guard process (see ForkedGuard): switches the device off (writes 0 to it) when a
/// tone is overdue or the program is gone, for any reason. A message is the time of the monotonic clock in ns
/// until which a tone may sound, or 0 when the tone has been switched off. Makes system calls only.
void GuardSpeaker(int device, int channel);

}  // namespace quavix
