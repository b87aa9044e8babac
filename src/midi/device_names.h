// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ports/midi_devices.h"
#include "shell/watched.h"

namespace quavix {

/// Returns the names of the devices `first` to `count` - 1; none if `count` is 0.
inline std::vector<std::string> DeviceNames(MidiPort& port, std::int32_t first, std::int32_t count) {
    std::vector<std::string> names;
    for (std::int32_t device = first; count > 0 && device < count; ++device)
        names.emplace_back(port.DeviceName(device));
    return names;
}

/// Returns the place in the list `now` of the device at `chosen` in the list `before`, or -1 if it is gone.
/// Among devices with the same name, prefers the same place, else the first.
inline std::int32_t PlaceOfDevice(const std::vector<std::string>& before, std::int32_t chosen,
                                  const std::vector<std::string>& now) {
    const auto place = static_cast<std::size_t>(chosen);
    if (place >= before.size())
        return -1;
    if (place < now.size() && now[place] == before[place])
        return chosen;
    const auto found = std::find(now.begin(), now.end(), before[place]);
    return found == now.end() ? -1 : static_cast<std::int32_t>(found - now.begin());
}

/// Searches again for the devices from `first` on, for a list that shows them: `chosen` stays with its
/// device, or becomes -1 if the device is gone.
inline void FindDevicesAgain(MidiPort& port, std::int32_t first, Watched<std::vector<std::string>>& devices,
                             Watched<std::int32_t>& chosen) {
    const std::vector<std::string> before = devices;
    const std::int32_t chosenBefore = chosen;
    devices = DeviceNames(port, first, port.DeviceCount());
    chosen = PlaceOfDevice(before, chosenBefore, devices);
}

}  // namespace quavix
