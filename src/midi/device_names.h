// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "ports/midi_devices.h"
#include "shell/debug_log.h"
#include "shell/watched.h"

namespace quavix {

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

/// Searches for the devices from `first` on, for a list that shows them: `chosen` stays with its device, or
/// becomes -1 if the device is gone. If the port has no device, the list becomes empty, even if
/// `first` is below 0.
inline void FindDevicesAgain(MidiPort& port, std::int32_t first, Watched<std::vector<std::string>>& devices,
                             Watched<std::int32_t>& chosen) {
    const std::vector<std::string> before = devices;
    const std::int32_t chosenBefore = chosen;
    std::vector<std::string> names;
    const std::int32_t count = port.DeviceCount();
    for (std::int32_t device = first; count > 0 && device < count; ++device)
        names.push_back(port.DeviceName(device));
    devices = names;
    chosen = PlaceOfDevice(before, chosenBefore, names);
}

/// Same for a list that is shown for the first time: chooses the first device, and logs all. `direction` is
/// "input" or "output". Returns false if there is no device.
inline bool FindFirstDevices(MidiPort& port, std::int32_t first, const char* direction,
                             Watched<std::vector<std::string>>& devices, Watched<std::int32_t>& chosen,
                             DebugLog& log) {
    FindDevicesAgain(port, first, devices, chosen);
    if (devices.Get().empty()) {
        log.Text("No MIDI {} devices - exiting sub", direction);
        return false;
    }
    // The text says -1, even if devices begin at 0.
    log.Text("Scanning {} devices - -1 to {}", direction,
             static_cast<std::int32_t>(devices.Get().size()) + first - 1);
    for (std::int32_t device = first; const std::string& name : devices.Get())
        log.Text("DEVICEID:{}, PRODUCTNAME:{}", device++, name);
    chosen = 0;
    return true;
}

}  // namespace quavix
