// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/midi_devices.h"
#include "shell/watched.h"

namespace quavix {

/// The names of the devices `first` to `count` - 1; none where `count` is 0.
std::vector<std::string> DeviceNames(MidiPort& port, std::int32_t first, std::int32_t count);

/// Where the device at the place `chosen` of the list `before` stands in the list `now`; -1 where it doesn't.
/// Of devices with one name it is the one in the same place, or else the first.
std::int32_t PlaceOfDevice(const std::vector<std::string>& before, std::int32_t chosen,
                           const std::vector<std::string>& now);

/// Searches again for the devices from `first` on, for a list that shows them: `chosen`, its entry, stays
/// with its device, or is -1 where that is gone.
void FindDevicesAgain(MidiPort& port, std::int32_t first, Watched<std::vector<std::string>>& devices,
                      Watched<std::int32_t>& chosen);

}  // namespace quavix
